#include "exporter/verify.h"

#include "exporter/copy_file.h"
#include "exporter/errors.h"
#include "exporter/record.h"
#include "exporter/run.h"

#include <new>

namespace exporter
{

namespace
{

constexpr int batch = 500;

class Verification
{
public:
    Verification(Destination &verified, Record &itsRecord, RunState &runState, VerifyObserver &listener,
                 VerifyOutcome &result)
        : destination(verified), record(itsRecord), state(runState), observer(listener), outcome(result)
    {
    }

    void go();

private:
    void countAll();
    void verifyFile(const StoredFile &file);
    void verifyEntry(const StoredEntry &entry);
    /// Compares what is at `path`; `sha256` may be empty for not known.
    void compare(VerifyFinding finding, const QByteArray &sha256);
    void found(VerifyFinding &finding, Difference difference, const QString &reason);

    Destination &destination;
    Record &record;
    RunState &state;
    VerifyObserver &observer;
    VerifyOutcome &outcome;
};

void Verification::countAll()
{
    Statement count(record.connection(), "SELECT (SELECT count(*) FROM file WHERE state = 'done'), "
                                         "(SELECT count(*) FROM entry WHERE state = 'done'), "
                                         "(SELECT sum(size) FROM file WHERE state = 'done')");
    count.step();
    state.begin(Phase::Verifying, 0);
    state.progress.filesTotal = count.integer(0) + count.integer(1);
    state.progress.bytesTotal = count.integer(2);
}

void Verification::go()
{
    countAll();
    qint64 last = 0;
    for (auto files = record.filesAfter(last, batch); !files.empty(); files = record.filesAfter(last, batch)) {
        for (const StoredFile &file : files)
            verifyFile(file);
        last = files.back().id;
    }
    last = 0;
    for (auto all = record.entriesAfter(last, batch); !all.empty(); all = record.entriesAfter(last, batch)) {
        for (const StoredEntry &entry : all)
            verifyEntry(entry);
        last = all.back().id;
    }
}

void Verification::verifyFile(const StoredFile &file)
{
    VerifyFinding finding;
    finding.destination = file.path;
    finding.uuid = file.uuid;
    finding.role = file.role;
    finding.expectedSize = file.size;
    const qint64 before = state.progress.bytesDone;
    compare(finding, file.sha256);
    state.progress.bytesDone = before + file.size;
}

void Verification::verifyEntry(const StoredEntry &entry)
{
    VerifyFinding finding;
    finding.destination = entry.path;
    finding.inAlbum = true;
    finding.expectedSize = entry.size;
    QByteArray sha256;
    if (const auto file = record.file(entry.file)) {
        finding.uuid = file->uuid;
        finding.role = file->role;
        sha256 = file->sha256;
        try {
            const auto source = destination.stat(file->path);
            const auto link = destination.stat(entry.path);
            if (source && link && source->device == link->device && source->inode == link->inode)
                sha256.clear(); // read already under its other name
        } catch (const FileProblem &) {
            // compare() says what is wrong
        }
    }
    const qint64 before = state.progress.bytesDone;
    compare(finding, sha256);
    state.progress.bytesDone = before;
}

void Verification::compare(VerifyFinding finding, const QByteArray &sha256)
{
    state.requireGoOn();
    state.progress.currentFile = finding.destination;
    ++outcome.filesChecked;
    try {
        const auto there = destination.stat(finding.destination);
        if (!there)
            found(finding, Difference::Missing, QStringLiteral("is not there any more"));
        else if (!there->regular)
            found(finding, Difference::Unreadable, QStringLiteral("is no plain file any more"));
        else if (there->size != finding.expectedSize) {
            finding.foundSize = there->size;
            found(finding, Difference::Size,
                  QStringLiteral("has %1 bytes instead of %2").arg(there->size).arg(finding.expectedSize));
        } else if (!sha256.isEmpty()) {
            finding.foundSize = there->size;
            const QByteArray now = hashOf(destination, finding.destination, [this](qint64 bytes) {
                state.requireGoOn();
                state.advance(bytes);
            });
            if (now != sha256)
                found(finding, Difference::Content, QStringLiteral("has another content than when it was exported"));
        }
    } catch (const FileProblem &problem) {
        found(finding, Difference::Unreadable, problem.text);
    }
    ++state.progress.filesDone;
    state.tell();
}

void Verification::found(VerifyFinding &finding, Difference difference, const QString &reason)
{
    finding.difference = difference;
    finding.reason = reason;
    ++outcome.differences;
    observer.found(finding);
}

} // namespace

VerifyOutcome verify(const QString &destination, VerifyObserver &observer)
{
    FileOperations files;
    return verifyWith(files, destination, observer);
}

VerifyOutcome verifyWith(FileOperations &files, const QString &destination, VerifyObserver &observer)
{
    VerifyOutcome outcome;
    const ExportOptions none;
    RunState state(none, observer);
    try {
        Destination verified(files, destination, Access::ReadOnly);
        if (!verified.exists())
            throw RunEnded(RunEnd::DestinationRefused, QStringLiteral("There is no folder %1.").arg(destination));
        Record record(verified, RecordUse::ReadOnly);
        Verification(verified, record, state, observer, outcome).go();
    } catch (const RunEnded &ended) {
        outcome.end = ended.end;
        outcome.message = ended.message;
    } catch (const FileProblem &problem) {
        outcome.end = RunEnd::DestinationRefused;
        outcome.message = QStringLiteral("The destination cannot be read: %1.").arg(problem.text);
    } catch (const std::bad_alloc &) {
        outcome.end = RunEnd::OutOfMemory;
        outcome.message = QStringLiteral("There is not enough memory.");
    }
    return outcome;
}

} // namespace exporter
