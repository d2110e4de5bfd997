#ifndef APPS_CLI_OUTPUT_CSV_H
#define APPS_CLI_OUTPUT_CSV_H

#include "apps/cli/output/fields.h"
#include "apps/cli/output/output.h"
#include "apps/cli/output/value_text.h"

#include <QStringList>

namespace photocli
{

/// One cell as RFC 4180 has it: in quotes when it holds a comma, a quote or a line break.
QString csvCell(const QString &text);

/// Writes RFC 4180 lines, the header first. Cells are the device's text unchanged, except on a terminal, where
/// control characters are made harmless.
class Csv
{
public:
    explicit Csv(Output &target) : out(target) {}

    void line(const QStringList &cells);

    template <typename Record>
    void header(const Record &record)
    {
        QStringList names;
        visitFields(record, [&names](const char *name, const auto &) { names += QLatin1String(name); });
        line(names);
    }

    template <typename Record>
    void record(const Record &record)
    {
        QStringList cells;
        visitFields(record, [&cells](const char *, const auto &value) { cells += valueText(value); });
        line(cells);
    }

private:
    Output &out;
};

} // namespace photocli

#endif
