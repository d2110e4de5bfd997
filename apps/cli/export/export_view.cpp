#include "apps/cli/export/export_view.h"

#include "apps/cli/export/export_words.h"
#include "apps/cli/interrupt.h"
#include "apps/cli/messages.h"
#include "apps/cli/output/text.h"

namespace photocli
{

using exporter::FileReport;
using exporter::FileStatus;

namespace
{

// Whatever goes wrong with every file is not told for each.
constexpr qint64 mostLines = 20;

void tellOfRest(qint64 count)
{
    if (count > mostLines)
        printNote(QStringLiteral("  and %1 more; --report FILE lists them all").arg(count - mostLines));
}

} // namespace

ExportView::ExportView(bool showProgress, std::unique_ptr<ExportReport> exportReport, Output *target)
    : bar(showProgress), report(std::move(exportReport)), listing(target)
{
}

void ExportView::fileFinished(const FileReport &file)
{
    if (report)
        report->add(file);
    if (listing != nullptr)
        list(file);
    if (file.status == FileStatus::Failed && ++failedCount <= mostLines)
        tell(QStringLiteral("%1: %2").arg(fileName(file), file.reason));
    if (file.status == FileStatus::Missing && ++missingCount <= mostLines)
        missing += fileName(file);
}

void ExportView::list(const FileReport &file)
{
    if (file.status != FileStatus::Exported && file.status != FileStatus::Adopted)
        return;
    const QString size = file.size < 0 ? QStringLiteral("-") : humanSize(file.size);
    listing->write(
        harmless(QStringLiteral("%1  %2 -> %3").arg(size.rightJustified(8), file.devicePath, file.destination)) +
        QChar('\n'));
}

void ExportView::note(const QString &sentence)
{
    bar.erase();
    printWarning(sentence);
}

void ExportView::found(const exporter::VerifyFinding &finding)
{
    if (report)
        report->add(finding);
    if (++damagedCount <= mostLines)
        tell(QStringLiteral("%1: %2").arg(finding.destination, finding.reason));
}

bool ExportView::isCancelled()
{
    return interruptRequested();
}

void ExportView::tell(const QString &line)
{
    bar.erase();
    printError(line);
}

void ExportView::finishRun()
{
    bar.erase();
    tellOfRest(failedCount);
    tellOfMissing();
}

void ExportView::finishVerifying()
{
    bar.erase();
    tellOfRest(damagedCount);
}

void ExportView::tellOfMissing()
{
    if (missingCount == 0)
        return;
    printError(QStringLiteral("%1 not on the device, but in the cloud only, or lost:")
                   .arg(counted(missingCount, "original is", "originals are")));
    for (const QString &name : qAsConst(missing))
        printNote(QStringLiteral("  ") + name);
    tellOfRest(missingCount);
    printError(
        QStringLiteral("to have those in the cloud, let the device download its originals; a copy or a backup may "
                       "lack what the device has: connect, copy or back it up again. Then run the same command: "
                       "it copies what is new only"));
}

void ExportView::commitReport()
{
    if (report)
        report->commit();
}

} // namespace photocli
