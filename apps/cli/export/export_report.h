#ifndef APPS_CLI_EXPORT_EXPORT_REPORT_H
#define APPS_CLI_EXPORT_EXPORT_REPORT_H

#include "apps/cli/output/csv.h"
#include "apps/cli/output/json.h"
#include "apps/cli/output/output_file.h"
#include "exporter/outcome.h"
#include "exporter/verify.h"

#include <memory>

namespace photocli
{

/// A file with one row for each file that an export dealt with: status, role, photoId, uuid, source, destination, size,
/// sha256, reason. It is written as the rows come; the file of an earlier run is replaced at the end.
class ExportReport
{
public:
    /// Throws a usage Failure unless the name ends with .csv or .json.
    static void checkName(const QString &name);

    /// Begins the file. Throws a Failure when it cannot be written.
    ExportReport(const QString &name, bool isDryRun);

    void add(const exporter::FileReport &report);
    void add(const exporter::VerifyFinding &finding);

    /// Ends the file and gives it its name. Throws a Failure when that fails.
    void commit();

private:
    struct Row {
        QString status, role, source, destination, sha256, reason;
        QByteArray uuid;
        qint64 photoId = 0; ///< 0: not known
        qint64 size = -1;   ///< below 0: not known
    };

    void write(const Row &row);
    void writeJson(const Row &row);

    bool dryRun;
    OutputFile file;
    std::unique_ptr<Json> json; ///< null for CSV
    Csv csv;
};

} // namespace photocli

#endif
