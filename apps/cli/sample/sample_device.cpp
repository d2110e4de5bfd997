#include "apps/cli/sample/sample_device.h"

#include "apps/cli/sample/library_writer.h"
#include "apps/cli/sample/media_writer.h"
#include "apps/cli/sample/property_lists.h"
#include "apps/cli/sample/thumbnail_writer.h"

#include <QDir>
#include <QFileInfo>

namespace sample
{

namespace
{

testkit::Era eraNamed(const QString &name)
{
    const auto era = testkit::eraFromName(name.isEmpty() ? defaultEra() : name);
    if (!era)
        throw FileError(
            QStringLiteral("unknown era \"%1\"; the eras are: %2").arg(name, sampleEras().join(QStringLiteral(", "))));
    return *era;
}

void requireFreeFolder(const QString &directory)
{
    const auto refuse = [&directory](const char *reason) {
        const QString subject = directory.isEmpty() ? QStringLiteral("no folder was named") : directory;
        throw FileError(
            QStringLiteral("%1%2; name a new or an empty folder").arg(subject, QString::fromLatin1(reason)));
    };
    const QFileInfo target(directory);
    if (directory.isEmpty())
        refuse("");
    if (!target.exists() && target.isSymLink())
        refuse(" is a link that leads nowhere");
    if (!target.exists())
        return;
    if (!target.isDir())
        refuse(" is not a folder");
    const QDir folder(directory);
    if (!folder.isReadable())
        refuse(" cannot be read");
    if (!folder.isEmpty(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot))
        refuse(" is not empty");
}

// False when `progress` wanted no more.
bool writeDevice(FileStore &files, testkit::Era era, const SampleProgress &progress, SampleReport &report)
{
    Plan plan = makePlan(era);
    const int total = plan.assets.size();
    const auto goOn = [&progress, total](int done) { return !progress || progress(done, total); };
    files.write(QStringLiteral("Photos/Sync/CurrentLibraryUUID.plist"), currentLibraryList(plan.currentLibraryUuid));
    ThumbnailWriter thumbnails(files);
    for (int i = 0; i < total; ++i) {
        if (!goOn(i))
            return false;
        PlannedAsset &asset = plan.assets[i];
        thumbnails.add(asset, writeMedia(files, asset));
    }
    thumbnails.finish();
    writeLibrary(files, plan, era, report);
    report.files = files.files();
    report.bytes = files.bytes();
    return goOn(total);
}

SampleOutcome writeOrThrow(FileStore &files, const SampleOptions &options, const SampleProgress &progress,
                           SampleReport &report)
{
    const testkit::Era era = eraNamed(options.era);
    requireFreeFolder(options.directory);
    return writeDevice(files, era, progress, report) ? SampleOutcome::Written : SampleOutcome::Stopped;
}

} // namespace

QStringList sampleEras()
{
    return testkit::eraNames();
}

QString defaultEra()
{
    return QStringLiteral("ios15");
}

SampleOutcome writeSampleDevice(const SampleOptions &options, QString *error, SampleReport *report,
                                const SampleProgress &progress)
{
    FileStore files(QDir::cleanPath(options.directory));
    SampleReport written;
    SampleOutcome outcome = SampleOutcome::Failed;
    QString message;
    // SQLite's refusals and ours alike are sentences by the time they get here.
    try {
        outcome = writeOrThrow(files, options, progress, written);
    } catch (const std::exception &failure) {
        message = QString::fromUtf8(failure.what());
    }
    if (outcome == SampleOutcome::Written) {
        if (report != nullptr)
            *report = written;
        return outcome;
    }
    const bool clean = files.removeAll();
    if (outcome == SampleOutcome::Stopped && clean)
        message = QStringLiteral("what was written to %1 is removed").arg(options.directory);
    else if (!clean)
        message += (message.isEmpty() ? QString() : QStringLiteral("; ")) +
                   QStringLiteral("remove what is left in %1").arg(options.directory);
    if (error != nullptr)
        *error = message;
    return outcome;
}

} // namespace sample
