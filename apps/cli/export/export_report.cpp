#include "apps/cli/export/export_report.h"

#include "apps/cli/export/export_words.h"
#include "apps/cli/failure.h"
#include "apps/cli/messages.h"
#include "apps/cli/output/value_text.h"

namespace photocli
{

namespace
{

bool hasSuffix(const QString &name, const char *suffix)
{
    return name.endsWith(QLatin1String(suffix), Qt::CaseInsensitive);
}

// Empty where nothing is known, as in the other outputs.
QString numberOrNothing(qint64 value, qint64 first)
{
    return value < first ? QString() : valueText(value);
}

void member(Json &json, const char *name, qint64 value, qint64 first)
{
    if (value >= first)
        json.member(name, value);
}

void member(Json &json, const char *name, const QString &value)
{
    if (!value.isEmpty())
        json.member(name, value);
}

} // namespace

void ExportReport::checkName(const QString &name)
{
    if (!hasSuffix(name, ".csv") && !hasSuffix(name, ".json"))
        throw Failure{ExitUsage, QStringLiteral("the report %1 is of no known kind; give it a name that ends with .csv "
                                                "or .json")
                                     .arg(quoted(name))};
}

ExportReport::ExportReport(const QString &name, bool isDryRun)
    : dryRun(isDryRun), file(name, Existing::Replace), csv(file.out())
{
    if (hasSuffix(name, ".json")) {
        json = std::make_unique<Json>(file.out());
        json->beginArray();
        return;
    }
    csv.line({QStringLiteral("status"), QStringLiteral("role"), QStringLiteral("photoId"), QStringLiteral("uuid"),
              QStringLiteral("source"), QStringLiteral("destination"), QStringLiteral("size"), QStringLiteral("sha256"),
              QStringLiteral("reason")});
}

void ExportReport::add(const exporter::FileReport &report)
{
    Row row;
    row.status = statusName(report.status, dryRun);
    row.role = roleName(report.role);
    row.photoId = report.photoId;
    row.uuid = report.uuid;
    row.source = report.devicePath;
    row.destination = report.destination;
    row.size = report.size;
    row.sha256 = QString::fromLatin1(report.sha256);
    row.reason = report.reason;
    if (report.status == exporter::FileStatus::Missing && row.reason.isEmpty())
        row.reason = QStringLiteral("not on the device");
    write(row);
}

void ExportReport::add(const exporter::VerifyFinding &finding)
{
    Row row;
    row.status = QStringLiteral("damaged");
    row.role = roleName(finding.role);
    row.uuid = finding.uuid;
    row.destination = finding.destination;
    row.size = finding.foundSize;
    row.reason = finding.reason;
    write(row);
}

void ExportReport::write(const Row &row)
{
    if (json)
        return writeJson(row);
    csv.line({row.status, row.role, numberOrNothing(row.photoId, 1), valueText(row.uuid), row.source, row.destination,
              numberOrNothing(row.size, 0), row.sha256, row.reason});
}

void ExportReport::writeJson(const Row &row)
{
    json->newLine();
    json->beginObject();
    json->member("status", row.status);
    json->member("role", row.role);
    member(*json, "photoId", row.photoId, 1);
    json->member("uuid", row.uuid);
    member(*json, "source", row.source);
    member(*json, "destination", row.destination);
    member(*json, "size", row.size, 0);
    member(*json, "sha256", row.sha256);
    member(*json, "reason", row.reason);
    json->endObject();
}

void ExportReport::commit()
{
    if (json) {
        json->newLine();
        json->endArray();
        file.out().put('\n');
    }
    file.commit();
}

} // namespace photocli
