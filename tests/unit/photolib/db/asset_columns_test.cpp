#include "photolib/db/asset_columns.h"

#include "tests/unit/photolib/db/made_database.h"

#include <cstring>

using namespace dbtests;

namespace
{

/// The statement with these texts for the 27 optional columns.
QByteArray statementWith(const QStringList &columns, const QString &table)
{
    QString text = "select A.Z_PK, A.Z_ENT, A.ZFILENAME, A.ZDIRECTORY, A.ZUUID, A.ZWIDTH, A.ZHEIGHT, A.ZKIND, "
                   "#, #, #, #, #, #, #, #, "
                   "A.ZTHUMBNAILINDEX, A.ZORIENTATION, #, #, A.ZDATECREATED, #, A.ZMODIFICATIONDATE, #, #, #, #, "
                   "T.ZORIGINALFILESIZE, #, #, #, #, #, #, #, #, #, #, #, # "
                   "from " +
                   table +
                   " as A left join ZADDITIONALASSETATTRIBUTES as T on A.Z_PK = T.Z_PK "
                   "order by A.ZMODIFICATIONDATE ASC";
    EXPECT_EQ(text.count('#'), columns.size());
    for (const QString &column : columns)
        text.replace(text.indexOf('#'), 1, column);
    return text.toUtf8();
}

const QStringList allColumns{
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

QStringList withAbsent(const QStringList &missing)
{
    QStringList columns = allColumns;
    for (QString &column : columns) {
        if (missing.contains(column.mid(2)))
            column = "\"0\"";
    }
    return columns;
}

} // namespace

TEST(AssetStatement, NamesEveryColumnThatTheTablesHave)
{
    const QString columns = allColumns.join(' ');
    const photolib::SqlText sql = photolib::assetStatement("ZGENERICASSET", columns, columns);
    EXPECT_EQ(QByteArray(sql.get()), statementWith(allColumns, "ZGENERICASSET"));
    EXPECT_EQ(std::strlen(sql.get()), 831U);
}

TEST(AssetStatement, PutsTheTextZeroForEveryColumnThatTheTablesLack)
{
    QStringList zeros;
    for (int i = 0; i < 27; ++i)
        zeros << "\"0\"";
    EXPECT_EQ(QByteArray(photolib::assetStatement("ZASSET", QString(), QString()).get()),
              statementWith(zeros, "ZASSET"));
}

TEST(AssetStatement, DecidesForEachColumnAlone)
{
    for (const QString &column : allColumns) {
        SCOPED_TRACE(column.toStdString());
        const QString bare = column.mid(2);
        const bool isAttribute = column.startsWith("T.");
        // "ZTRASHEDSTATE" and the like are no part of another optional name, so exactly one becomes present.
        QStringList expected;
        for (const QString &other : allColumns)
            expected << (other == column ? column : QString("\"0\""));
        const photolib::SqlText sql =
            photolib::assetStatement("ZASSET", isAttribute ? QString() : bare, isAttribute ? bare : QString());
        EXPECT_EQ(QByteArray(sql.get()), statementWith(expected, "ZASSET"));
    }
}

TEST(AssetStatement, LooksForTheCameraInTheAttributesAndForAllElseInTheAssetTable)
{
    const QString columns = allColumns.join(' ');
    EXPECT_EQ(QByteArray(photolib::assetStatement("ZASSET", columns, QString()).get()),
              statementWith(withAbsent({"ZCAMERACAPTUREDEVICE"}), "ZASSET"));
    QStringList onlyCamera;
    for (const QString &column : allColumns)
        onlyCamera << (column.startsWith("T.") ? column : QString("\"0\""));
    EXPECT_EQ(QByteArray(photolib::assetStatement("ZASSET", QString(), columns).get()),
              statementWith(onlyCamera, "ZASSET"));
}

class AssetTableOfEra : public LibraryTest, public ::testing::WithParamInterface<testkit::Era>
{
};

TEST_P(AssetTableOfEra, IsReadWithTheColumnsOfTheRelease)
{
    const testkit::EraFacts &facts = testkit::factsOf(GetParam());
    testkit::LibraryBuilder builder(GetParam());
    const QStringList missing = testkit::missingOptionalColumns(GetParam());
    const auto valueIn = [&](const char *column, qint64 value) { return missing.contains(column) ? 0 : value; };
    testkit::AssetRow row;
    row.attributeKey = 1;
    row.key = 1;
    row.cameraDevice = 1;
    row.favorite = 1;
    row.hidden = 1;
    row.hasAdjustments = 1;
    row.depthType = 2;
    row.packedBadgeAttributes = 3;
    row.importSession = 4;
    row.duration = 1.5;
    builder.addAsset(row);
    putOnDevice(builder);
    const Photos_DB &db = openAnyhow();
    const assetRecord *asset = db.findAsset(1);
    ASSERT_NE(asset, nullptr);
    EXPECT_EQ(asset->entity, facts.concreteAssetEntity);
    EXPECT_EQ(asset->originalFileSize, row.fileSize);
    EXPECT_EQ(asset->cameraCaptureDevice, 1);
    EXPECT_EQ(asset->favorite, 1);
    EXPECT_EQ(asset->hidden, 1);
    EXPECT_EQ(asset->duration, 1.5);
    EXPECT_EQ(asset->hasAdjustments, valueIn("ZHASADJUSTMENTS", 1));
    EXPECT_EQ(asset->packedBadgeAttributes, valueIn("ZPACKEDBADGEATTRIBUTES", 3));
    EXPECT_EQ(asset->depthType, valueIn("ZDEPTHTYPE", 2));
    EXPECT_EQ(asset->importSession, valueIn("ZIMPORTSESSION", 4));
    EXPECT_EQ(statements.count(statementWith(withAbsent(missing), facts.assetTable)), 1);
    log.takeAll();
}

INSTANTIATE_TEST_SUITE_P(Releases, AssetTableOfEra, ::testing::ValuesIn(testkit::allEras()),
                         [](const auto &tested) { return std::string(testkit::factsOf(tested.param).name); });
