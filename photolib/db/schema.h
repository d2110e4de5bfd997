#ifndef PHOTOLIB_DB_SCHEMA_H
#define PHOTOLIB_DB_SCHEMA_H

#include <QString>

namespace photolib
{

/// Names of entities in Z_PRIMARYKEY.
inline const QLatin1String genericAlbumEntity("GenericAlbum");
inline const QLatin1String genericAssetEntity("GenericAsset");
inline const QLatin1String assetEntity("Asset");

/// Entity numbers where Z_PRIMARYKEY names no album or asset entity.
constexpr int defaultAlbumEntityNumber = 19;
constexpr int defaultAssetEntityNumber = 27;

/// Stands for a column that a release lacks. SQLite reads a double-quoted word that names no column as text.
constexpr char absentColumn[] = "\"0\"";

/// Whether `createTableSql` mentions `column`. Any mention counts, also as a part of a longer name: the text is
/// searched, not parsed.
inline bool hasColumn(const QString &createTableSql, const char *column)
{
    return createTableSql.indexOf(QLatin1String(column), 0, Qt::CaseSensitive) != -1;
}

} // namespace photolib

#endif
