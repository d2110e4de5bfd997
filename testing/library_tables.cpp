#include "testing/library_schema.h"

#include <vector>

namespace testkit
{

namespace
{

constexpr Era oldest = Era::Ios11;
constexpr Era newest = Era::Ios26;

// A name that starts with '@' gets the companion column of a link to GenericAsset: "@ZASSET" is ZASSET and Z34_ASSET.
struct ColumnSpec {
    const char *name;
    Era first = oldest;
    Era last = newest;
};

struct TableSpec {
    std::vector<ColumnSpec> integers; // after Z_PK, Z_ENT and Z_OPT
    std::vector<ColumnSpec> timestamps;
    std::vector<ColumnSpec> floats;
    std::vector<ColumnSpec> texts;
    std::vector<ColumnSpec> blobs;
};

const TableSpec assetTable{
    {{"ZADJUSTMENTSSTATE", Era::Ios18},
     {"ZAVALANCHEPICKTYPE"},
     {"ZCLOUDDELETESTATE"},
     {"ZCLOUDDOWNLOADREQUESTS"},
     {"ZCLOUDLOCALSTATE"},
     {"ZCLOUDPLACEHOLDERKIND", oldest, Era::Ios18},
     {"ZCOMPLETE"},
     {"ZCUSTOMRENDEREDVALUE"},
     {"ZDEFERREDPROCESSINGNEEDED", Era::Ios13},
     {"ZDEPTHSTATES", oldest, Era::Ios13},
     {"ZDEPTHTYPE"},
     {"ZDERIVEDCAMERACAPTUREDEVICE", Era::Ios14},
     {"ZDUPLICATEASSETVISIBILITYSTATE"},
     {"ZFACEAREAPOINTS"},
     {"ZFAVORITE"},
     {"ZHASADJUSTMENTS"},
     {"ZHDRTYPE", Era::Ios15},
     {"ZHEIGHT"},
     {"ZHIDDEN"},
     {"ZHIGHFRAMERATESTATE", Era::Ios14},
     {"ZISMAGICCARPET", Era::Ios15},
     {"ZKIND"},
     {"ZKINDSUBTYPE"},
     {"ZLIBRARYSCOPESHARESTATE", Era::Ios16},
     {"ZLOCALRESOURCESSTATE"},
     {"ZORIENTATION"},
     {"ZPACKEDACCEPTABLECROPRECT", Era::Ios13},
     {"ZPACKEDBADGEATTRIBUTES"},
     {"ZPACKEDPREFERREDCROPRECT", Era::Ios13},
     {"ZPLAYBACKSTYLE"},
     {"ZPLAYBACKVARIATION"},
     {"ZSAVEDASSETTYPE"},
     {"ZTHUMBNAILINDEX"},
     {"ZTRASHEDREASON", Era::Ios16},
     {"ZTRASHEDSTATE"},
     {"ZVIDEOCPDURATIONVALUE"},
     {"ZVISIBILITYSTATE"},
     {"ZWIDTH"},
     {"ZADDITIONALATTRIBUTES"},
     {"ZCLOUDFEEDASSETSENTRY"},
     {"ZDUPLICATEMETADATAMATCHINGALBUM"},
     {"ZDUPLICATEPERCEPTUALMATCHINGALBUM"},
     {"ZEXTENDEDATTRIBUTES"},
     {"ZIMPORTSESSION"},
     {"ZMASTER"},
     {"ZMOMENT"},
     {"ZMOMENTSHARE", Era::Ios12},
     {"Z_FOK_IMPORTSESSION", Era::Ios13, Era::Ios13},
     {"Z_FOK_CLOUDFEEDASSETSENTRY"}},
    {{"ZADDEDDATE"},
     {"ZADJUSTMENTTIMESTAMP"},
     {"ZCLOUDBATCHPUBLISHDATE"},
     {"ZCLOUDSERVERPUBLISHDATE"},
     {"ZDATECREATED"},
     {"ZLASTSHAREDDATE"},
     {"ZMODIFICATIONDATE"},
     {"ZTRASHEDDATE"}},
    {{"ZCURATIONSCORE"},
     {"ZDURATION"},
     {"ZLATITUDE"},
     {"ZLONGITUDE"},
     {"ZOVERALLAESTHETICSCORE", Era::Ios13},
     {"ZSORTTOKEN"}},
    {{"ZAVALANCHEUUID"},
     {"ZCLOUDASSETGUID"},
     {"ZDIRECTORY"},
     {"ZFILENAME"},
     {"ZMEDIAGROUPUUID"},
     {"ZORIGINALCOLORSPACE"},
     {"ZUNIFORMTYPEIDENTIFIER"},
     {"ZUUID"}},
    {{"ZIMAGEREQUESTHINTS"}, {"ZLOCATIONDATA"}},
};

const TableSpec attributesTable{
    {{"ZALLOWEDFORANALYSIS", Era::Ios13},
     {"ZCAMERACAPTUREDEVICE"},
     {"ZCLOUDAVALANCHEPICKTYPE"},
     {"ZCLOUDKINDSUBTYPE"},
     {"ZEMBEDDEDTHUMBNAILHEIGHT"},
     {"ZEMBEDDEDTHUMBNAILLENGTH"},
     {"ZEMBEDDEDTHUMBNAILOFFSET"},
     {"ZEMBEDDEDTHUMBNAILWIDTH"},
     {"ZORIGINALFILESIZE"},
     {"ZORIGINALHEIGHT"},
     {"ZORIGINALORIENTATION"},
     {"ZORIGINALWIDTH"},
     {"ZTIMEZONEOFFSET"},
     {"ZVIEWCOUNT"},
     {"@ZASSET"},
     {"ZASSETDESCRIPTION"}},
    {{"ZLASTUPLOADATTEMPTDATE"}, {"ZSCENEANALYSISTIMESTAMP"}},
    {{"ZGPSHORIZONTALACCURACY", Era::Ios14}},
    {{"ZIMPORTSESSIONID"}, {"ZORIGINALFILENAME"}, {"ZPUBLICGLOBALUUID"}, {"ZTIMEZONENAME"}, {"ZTITLE"}},
    {{"ZREVERSELOCATIONDATA"}},
};

const TableSpec albumTable{
    {{"ZCACHEDCOUNT"},
     {"ZCACHEDPHOTOSCOUNT"},
     {"ZCACHEDVIDEOSCOUNT"},
     {"ZCLOUDDELETESTATE"},
     {"ZCLOUDLOCALSTATE"},
     {"ZCUSTOMSORTASCENDING"},
     {"ZCUSTOMSORTKEY"},
     {"ZISPINNED"},
     {"ZKIND"},
     {"ZPENDINGITEMSCOUNT"},
     {"ZPRIVACYSTATE", Era::Ios16},
     {"ZSYNCEVENTORDERKEY"},
     {"ZTRASHEDSTATE"},
     {"@ZCUSTOMKEYASSET"},
     {"@ZKEYASSET", oldest, Era::Ios17},
     {"ZPARENTFOLDER"},
     {"@ZSECONDARYKEYASSET", oldest, Era::Ios17},
     {"@ZTERTIARYKEYASSET", oldest, Era::Ios17},
     {"ZCLOUDALBUMSUBTYPE"},
     {"ZISOWNED"},
     {"ZDUPLICATETYPE", Era::Ios16},
     {"Z_FOK_PARENTFOLDER"}},
    {{"ZCREATIONDATE"}, {"ZENDDATE"}, {"ZLASTMODIFIEDDATE", Era::Ios18}, {"ZSTARTDATE"}, {"ZTRASHEDDATE"}},
    {},
    {{"ZCLOUDGUID"}, {"ZIMPORTSESSIONID"}, {"ZTITLE"}, {"ZUUID"}, {"ZCLOUDPERSONID"}},
    {{"ZCLOUDMETADATA"}, {"ZUSERQUERYDATA"}},
};

const TableSpec faceTable{
    {{"ZAGETYPE"},
     {"ZCLOUDLOCALSTATE"},
     {"ZHIDDEN"},
     {"ZISINTRASH"},
     {"ZMANUAL"},
     {"ZNAMESOURCE"},
     {"ZQUALITYMEASURE"},
     {"ZSOURCEHEIGHT"},
     {"ZSOURCEWIDTH"},
     {"@ZASSET", oldest, Era::Ios16},
     {"ZASSETFORFACE", Era::Ios17},
     {"ZASSETFORTEMPORALDETECTEDFACES", Era::Ios17},
     {"ZASSETFORTORSO", Era::Ios17},
     {"ZFACECROP"},
     {"ZFACEGROUP"},
     {"ZFACEGROUPBEINGKEYFACE"},
     {"ZFACEPRINT"},
     {"ZPERSON", oldest, Era::Ios16},
     {"ZPERSONBEINGKEYFACE"},
     {"ZPERSONFORFACE", Era::Ios17}},
    {{"ZADJUSTMENTVERSION"}},
    {{"ZCENTERX"}, {"ZCENTERY"}, {"ZQUALITY"}, {"ZSIZE"}},
    {{"ZMASTERIDENTIFIER"}, {"ZUUID"}},
    {},
};

const TableSpec memoryTable{
    {{"ZCATEGORY"},
     {"ZCLOUDLOCALSTATE"},
     {"ZFAVORITE"},
     {"ZFEATUREDSTATE", Era::Ios15},
     {"ZNOTIFICATIONSTATE"},
     {"ZPLAYCOUNT"},
     {"ZREJECTED"},
     {"ZSUBCATEGORY"},
     {"ZVIEWCOUNT"},
     {"@ZKEYASSET"}},
    {{"ZCREATIONDATE"}, {"ZLASTVIEWEDDATE"}},
    {{"ZSCORE"}},
    {{"ZSUBTITLE"}, {"ZTITLE"}, {"ZUUID"}},
    {{"ZMOVIEDATA"}, {"ZPHOTOSGRAPHDATA"}},
};

bool isPresent(const ColumnSpec &column, Era era)
{
    for (const OptionalColumn &optional : optionalColumns()) {
        if (QLatin1String(optional.name) == QLatin1String(column.name))
            return optional.isIn(era);
    }
    return column.first <= era && era <= column.last;
}

void appendColumns(QStringList &definitions, const std::vector<ColumnSpec> &columns, const char *type, Era era)
{
    const EraFacts &facts = factsOf(era);
    for (const ColumnSpec &column : columns) {
        if (!isPresent(column, era))
            continue;
        const bool linksToAsset = *column.name == '@';
        const QString name = QLatin1String(linksToAsset ? column.name + 1 : column.name);
        definitions << QStringLiteral("%1 %2").arg(name, QLatin1String(type));
        if (linksToAsset && facts.hasGenericAsset())
            definitions << QStringLiteral("Z%1_%2 INTEGER").arg(facts.assetEntityNumber).arg(name.mid(1));
    }
}

QString createTable(const QString &name, const TableSpec &spec, Era era)
{
    QStringList definitions{QStringLiteral("Z_PK INTEGER PRIMARY KEY"), QStringLiteral("Z_ENT INTEGER"),
                            QStringLiteral("Z_OPT INTEGER")};
    appendColumns(definitions, spec.integers, "INTEGER", era);
    QStringList reals; // both types in one alphabetical run
    appendColumns(reals, spec.timestamps, "TIMESTAMP", era);
    appendColumns(reals, spec.floats, "FLOAT", era);
    reals.sort();
    definitions += reals;
    appendColumns(definitions, spec.texts, "VARCHAR", era);
    appendColumns(definitions, spec.blobs, "BLOB", era);
    return QStringLiteral("CREATE TABLE %1 ( %2 )").arg(name, definitions.join(QStringLiteral(", ")));
}

QString createJoin(const QString &name, const QStringList &columns)
{
    return QStringLiteral("CREATE TABLE %1 ( %2 INTEGER, PRIMARY KEY (%3, %4) )")
        .arg(name, columns.join(QStringLiteral(" INTEGER, ")), columns.at(0), columns.at(1));
}

// The join tables: the two that are read, and some whose names end alike.
QStringList joinTables(const EraFacts &facts)
{
    QStringList tables{createJoin(facts.albumJoinTable(), {facts.albumJoinAlbumColumn(), facts.albumJoinAssetColumn(),
                                                           facts.albumJoinOrderColumn()})};
    for (const char *list : {"CURATED", "EXTENDEDCURATED"}) {
        const QString name = QLatin1String(list);
        tables << createJoin(facts.memoryJoinTable(name),
                             {facts.memoryJoinAssetColumn(name), facts.memoryJoinMemoryColumn(name)});
    }
    const QString album = QString::number(facts.genericAlbum);
    const QString asset = QString::number(facts.assetEntityNumber);
    if (facts.era >= Era::Ios18)
        tables << createJoin(QStringLiteral("Z_%1KEYASSETS").arg(album),
                             {QStringLiteral("Z_%1ALBUMSBEINGKEYASSETS").arg(album),
                              QStringLiteral("Z_%1KEYASSETS").arg(asset),
                              QStringLiteral("Z_FOK_%1KEYASSETS").arg(asset)});
    return tables;
}

} // namespace

QStringList tablesOf(Era era)
{
    const EraFacts &facts = factsOf(era);
    return QStringList{
               createTable(QLatin1String(facts.assetTable), assetTable, era),
               createTable(QStringLiteral("ZADDITIONALASSETATTRIBUTES"), attributesTable, era),
               createTable(QStringLiteral("ZGENERICALBUM"), albumTable, era),
               createTable(QStringLiteral("ZDETECTEDFACE"), faceTable, era),
               createTable(QStringLiteral("ZMEMORY"), memoryTable, era),
           } +
           joinTables(facts) +
           QStringList{
               QStringLiteral("CREATE TABLE Z_PRIMARYKEY (Z_ENT INTEGER PRIMARY KEY, Z_NAME VARCHAR, Z_SUPER INTEGER, "
                              "Z_MAX INTEGER)"),
               QStringLiteral(
                   "CREATE TABLE Z_METADATA (Z_VERSION INTEGER PRIMARY KEY, Z_UUID VARCHAR(255), Z_PLIST BLOB)"),
               QStringLiteral("CREATE TABLE Z_MODELCACHE (Z_CONTENT BLOB)"),
           };
}

QVector<EntitySpec> entitiesOf(Era era)
{
    const EraFacts &facts = factsOf(era);
    const int asset = facts.assetEntityNumber;
    const QVector<EntitySpec> candidates{
        {QStringLiteral("AdditionalAssetAttributes"), 1, 0},
        {QLatin1String(facts.assetEntity), asset, 0},
        {QStringLiteral("Asset"), facts.hasGenericAsset() ? facts.concreteAssetEntity : 0, asset},
        {QStringLiteral("WallpaperAsset"), facts.wallpaperAssetEntity, asset},
        {QStringLiteral("DetectedFace"), facts.detectedFace, 0},
        {QStringLiteral("DetectedFaceGroup"), facts.detectedFace + 1, 0},
        {QStringLiteral("GenericAlbum"), facts.genericAlbum, 0},
        {QStringLiteral("Album"), facts.album, facts.genericAlbum},
        {QStringLiteral("CloudSharedAlbum"), facts.cloudSharedAlbum, facts.album},
        {QStringLiteral("DuplicateAlbum"), facts.duplicateAlbum, facts.album},
        {QStringLiteral("LegacyFaceAlbum"), facts.legacyFaceAlbum, facts.album},
        {QStringLiteral("PhotoStreamAlbum"), facts.photoStreamAlbum, facts.album},
        {QStringLiteral("ProjectAlbum"), facts.projectAlbum, facts.album},
        {QStringLiteral("Conversation"), facts.conversation, facts.genericAlbum},
        {QStringLiteral("FetchingAlbum"), facts.fetchingAlbum, facts.genericAlbum},
        {QStringLiteral("Folder"), facts.folder, facts.genericAlbum},
        {QStringLiteral("ImportSession"), facts.importSession, facts.genericAlbum},
        {QStringLiteral("Memory"), facts.memory, 0},
        {QStringLiteral("Person"), facts.person, 0},
        {QStringLiteral("CHANGE"), 16001, 0},
        {QStringLiteral("TRANSACTION"), 16002, 0},
        {QStringLiteral("TRANSACTIONSTRING"), 16003, 0},
    };
    QVector<EntitySpec> entities;
    for (const EntitySpec &entity : candidates) {
        if (entity.number != 0)
            entities << entity;
    }
    return entities;
}

} // namespace testkit
