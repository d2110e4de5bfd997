#include "testing/library_builder.h"
#include "testing/library_schema.h"

#include <QMap>
#include <QTemporaryDir>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace testkit
{

namespace
{

QString textOf(const SqlValue &value)
{
    return QString::fromUtf8(std::get<SqlValue::TextBytes>(value.storage()).bytes);
}

QStringList names(SqlConnection &database, const QString &type)
{
    QStringList result;
    for (const auto &row : database.rows(QStringLiteral("select name from sqlite_master where type = '%1'").arg(type)))
        result << textOf(row.front());
    return result;
}

// One library of every era.
class LibrarySchema : public testing::TestWithParam<Era>
{
protected:
    LibrarySchema() : facts(factsOf(GetParam()))
    {
        LibraryBuilder builder(GetParam());
        builder.addAsset();
        builder.write(path());
        database.emplace(path());
    }

    QString path() const { return folder.filePath(QStringLiteral("Photos.sqlite")); }
    QString createText(const QString &table)
    {
        const auto rows = database->rows(QStringLiteral("select sql from sqlite_master where name = '%1'").arg(table));
        return rows.empty() ? QString() : textOf(rows.front().front());
    }

    const EraFacts &facts;
    QTemporaryDir folder;
    std::optional<SqlConnection> database;
};

TEST_P(LibrarySchema, MissingColumnsAreInNoPartOfTheTableText)
{
    const QMap<Era, QStringList> missing{
        {Era::Ios11,
         {"ZIMPORTSESSION", "ZPACKEDBADGEATTRIBUTES", "ZDEPTHTYPE", "ZDUPLICATEASSETVISIBILITYSTATE",
          "ZDUPLICATEMETADATAMATCHINGALBUM", "ZDUPLICATEPERCEPTUALMATCHINGALBUM", "ZHDRTYPE", "ZADJUSTMENTSSTATE"}},
        {Era::Ios12,
         {"ZPACKEDBADGEATTRIBUTES", "ZDEPTHTYPE", "ZDUPLICATEASSETVISIBILITYSTATE", "ZDUPLICATEMETADATAMATCHINGALBUM",
          "ZDUPLICATEPERCEPTUALMATCHINGALBUM", "ZHDRTYPE", "ZADJUSTMENTSSTATE"}},
        {Era::Ios13,
         {"ZDEPTHTYPE", "ZDUPLICATEASSETVISIBILITYSTATE", "ZDUPLICATEMETADATAMATCHINGALBUM",
          "ZDUPLICATEPERCEPTUALMATCHINGALBUM", "ZHDRTYPE", "ZADJUSTMENTSSTATE"}},
        {Era::Ios14,
         {"ZDUPLICATEASSETVISIBILITYSTATE", "ZDUPLICATEMETADATAMATCHINGALBUM", "ZDUPLICATEPERCEPTUALMATCHINGALBUM",
          "ZDEPTHSTATES", "ZHDRTYPE", "ZADJUSTMENTSSTATE"}},
        {Era::Ios15,
         {"ZDUPLICATEASSETVISIBILITYSTATE", "ZDUPLICATEMETADATAMATCHINGALBUM", "ZDUPLICATEPERCEPTUALMATCHINGALBUM",
          "ZLOCALRESOURCESSTATE", "ZCUSTOMRENDEREDVALUE", "ZADJUSTMENTSSTATE"}},
        {Era::Ios16, {"ZLOCALRESOURCESSTATE", "ZCUSTOMRENDEREDVALUE", "ZADJUSTMENTSSTATE"}},
        {Era::Ios17, {"ZLOCALRESOURCESSTATE", "ZCUSTOMRENDEREDVALUE", "ZADJUSTMENTSSTATE"}},
        {Era::Ios18, {"ZLOCALRESOURCESSTATE", "ZCUSTOMRENDEREDVALUE", "ZHASADJUSTMENTS"}},
        {Era::Ios26, {"ZLOCALRESOURCESSTATE", "ZCUSTOMRENDEREDVALUE", "ZHASADJUSTMENTS"}},
    };
    const QString table = createText(QLatin1String(facts.assetTable));
    for (const QString &column : missing.value(GetParam()))
        EXPECT_EQ(table.indexOf(column), -1) << column.toStdString();
}

TEST_P(LibrarySchema, OtherOptionalColumnsAreInTheirTable)
{
    const QStringList assetColumns = database->columns(QLatin1String(facts.assetTable));
    const QStringList attributeColumns = database->columns(QStringLiteral("ZADDITIONALASSETATTRIBUTES"));
    const QStringList missing = missingOptionalColumns(GetParam());
    for (const OptionalColumn &column : optionalColumns()) {
        const QString name = QLatin1String(column.name);
        const bool isAttribute = name == QLatin1String("ZCAMERACAPTUREDEVICE");
        EXPECT_NE((isAttribute ? attributeColumns : assetColumns).contains(name), missing.contains(name))
            << column.name;
    }
}

TEST_P(LibrarySchema, RenamedColumnStandsInTheReleasesWithoutTheOldOne)
{
    const QStringList columns = database->columns(QLatin1String(facts.assetTable));
    for (const OptionalColumn &column : optionalColumns()) {
        if (column.otherName != nullptr) {
            EXPECT_NE(columns.contains(QLatin1String(column.name)), columns.contains(QLatin1String(column.otherName)))
                << column.name;
        }
    }
}

TEST_P(LibrarySchema, AlwaysNamedColumnsArePresent)
{
    const QStringList columns = database->columns(QLatin1String(facts.assetTable));
    for (const char *name : {"Z_PK", "Z_ENT", "ZFILENAME", "ZDIRECTORY", "ZUUID", "ZWIDTH", "ZHEIGHT", "ZKIND",
                             "ZTHUMBNAILINDEX", "ZORIENTATION", "ZDATECREATED", "ZMODIFICATIONDATE"})
        EXPECT_TRUE(columns.contains(QLatin1String(name))) << name;
}

TEST_P(LibrarySchema, EveryColumnHasOneName)
{
    for (const QString &table : names(*database, QStringLiteral("table"))) {
        QStringList columns = database->columns(table);
        EXPECT_EQ(columns.removeDuplicates(), 0) << table.toStdString();
    }
}

TEST_P(LibrarySchema, AlbumJoinHasOrderAndKeyOverBothSides)
{
    const QMap<Era, QStringList> joins{{Era::Ios11, {"Z_20ASSETS", "Z_20ALBUMS", "Z_27ASSETS"}},
                                       {Era::Ios12, {"Z_23ASSETS", "Z_23ALBUMS", "Z_30ASSETS"}},
                                       {Era::Ios13, {"Z_26ASSETS", "Z_26ALBUMS", "Z_34ASSETS"}},
                                       {Era::Ios14, {"Z_26ASSETS", "Z_26ALBUMS", "Z_3ASSETS"}},
                                       {Era::Ios15, {"Z_27ASSETS", "Z_27ALBUMS", "Z_3ASSETS"}},
                                       {Era::Ios16, {"Z_28ASSETS", "Z_28ALBUMS", "Z_3ASSETS"}},
                                       {Era::Ios17, {"Z_28ASSETS", "Z_28ALBUMS", "Z_3ASSETS"}},
                                       {Era::Ios18, {"Z_30ASSETS", "Z_30ALBUMS", "Z_3ASSETS"}},
                                       {Era::Ios26, {"Z_33ASSETS", "Z_33ALBUMS", "Z_3ASSETS"}}};
    const QStringList join = joins.value(GetParam());
    const QString order = QStringLiteral("Z_FOK_") + join.at(2).mid(2);
    EXPECT_EQ(database->columns(join.at(0)), (QStringList{join.at(1), join.at(2), order}));
    EXPECT_THAT(createText(join.at(0)).toStdString(),
                testing::HasSubstr(QStringLiteral("PRIMARY KEY (%1, %2)").arg(join.at(1), join.at(2)).toStdString()));
    EXPECT_EQ(database->columns(facts.memoryJoinTable()),
              (QStringList{facts.memoryJoinAssetColumn(), facts.memoryJoinMemoryColumn()}));
}

TEST_P(LibrarySchema, AlbumJoinIsScannedInOrderOfInsertion)
{
    database->exec(QStringLiteral("insert into %1 values (50, 9, 4096), (50, 3, 2048), (49, 7, 2048)")
                       .arg(facts.albumJoinTable()));
    const auto rows = database->rows(QStringLiteral("select * from %1").arg(facts.albumJoinTable()));
    ASSERT_EQ(rows.size(), 3U);
    EXPECT_EQ(rows[0][1], SqlValue(9));
    EXPECT_EQ(rows[1][1], SqlValue(3));
    EXPECT_EQ(rows[2][1], SqlValue(7));
}

TEST_P(LibrarySchema, FaceLinkIsRenamedInIos17)
{
    const QStringList columns = database->columns(QStringLiteral("ZDETECTEDFACE"));
    const bool renamed = GetParam() >= Era::Ios17;
    EXPECT_EQ(columns.contains(QStringLiteral("ZASSET")), !renamed);
    EXPECT_EQ(columns.contains(QStringLiteral("ZASSETFORFACE")), renamed);
    EXPECT_EQ(columns.contains(QStringLiteral("ZPERSON")), !renamed);
    EXPECT_EQ(columns.contains(QStringLiteral("ZPERSONFORFACE")), renamed);
}

TEST_P(LibrarySchema, GenericAssetIsRootUpToIos13)
{
    const auto rows = database->rows(QStringLiteral(
        "select Z_NAME, Z_SUPER, Z_MAX from Z_PRIMARYKEY where Z_NAME in ('GenericAsset', 'Asset') order by Z_ENT"));
    if (GetParam() <= Era::Ios13) {
        ASSERT_EQ(rows.size(), 2U);
        EXPECT_EQ(rows[0], (std::vector<SqlValue>{"GenericAsset", 0, 1}));
        EXPECT_EQ(rows[1], (std::vector<SqlValue>{"Asset", facts.assetEntityNumber, 0}));
    } else {
        ASSERT_EQ(rows.size(), 1U);
        EXPECT_EQ(rows[0], (std::vector<SqlValue>{"Asset", 0, 1}));
    }
}

TEST_P(LibrarySchema, OnlyRootEntitiesCountKeys)
{
    EXPECT_TRUE(database->rows(QStringLiteral("select * from Z_PRIMARYKEY where Z_SUPER <> 0 and Z_MAX <> 0")).empty());
    const auto albums = database->rows(QStringLiteral("select Z_MAX from Z_PRIMARYKEY where Z_NAME = 'GenericAlbum'"));
    EXPECT_EQ(albums.front().front(), SqlValue(builtinAlbumsOf(GetParam()).size()));
}

TEST_P(LibrarySchema, AssetRowsCarryTheConcreteEntity)
{
    const auto rows = database->rows(QStringLiteral("select Z_ENT from %1").arg(QLatin1String(facts.assetTable)));
    const auto entity = database->rows(QStringLiteral("select Z_ENT from Z_PRIMARYKEY where Z_NAME = 'Asset'"));
    EXPECT_EQ(rows, entity);
}

TEST_P(LibrarySchema, AllIndicesAreBuilt)
{
    const QStringList built = names(*database, QStringLiteral("index"));
    const QStringList columns = database->columns(QLatin1String(facts.assetTable));
    int onAssets = 0;
    for (const IndexSpec &index : indicesOf(GetParam())) {
        if (index.table != QLatin1String(facts.assetTable)) {
            EXPECT_TRUE(built.contains(index.name) || !database->columns(index.table).contains(index.columns.front()))
                << index.name.toStdString();
        } else if (built.contains(index.name)) {
            ++onAssets;
            EXPECT_FALSE(index.columns.contains(QStringLiteral("ZMODIFICATIONDATE")));
        }
    }
    EXPECT_GE(onAssets, 25);
    EXPECT_EQ(built.contains(QStringLiteral("RADAR_22158684_INDEX")), GetParam() < Era::Ios26);
    EXPECT_EQ(built.contains(QStringLiteral("Z_33ASSETS_Z_33ALBUMS_Z_FOK_3ASSETS_Z_3ASSETS_INDEX")),
              GetParam() >= Era::Ios26);
}

INSTANTIATE_TEST_SUITE_P(Eras, LibrarySchema, testing::ValuesIn(allEras()),
                         [](const auto &parameter) { return std::string(factsOf(parameter.param).name); });

} // namespace

} // namespace testkit
