#include "testing/row_writer.h"

#include <sqlite3.h>

namespace testkit
{

RowWriter::RowWriter(SqlConnection &connection, const QString &table) : database(connection), tableName(table) {}

bool RowWriter::isUsable()
{
    if (columns.isEmpty())
        columns = database.columns(tableName);
    return !columns.isEmpty();
}

void RowWriter::prepare()
{
    if (!isUsable())
        throw LibraryError("no such table: " + tableName.toStdString());
    QStringList names;
    QStringList marks;
    for (const QString &column : columns) {
        names << quotedName(column);
        marks << QStringLiteral("?");
    }
    statement.emplace(database,
                      QStringLiteral("INSERT INTO %1 (%2) VALUES (%3)")
                          .arg(quotedName(tableName), names.join(QLatin1Char(',')), marks.join(QLatin1Char(','))));
}

void RowWriter::resolve(const Fields &fields)
{
    for (const Field &field : fields)
        parameters.push_back(columns.indexOf(QLatin1String(field.name)) + 1);
}

qint64 RowWriter::insert(const Fields &fields, const ColumnValues &overrides)
{
    if (!statement)
        prepare();
    if (parameters.empty())
        resolve(fields);
    statement->reset();
    auto parameter = parameters.cbegin();
    for (const Field &field : fields) {
        if (const int index = *parameter++; index != 0)
            statement->bind(index, field.value);
    }
    for (auto it = overrides.cbegin(); it != overrides.cend(); ++it) {
        const int index = columns.indexOf(it.key()) + 1;
        if (index == 0)
            throw LibraryError("no such column: " + tableName.toStdString() + '.' + it.key().toStdString());
        statement->bind(index, it.value());
    }
    statement->step();
    statement->reset();
    return sqlite3_last_insert_rowid(database.handle());
}

void RowWriter::forget()
{
    columns.clear();
    statement.reset();
    parameters.clear();
}

} // namespace testkit
