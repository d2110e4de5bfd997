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
            return (result.wasDryRun ? tr("%n file(s) to copy, %1", nullptr, n)
                                     : tr("%n file(s) copied, %1", nullptr, n))
                .arg(sizeText(result.outcome.bytesExported));
        case FileStatus::Adopted:
            return result.wasDryRun
                       ? tr("%n file(s) of the same name and size are there; they will be compared", nullptr, n)
                       : tr("%n file(s) with the same content were there already", nullptr, n);
        case FileStatus::Skipped:
            return tr("%n file(s) already there from an earlier export", nullptr, n);
        case FileStatus::Missing:
            return tr("%n original(s) not on the device, only in the cloud", nullptr, n);
        case FileStatus::Failed:
            return result.wasDryRun ? tr("%n file(s) cannot be read", nullptr, n) : tr("%n file(s) failed", nullptr, n);
        }
        return {};
    }

    static QString albums(int n) { return tr("%n album folder(s)", nullptr, n); }
    static QString albumsFailed(int n) { return tr("%n album folder(s) could not be made", nullptr, n); }

    static QString headline(const ExportResult &result)
    {
        const exporter::RunOutcome &outcome = result.outcome;
        switch (outcome.end) {
        case RunEnd::Completed:
            if (!outcome.isSuccess())
                return tr("The export is done, but not everything worked.");
            return outcome.count(FileStatus::Missing) == 0 ? tr("Everything is exported.")
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
            return tr("about %n minute(s) left", nullptr, counted((seconds + minute / 2) / minute));
        return tr("about %n hour(s) left", nullptr, counted((seconds + hour / 2) / hour));
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
        const qint64 count = result.outcome.count(status);
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
    return result.outcome.end == RunEnd::Cancelled ? ExportTexts::cancelledAdvice() : result.outcome.message;
}

QString paceText(qint64 bytesPerSecond, qint64 secondsLeft)
{
    if (bytesPerSecond <= 0)
        return {};
    const QString rate = ExportTexts::rate(bytesPerSecond);
    return secondsLeft < 0 ? rate : ExportTexts::pace(rate, ExportTexts::timeLeft(secondsLeft));
}

} // namespace browser
