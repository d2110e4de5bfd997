#include "photolib/db/asset_columns.h"

#include "photolib/db/schema.h"

#include <array>
#include <utility>

namespace photolib
{

namespace
{

// The columns that come and go with the releases, in the order of the statement's placeholders, as the statement
// names them: A is the asset table, T the table of additional attributes.
constexpr std::array<const char *, 27> optionalColumns = {
    "A.ZKINDSUBTYPE",
    "A.ZMOMENT",
    "A.ZUNIFORMTYPEIDENTIFIER",
    "A.ZAVALANCHEUUID",
    "A.ZAVALANCHEPICKTYPE",
    "A.ZVISIBILITYSTATE",
    "A.ZFACEAREAPOINTS",
    "A.ZFAVORITE",
    "A.ZTRASHEDSTATE",
    "A.ZTRASHEDDATE",
    "A.ZADDEDDATE",
    "A.ZSORTTOKEN",
    "A.ZDURATION",
    "A.ZLATITUDE",
    "A.ZLONGITUDE",
    "A.ZLOCALRESOURCESSTATE",
    "A.ZCUSTOMRENDEREDVALUE",
    "T.ZCAMERACAPTUREDEVICE",
    "A.ZHASADJUSTMENTS",
    "A.ZHIDDEN",
    "A.ZCLOUDLOCALSTATE",
    "A.ZIMPORTSESSION",
    "A.ZDUPLICATEASSETVISIBILITYSTATE",
    "A.ZPACKEDBADGEATTRIBUTES",
    "A.ZDEPTHTYPE",
    "A.ZDUPLICATEMETADATAMATCHINGALBUM",
    "A.ZDUPLICATEPERCEPTUALMATCHINGALBUM",
};

// T is joined by its own key, not by its ZASSET: hosts expect the file sizes that come of it.
constexpr char statementFormat[] =
    "select A.Z_PK, A.Z_ENT, A.ZFILENAME, A.ZDIRECTORY, A.ZUUID, A.ZWIDTH, A.ZHEIGHT, A.ZKIND, %s, %s, %s, %s, %s, %s, "
    "%s, %s, A.ZTHUMBNAILINDEX, A.ZORIENTATION, %s, %s, A.ZDATECREATED, %s, A.ZMODIFICATIONDATE, %s, %s, %s, %s, "
    "T.ZORIGINALFILESIZE, %s, %s, %s, %s, %s, %s, %s, %s, %s, %s, %s, %s from %s as A left join "
    "ZADDITIONALASSETATTRIBUTES as T on A.Z_PK = T.Z_PK order by A.ZMODIFICATIONDATE ASC";

template <std::size_t... index>
SqlText formatStatement(const std::array<const char *, optionalColumns.size()> &columns, const char *table,
                        std::index_sequence<index...>)
{
    return SqlText(statementFormat, columns[index]..., table);
}

} // namespace

SqlText assetStatement(const QString &assetTableName, const QString &assetTableSql,
                       const QString &additionalAttributesSql)
{
    std::array<const char *, optionalColumns.size()> columns{};
    for (std::size_t i = 0; i < columns.size(); ++i) {
        const char *qualified = optionalColumns[i];
        const char *bare = qualified + 2;
        const QString &tableSql = qualified[0] == 'T' ? additionalAttributesSql : assetTableSql;
        columns[i] = hasColumn(tableSql, bare) ? qualified : absentColumn;
    }
    return formatStatement(columns, assetTableName.toUtf8().constData(),
                           std::make_index_sequence<optionalColumns.size()>());
}

} // namespace photolib
