#include "apps/cli/output/table.h"

#include "apps/cli/output/text.h"

#include <algorithm>

namespace photocli
{

TableWriter::TableWriter(Output &target, QList<Column> tableColumns) : out(target), columns(std::move(tableColumns))
{
    for (Column &column : columns)
        column.width = std::max(column.width, displayWidth(column.title));
}

void TableWriter::header()
{
    QStringList titles;
    for (const Column &column : qAsConst(columns))
        titles += column.title;
    row(titles);
}

void TableWriter::row(const QStringList &cells)
{
    QString line;
    for (int i = 0; i < cells.size() && i < columns.size(); ++i) {
        const QString cell = harmless(cells.at(i));
        const QString padding(std::max(0, columns.at(i).width - displayWidth(cell)), QChar(' '));
        const bool last = i + 1 == columns.size();
        if (columns.at(i).align == Column::Right)
            line += padding + cell;
        else
            line += last ? cell : cell + padding;
        if (!last)
            line += QStringLiteral("  ");
    }
    while (line.endsWith(QChar(' ')))
        line.chop(1);
    out.write(line + QChar('\n'));
}

void TableWriter::print(Output &out, QList<Column> columns, const QList<QStringList> &rows, int limit)
{
    for (const QStringList &cells : rows) {
        for (int i = 0; i < cells.size() && i < columns.size(); ++i)
            columns[i].width = std::max(columns.at(i).width, std::min(limit, displayWidth(harmless(cells.at(i)))));
    }
    TableWriter table(out, columns);
    table.header();
    for (const QStringList &cells : rows) {
        if (!out.wanted())
            return;
        table.row(cells);
    }
}

} // namespace photocli
