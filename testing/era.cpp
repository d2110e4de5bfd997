#include "testing/era.h"

#include <array>

namespace testkit
{

namespace
{

constexpr std::array<EraFacts, 9> eraTable{{
    // era, name, model, asset table, entity, number, Z_ENT of rows, wallpaper, face,
    // generic album, album, shared, duplicate, legacy face, stream, project, conversation, fetching, folder, import,
    // memory, person, face columns
    {Era::Ios11,
     "ios11",
     11000,
     "ZGENERICASSET",
     "GenericAsset",
     27,
     28,
     29,
     15, //
     19,
     20,
     21,
     0,
     22,
     23,
     0,
     0,
     24,
     25,
     26,
     32,
     36,
     "ZASSET",
     "ZPERSON"},
    {Era::Ios12,
     "ios12",
     12000,
     "ZGENERICASSET",
     "GenericAsset",
     30,
     31,
     0,
     16, //
     22,
     23,
     24,
     0,
     25,
     26,
     0,
     0,
     27,
     28,
     29,
     37,
     42,
     "ZASSET",
     "ZPERSON"},
    {Era::Ios13,
     "ios13",
     13703,
     "ZGENERICASSET",
     "GenericAsset",
     34,
     35,
     0,
     17, //
     25,
     26,
     27,
     0,
     28,
     29,
     30,
     0,
     31,
     32,
     33,
     40,
     45,
     "ZASSET",
     "ZPERSON"},
    {Era::Ios14, "ios14", 14208, "ZASSET", "Asset", 3,  3,  0, 17, //
     25,         26,      27,    0,        28,      29, 30, 0, 31, 32, 33, 40, 44, "ZASSET", "ZPERSON"},
    {Era::Ios15, "ios15", 15323, "ZASSET", "Asset", 3,  3,  0,  17, //
     26,         27,      28,    0,        29,      30, 31, 32, 33, 34, 35, 42, 45, "ZASSET", "ZPERSON"},
    {Era::Ios16, "ios16", 16502, "ZASSET", "Asset", 3,  3,  0,  18, //
     27,         28,      29,    30,       31,      32, 33, 34, 35, 36, 37, 44, 47, "ZASSET", "ZPERSON"},
    {Era::Ios17, "ios17", 17401, "ZASSET", "Asset", 3,  3,  0,  18, //
     27,         28,      29,    30,       31,      32, 33, 34, 35, 36, 37, 44, 47, "ZASSETFORFACE", "ZPERSONFORFACE"},
    {Era::Ios18, "ios18", 18600, "ZASSET", "Asset", 3,  3,  0,  20, //
     29,         30,      31,    32,       33,      34, 35, 36, 37, 38, 39, 51, 54, "ZASSETFORFACE", "ZPERSONFORFACE"},
    {Era::Ios26, "ios26", 19320, "ZASSET", "Asset", 3,  3,  0,  23, //
     32,         33,      34,    35,       36,      37, 38, 39, 40, 41, 42, 56, 59, "ZASSETFORFACE", "ZPERSONFORFACE"},
}};

QString numbered(const char *prefix, int number, const QString &rest)
{
    return QLatin1String(prefix) + QString::number(number) + rest;
}

} // namespace

QString EraFacts::albumJoinTable() const
{
    return numbered("Z_", album, QStringLiteral("ASSETS"));
}

QString EraFacts::albumJoinAlbumColumn() const
{
    return numbered("Z_", album, QStringLiteral("ALBUMS"));
}

QString EraFacts::albumJoinAssetColumn() const
{
    return numbered("Z_", assetEntityNumber, QStringLiteral("ASSETS"));
}

QString EraFacts::albumJoinOrderColumn() const
{
    return numbered("Z_FOK_", assetEntityNumber, QStringLiteral("ASSETS"));
}

QString EraFacts::memoryJoinTable(const QString &list) const
{
    return numbered("Z_", assetEntityNumber, QStringLiteral("MEMORIESBEING%1ASSETS").arg(list));
}

QString EraFacts::memoryJoinAssetColumn(const QString &list) const
{
    return numbered("Z_", assetEntityNumber, list + QStringLiteral("ASSETS"));
}

QString EraFacts::memoryJoinMemoryColumn(const QString &list) const
{
    return numbered("Z_", memory, QStringLiteral("MEMORIESBEING%1ASSETS").arg(list));
}

const EraFacts &factsOf(Era era)
{
    return eraTable.at(static_cast<std::size_t>(era));
}

const QVector<OptionalColumn> &optionalColumns()
{
    constexpr Era oldest = Era::Ios11;
    constexpr Era newest = Era::Ios26;
    static const QVector<OptionalColumn> columns{
        {"ZKINDSUBTYPE", oldest, newest, nullptr},
        {"ZMOMENT", oldest, newest, nullptr},
        {"ZUNIFORMTYPEIDENTIFIER", oldest, newest, nullptr},
        {"ZAVALANCHEUUID", oldest, newest, nullptr},
        {"ZAVALANCHEPICKTYPE", oldest, newest, nullptr},
        {"ZVISIBILITYSTATE", oldest, newest, nullptr},
        {"ZFACEAREAPOINTS", oldest, newest, nullptr},
        {"ZFAVORITE", oldest, newest, nullptr},
        {"ZTRASHEDSTATE", oldest, newest, nullptr},
        {"ZTRASHEDDATE", oldest, newest, nullptr},
        {"ZADDEDDATE", oldest, newest, nullptr},
        {"ZSORTTOKEN", oldest, newest, nullptr},
        {"ZDURATION", oldest, newest, nullptr},
        {"ZLATITUDE", oldest, newest, nullptr},
        {"ZLONGITUDE", oldest, newest, nullptr},
        {"ZLOCALRESOURCESSTATE", oldest, Era::Ios14, nullptr},
        {"ZCUSTOMRENDEREDVALUE", oldest, Era::Ios14, "ZHDRTYPE"},
        {"ZCAMERACAPTUREDEVICE", oldest, newest, nullptr},
        {"ZHASADJUSTMENTS", oldest, Era::Ios17, "ZADJUSTMENTSSTATE"},
        {"ZHIDDEN", oldest, newest, nullptr},
        {"ZCLOUDLOCALSTATE", oldest, newest, nullptr},
        {"ZIMPORTSESSION", Era::Ios12, newest, nullptr},
        {"ZDUPLICATEASSETVISIBILITYSTATE", Era::Ios16, newest, nullptr},
        {"ZPACKEDBADGEATTRIBUTES", Era::Ios13, newest, nullptr},
        {"ZDEPTHTYPE", Era::Ios14, newest, "ZDEPTHSTATES"},
        {"ZDUPLICATEMETADATAMATCHINGALBUM", Era::Ios16, newest, nullptr},
        {"ZDUPLICATEPERCEPTUALMATCHINGALBUM", Era::Ios16, newest, nullptr},
    };
    return columns;
}

QStringList missingOptionalColumns(Era era)
{
    QStringList missing;
    for (const OptionalColumn &column : optionalColumns()) {
        if (!column.isIn(era))
            missing << QLatin1String(column.name);
    }
    return missing;
}

std::optional<Era> eraFromName(const QString &name)
{
    for (const EraFacts &facts : eraTable) {
        if (name.compare(QLatin1String(facts.name), Qt::CaseInsensitive) == 0)
            return facts.era;
    }
    return std::nullopt;
}

const QVector<Era> &allEras()
{
    static const QVector<Era> eras = [] {
        QVector<Era> list;
        for (const EraFacts &facts : eraTable)
            list << facts.era;
        return list;
    }();
    return eras;
}

QStringList eraNames()
{
    QStringList names;
    for (const EraFacts &facts : eraTable)
        names << QLatin1String(facts.name);
    return names;
}

} // namespace testkit
