#include "exporter/photo_export.h"

#include "exporter/errors.h"
#include "exporter/layout_fields.h"
#include "exporter/set_publication.h"
#include "photolib/photo_item.h"

#include <algorithm>

namespace exporter
{

namespace
{

constexpr qint64 nanosecondsInMs = 1'000'000;

// Beyond these years nanoseconds do not fit 64 bits.
constexpr qint64 timeLimitMs = 9'000'000'000'000;

std::optional<qint64> fileTime(const photoItem &photo)
{
    const QDateTime date = isKnownDate(photo.dateCreated) ? photo.dateCreated : photo.modificationDate;
    if (!isKnownDate(date) || qAbs(date.toMSecsSinceEpoch()) > timeLimitMs)
        return std::nullopt;
    return date.toMSecsSinceEpoch() * nanosecondsInMs;
}

bool isTakenOrUnknown(Destination &destination, const QString &path)
{
    try {
        return destination.isTaken(path);
    } catch (const FileProblem &) {
        return true;
    }
}

QString unusableName()
{
    return QStringLiteral("the library names no file that could be read");
}

} // namespace

FileReport emptyReport(const photoItem &photo, FileStatus status)
{
    FileReport report;
    report.photoId = photo.id;
    report.uuid = photo.uuid;
    report.status = status;
    report.devicePath = originalPath(photo);
    return report;
}

std::optional<qint64> modificationOf(const photoItem &photo)
{
    return photo.modificationDate.isValid() ? std::optional<qint64>(photo.modificationDate.toMSecsSinceEpoch())
                                            : std::nullopt;
}

QString Member::ending() const
{
    return suffixOf(file.role) + (file.extension.isEmpty() ? QString() : QLatin1Char('.') + file.extension);
}

Member PhotoExport::memberOf(AssetFile file) const
{
    Member member;
    member.file = std::move(file);
    if (!set)
        return member;
    for (const StoredFile &stored : set->files) {
        if (stored.role == member.file.role)
            member.stored = stored;
    }
    if (!member.stored)
        return member;
    const auto found = tools.destination.stat(member.stored->path);
    if (!found)
        member.local = Member::Local::Gone;
    else if (found->regular && found->size == member.stored->size && found->mtimeNs == member.stored->mtimeNs)
        member.local = Member::Local::Kept;
    else
        member.local = Member::Local::Altered;
    member.deviceChanged = member.file.size != member.stored->size || modificationOf(photo) != member.stored->modified;
    return member;
}

void PhotoExport::examine()
{
    set = tools.record.latestSet(tools.library.keyOf(photo));
    members.clear();
    auto files = findAssetFiles(tools.source, photo, tools.state.options.edited, tools.library.videoPaths());
    // All or none: a photo of which a part could not be looked at must not pass for a smaller one.
    std::vector<Member> examined;
    for (AssetFile &file : files)
        examined.push_back(memberOf(std::move(file)));
    members = std::move(examined);
}

void PhotoExport::measure()
{
    if (originalPath(photo).isEmpty())
        return;
    try {
        examine();
    } catch (const DeviceProblem &) {
        throw;
    } catch (const FileProblem &) {
        return; // met and reported again when it is the photo's turn
    }
    for (const Member &member : members) {
        if (member.file.presence != AssetFile::Presence::Here || !member.needsCopy())
            continue;
        ++tools.state.progress.filesTotal;
        tools.state.progress.bytesTotal += member.file.size;
    }
}

void PhotoExport::run()
{
    if (originalPath(photo).isEmpty()) {
        FileReport failed = emptyReport(photo, FileStatus::Failed);
        failed.reason = unusableName();
        return tools.state.report(failed);
    }
    try {
        tools.source.withRetries([this] { examine(); });
        reportAbsentOnes();
        settleAltered();
        forgetGone();
        if (tools.state.options.dryRun)
            return planAll();
        copyNeeded();
        skipUnchanged();
        exportAll();
    } catch (const FileProblem &problem) {
        // A device that was told to stop looks like one that fails.
        tools.state.requireGoOn();
        if (members.empty()) {
            FileReport failed = emptyReport(photo, FileStatus::Failed);
            failed.reason = problem.text;
            return tools.state.report(failed);
        }
        for (Member &member : members) {
            if (!member.dropped && member.local == Member::Local::Kept && !member.deviceChanged)
                tools.state.report(reportOf(member, FileStatus::Skipped));
            else if (!member.dropped)
                fail(member, problem.text);
        }
    }
}

void PhotoExport::reportAbsentOnes()
{
    for (Member &member : members) {
        if (member.file.presence == AssetFile::Presence::Absent) {
            member.dropped = true;
            tools.state.report(reportOf(member, FileStatus::Missing));
        } else if (member.file.presence == AssetFile::Presence::Unusable) {
            tools.state.requireGoOn();
            fail(member, member.file.problem);
        }
    }
}

// Another time alone does not make another file: backups and file managers change times.
void PhotoExport::settleAltered()
{
    for (Member &member : members) {
        if (member.dropped || member.local != Member::Local::Altered)
            continue;
        StoredFile &stored = *member.stored;
        const auto found = tools.destination.stat(stored.path);
        if (!sameContent(member, stored.path, found ? found->size : -1))
            continue;
        member.local = Member::Local::Kept;
        stored.mtimeNs = found->mtimeNs;
        tools.record.refreshFile(stored);
    }
}

bool PhotoExport::sameContent(const Member &member, const QString &path, qint64 size) const
{
    if (size != member.stored->size)
        return false;
    try {
        return hashOf(tools.destination, path, [this](qint64) { tools.state.requireGoOn(); }) == member.stored->sha256;
    } catch (const FileProblem &) {
        return false; // what cannot be read is not what was exported
    }
}

// What is gone is exported as if for the first time, beside what is left; when nothing is left, nothing ties the photo
// to its old place.
void PhotoExport::forgetGone()
{
    if (!set)
        return;
    const bool anyLeft = std::any_of(set->files.begin(), set->files.end(), [this](const StoredFile &stored) {
        return tools.destination.isTaken(stored.path);
    });
    Transaction transaction(tools.record.connection());
    forgetEarlier();
    if (!anyLeft) {
        tools.record.removeSet(set->id);
        tools.names.giveBack(set->stemPath);
        set.reset();
    }
    for (Member &member : members) {
        if (member.local != Member::Local::Gone)
            continue;
        tools.record.removeFile(member.stored->id);
        member.stored.reset();
        member.local = Member::Local::None;
    }
    transaction.commit();
}

// An earlier version that people removed cannot be had again; the record would call it missing for ever.
void PhotoExport::forgetEarlier()
{
    const std::vector<EarlierFile> files = tools.record.earlierFiles(tools.library.keyOf(photo), set->id);
    for (const EarlierFile &file : files) {
        if (isTakenOrUnknown(tools.destination, file.path))
            continue;
        tools.record.removeFile(file.id);
        tools.record.removeEmptySet(file.set);
        tools.names.giveBack(file.stemPath);
        ++tools.state.forgotten;
    }
}

void PhotoExport::copyNeeded()
{
    for (Member &member : members) {
        if (!member.needsCopy())
            continue;
        ExportProgress &progress = tools.state.progress;
        const qint64 before = progress.bytesDone;
        try {
            member.copy = copyFromDevice(tools.source, member.file, fileTime(photo), tools.destination, tools.state);
            member.file.size = member.copy->size; // what was told before may have been wrong
        } catch (const FileProblem &problem) {
            tools.state.requireGoOn();
            fail(member, problem.text);
        }
        ++progress.filesDone;
        progress.bytesDone = before + member.file.size;
    }
}

void PhotoExport::skipUnchanged()
{
    for (Member &member : members) {
        const bool isSame = member.copy && member.local == Member::Local::Kept && !member.hasNewContent();
        if (!isSame)
            continue;
        member.copy.reset();
        member.stored->modified = modificationOf(photo);
        member.stored->devicePath = member.file.devicePath;
        member.deviceChanged = false;
        tools.record.refreshFile(*member.stored);
    }
}

bool PhotoExport::needsNewName()
{
    return std::any_of(members.begin(), members.end(), [](const Member &member) {
        return member.copy && member.stored && (member.hasNewContent() || member.local == Member::Local::Altered);
    });
}

void PhotoExport::exportAll()
{
    SetPublication added(tools, photo);
    SetPublication whole(tools, photo);
    for (Member &member : members) {
        if (member.copy)
            added.add(member);
        if (!member.dropped)
            whole.add(member);
    }
    if (!added.results().empty()) {
        const bool beside = set && !needsNewName() && added.publishBeside(*set);
        if (!beside)
            whole.publishAnew();
        reportPublished(beside ? added : whole);
    }
    for (Member &member : members) {
        if (!member.dropped)
            tools.state.report(reportOf(member, FileStatus::Skipped));
        member.dropped = true;
    }
}

void PhotoExport::reportPublished(const SetPublication &publication)
{
    for (const SetPublication::Result &result : publication.results()) {
        Member &member = *result.member;
        FileReport report = reportOf(member, result.adopted ? FileStatus::Adopted : FileStatus::Exported);
        report.destination = result.path;
        report.sha256 = (member.copy ? member.copy->sha256 : member.stored->sha256).toHex();
        if (member.copy && !result.adopted)
            tools.state.outcome.bytesExported += member.file.size;
        member.dropped = true;
        tools.state.report(report);
    }
}

FileReport PhotoExport::reportOf(const Member &member, FileStatus status) const
{
    FileReport report = emptyReport(photo, status);
    report.role = member.file.role;
    report.devicePath = member.file.devicePath;
    report.size = member.file.size;
    if (status == FileStatus::Skipped && member.stored) {
        report.destination = member.stored->path;
        report.sha256 = member.stored->sha256.toHex();
    }
    return report;
}

void PhotoExport::fail(Member &member, const QString &reason)
{
    member.dropped = true;
    FileReport failed = reportOf(member, FileStatus::Failed);
    failed.reason = reason;
    tools.state.report(failed);
}

} // namespace exporter
