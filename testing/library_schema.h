#ifndef TESTING_LIBRARY_SCHEMA_H
#define TESTING_LIBRARY_SCHEMA_H

#include "testing/era.h"

#include <QString>
#include <QStringList>
#include <QVector>

namespace testkit
{

/// An entity, one row of Z_PRIMARYKEY. `super` is 0 for a root, and only a root counts keys.
struct EntitySpec {
    QString name;
    int number;
    int super;
};

/// The entities of the library's tables and their relatives, in ascending number. Real libraries have some 40 more.
QVector<EntitySpec> entitiesOf(Era era);

/// The CREATE TABLE statements of all tables. The columns are those that are read, in the order of a real library, and
/// an assortment of the others; what the era lacks is absent.
QStringList tablesOf(Era era);

struct IndexSpec {
    QString name;
    QString table;
    QStringList columns;
    QString where; ///< the condition of a partial index, else empty

    QString sql() const;
};

/// The indices over those tables.
QVector<IndexSpec> indicesOf(Era era);

} // namespace testkit

#endif
