#ifndef APPS_CLI_EXPORT_EXPORT_VIEW_H
#define APPS_CLI_EXPORT_EXPORT_VIEW_H

#include "apps/cli/export/export_progress.h"
#include "apps/cli/export/export_report.h"
#include "exporter/verify.h"

#include <QStringList>

#include <memory>

namespace photocli
{

/// Shows an export to people as it goes on, and writes its report.
class ExportView final : public exporter::VerifyObserver
{
public:
    /// `report` may be null. A dry run lists what would be done on `listing`, which is null otherwise.
    ExportView(bool showProgress, std::unique_ptr<ExportReport> report, Output *listing);

    void progress(const exporter::ExportProgress &progress) override { bar.show(progress); }
    void fileFinished(const exporter::FileReport &file) override;
    void note(const QString &sentence) override;
    void found(const exporter::VerifyFinding &finding) override;
    bool isCancelled() override;

    /// After the run and after the verifying: take the bar away, and tell what could only be told at the end.
    void finishRun();
    void finishVerifying();

    /// Gives the report its name. Throws a Failure when it could not be written.
    void commitReport();

private:
    void tell(const QString &line);
    void list(const exporter::FileReport &file);
    void tellOfMissing();

    ExportProgressBar bar;
    std::unique_ptr<ExportReport> report;
    Output *listing;
    QStringList missing; ///< the first ones
    qint64 missingCount = 0;
    qint64 failedCount = 0;
    qint64 damagedCount = 0;
};

} // namespace photocli

#endif
