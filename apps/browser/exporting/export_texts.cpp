#include "apps/browser/exporting/export_texts.h"

#include <QCoreApplication>
#include <QLocale>

#include <limits>

namespace browser
{

namespace
{

using exporter::FileStatus;
using exporter::RunEnd;

// tr() counts in int.
int counted(qint64 count)
{
    return static_cast<int>(qMin<qint64>(count, std::numeric_limits<int>::max()));
}

class ExportTexts
{
    Q_DECLARE_TR_FUNCTIONS(browser::ExportTexts)

public:
    static QString line(FileStatus status, qint64 count, const ExportResult &result)
    {
        const int n = counted(count);
        switch (status) {
        case FileStatus::Exported:
            return (result.wasDryRun ? tr("%Ln file(s) to copy, %1", nullptr, n)
                                     : tr("%Ln file(s) copied, %1", nullptr, n))
                .arg(sizeText(result.outcome.bytesExported));
        case FileStatus::Adopted:
            return result.wasDryRun
                       ? tr("%Ln file(s) of the same name and size are there; they will be compared", nullptr, n)
                       : tr("%Ln file(s) with the same content were there already", nullptr, n);
        case FileStatus::Skipped:
            return tr("%Ln file(s) already there from an earlier export", nullptr, n);
        case FileStatus::Missing:
            return result.wasBackup ? tr("%Ln original(s) not in this backup, but in the cloud", nullptr, n)
                                    : tr("%Ln original(s) not on the device, only in the cloud", nullptr, n);
        case FileStatus::Failed:
            return result.wasDryRun ? tr("%Ln file(s) cannot be read", nullptr, n)
                                    : tr("%Ln file(s) failed", nullptr, n);
        }
        return {};
    }

    static QString notThere(const ExportResult &result)
    {
        const int n = counted(result.notThere);
        return result.wasBackup ? tr("%Ln original(s) not in this backup", nullptr, n)
                                : tr("%Ln original(s) not on the device", nullptr, n);
    }

    static QString notThereAdvice(bool isBackup)
    {
        return isBackup ? tr("Originals are missing in this backup, which may have been broken off. Make a new backup, "
                             "or connect the device itself, and export again: only what is new is copied.")
                        : tr("Originals are missing on the device, though its list of photos names them. Connect the "
                             "device again and export again: only what is new is copied.");
    }

    static QString albums(int n) { return tr("%Ln album folder(s)", nullptr, n); }
    static QString albumsFailed(int n) { return tr("%Ln album folder(s) could not be made", nullptr, n); }

    static QString headline(const ExportResult &result)
    {
        const exporter::RunOutcome &outcome = result.outcome;
        switch (outcome.end) {
        case RunEnd::Completed:
            if (!outcome.isSuccess() || result.notThere > 0)
                return tr("The export is done, but not everything worked.");
            if (outcome.count(FileStatus::Missing) == 0)
                return tr("Everything is exported.");
            return result.wasBackup ? tr("Everything that is in this backup is exported.")
                                    : tr("Everything that is on the device is exported.");
        case RunEnd::Cancelled:
            return tr("The export was cancelled.");
        case RunEnd::DeviceGone:
            return tr("The device went away.");
        case RunEnd::DestinationFull:
            return tr("The disk is full.");
        case RunEnd::DestinationRefused:
            return tr("The folder cannot be written.");
        case RunEnd::RecordUnusable:
            return tr("The folder's record of earlier exports cannot be used.");
        case RunEnd::BadLayout:
            return tr("The arrangement of the folders is not valid.");
        case RunEnd::OutOfMemory:
            return tr("Memory ran short.");
        }
        return {};
    }

    static QString cancelledAdvice()
    {
        return tr("Every file that is there is complete. Export the same photos again to go on where this stopped.");
    }

    static QString rate(qint64 bytesPerSecond) { return tr("%1/s", "bytes in a second").arg(sizeText(bytesPerSecond)); }

    static QString timeLeft(qint64 seconds)
    {
        if (seconds < 60)
            return tr("less than a minute left");
        constexpr qint64 minute = 60, hour = 3600;
        if (seconds < 2 * hour)
            return tr("about %Ln minute(s) left", nullptr, counted((seconds + minute / 2) / minute));
        return tr("about %Ln hour(s) left", nullptr, counted((seconds + hour / 2) / hour));
    }

    static QString pace(const QString &rate, const QString &time)
    {
        return tr("%1, %2", "how fast, and how long").arg(rate, time);
    }
};

} // namespace

QString sizeText(qint64 bytes)
{
    return QLocale().formattedDataSize(bytes, 1, QLocale::DataSizeSIFormat);
}

QStringList summaryLines(const ExportResult &result)
{
    QStringList lines;
    for (const FileStatus status :
         {FileStatus::Exported, FileStatus::Adopted, FileStatus::Skipped, FileStatus::Missing, FileStatus::Failed}) {
        const bool areMissing = status == FileStatus::Missing;
        const qint64 count = result.outcome.count(status) - (areMissing ? result.notThere : 0);
        if (areMissing && result.notThere > 0)
            lines += ExportTexts::notThere(result);
        if (count > 0 || status == FileStatus::Exported)
            lines += ExportTexts::line(status, count, result);
    }
    if (result.outcome.albums > 0)
        lines += ExportTexts::albums(counted(result.outcome.albums));
    if (result.outcome.albumsFailed > 0)
        lines += ExportTexts::albumsFailed(counted(result.outcome.albumsFailed));
    return lines;
}

QString headline(const ExportResult &result)
{
    return ExportTexts::headline(result);
}

QString advice(const ExportResult &result)
{
    if (result.outcome.end == RunEnd::Cancelled)
        return ExportTexts::cancelledAdvice();
    if (result.outcome.end == RunEnd::Completed && result.notThere > 0)
        return ExportTexts::notThereAdvice(result.wasBackup);
    return result.outcome.message;
}

QString paceText(qint64 bytesPerSecond, qint64 secondsLeft)
{
    if (bytesPerSecond <= 0)
        return {};
    const QString rate = ExportTexts::rate(bytesPerSecond);
    return secondsLeft < 0 ? rate : ExportTexts::pace(rate, ExportTexts::timeLeft(secondsLeft));
}

} // namespace browser
