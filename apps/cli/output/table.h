#ifndef APPS_CLI_OUTPUT_TABLE_H
#define APPS_CLI_OUTPUT_TABLE_H

#include "apps/cli/output/output.h"

#include <QList>
#include <QStringList>

namespace photocli
{

/// One column of a table for people.
struct Column {
    enum Align { Left, Right };
    QString title;
    Align align = Left;
    int width = 0; ///< in terminal cells; widened to the title when that is longer
};

/// Formats and writes lines of columns, two blanks between them. A cell wider than its column is printed whole. Text
/// is made harmless for terminals. The last column is not padded.
class TableWriter
{
public:
    TableWriter(Output &target, QList<Column> tableColumns);

    void header();
    void row(const QStringList &cells);

    /// A table whose lines are all there: columns become as wide as their widest cell, but at most `limit` cells.
    static void print(Output &out, QList<Column> columns, const QList<QStringList> &rows, int limit = 48);

private:
    Output &out;
    QList<Column> columns;
};

} // namespace photocli

#endif
