#include "testing/library_builder.h"

#include "testing/made_values.h"

#include <algorithm>

namespace testkit
{

namespace
{

template <typename Value>
SqlValue valueOrNull(const std::optional<Value> &value)
{
    return value ? SqlValue(*value) : SqlValue();
}

QString textOr(const QString &wanted, const QString &made)
{
    return wanted.isNull() ? made : wanted;
}

// The companion column of a link to GenericAsset names the concrete entity of what is linked.
SqlValue companionValue(const EraFacts &facts, const std::optional<qint64> &asset)
{
    return asset ? SqlValue(facts.concreteAssetEntity) : SqlValue();
}

using Fields = RowWriter::Fields;

// What the builder makes of a row's empty fields.
struct MadeAsset {
    qint64 key;
    qint64 ordinal;
    std::optional<qint64> attributeKey;
    QString fileName;
    double created;
};

// Columns that have the same value in every asset unless its row sets them by name.
const Fields &unvariedAssetFields()
{
    static const Fields fields{{"Z_OPT", 1},
                               {"ZCLOUDDELETESTATE", 0},
                               {"ZCLOUDDOWNLOADREQUESTS", 0},
                               {"ZCLOUDPLACEHOLDERKIND", 0},
                               {"ZCOMPLETE", 1},
                               {"ZCUSTOMRENDEREDVALUE", 0},
                               {"ZDEFERREDPROCESSINGNEEDED", 0},
                               {"ZDEPTHSTATES", 0},
                               {"ZDUPLICATEASSETVISIBILITYSTATE", 0},
                               {"ZHDRTYPE", 0},
                               {"ZHIGHFRAMERATESTATE", 0},
                               {"ZISMAGICCARPET", 0},
                               {"ZLIBRARYSCOPESHARESTATE", 0},
                               {"ZLOCALRESOURCESSTATE", -1},
                               {"ZPACKEDACCEPTABLECROPRECT", 0},
                               {"ZPACKEDPREFERREDCROPRECT", 0},
                               {"ZPLAYBACKVARIATION", 0},
                               {"ZSAVEDASSETTYPE", 3},
                               {"ZTRASHEDREASON", 0},
                               {"ZVIDEOCPDURATIONVALUE", 0},
                               {"ZCURATIONSCORE", 0.5},
                               {"ZOVERALLAESTHETICSCORE", 0.5}};
    return fields;
}

void addNumbers(Fields &fields, const AssetRow &row)
{
    const Fields numbers{{"ZADJUSTMENTSSTATE", row.hasAdjustments == 0 ? 0 : 2},
                         {"ZAVALANCHEPICKTYPE", row.avalanchePickType},
                         {"ZCLOUDLOCALSTATE", row.cloudLocalState},
                         {"ZDEPTHTYPE", row.depthType},
                         {"ZDERIVEDCAMERACAPTUREDEVICE", row.cameraDevice},
                         {"ZFACEAREAPOINTS", row.faceAreaPoints},
                         {"ZFAVORITE", row.favorite},
                         {"ZHASADJUSTMENTS", row.hasAdjustments},
                         {"ZHEIGHT", row.height},
                         {"ZHIDDEN", row.hidden},
                         {"ZKIND", row.kind},
                         {"ZKINDSUBTYPE", row.kindSubtype},
                         {"ZORIENTATION", row.orientation},
                         {"ZPACKEDBADGEATTRIBUTES", row.packedBadgeAttributes},
                         {"ZPLAYBACKSTYLE", row.kind == 1 ? 4 : 1},
                         {"ZTRASHEDSTATE", row.trashedState},
                         {"ZVISIBILITYSTATE", row.visibilityState},
                         {"ZWIDTH", row.width},
                         {"ZIMPORTSESSION", valueOrNull(row.importSession)},
                         {"ZMOMENT", valueOrNull(row.moment)},
                         {"ZDURATION", row.duration},
                         {"ZLATITUDE", row.latitude},
                         {"ZLONGITUDE", row.longitude}};
    fields.insert(fields.end(), numbers.begin(), numbers.end());
}

void addDates(Fields &fields, const AssetRow &row, double created)
{
    const std::optional<double> trashed =
        row.trashedDate || row.trashedState == 0 ? row.trashedDate : std::optional(created + 100.0);
    const Fields dates{{"ZADDEDDATE", row.addedDate.value_or(created + 1.5)},
                       {"ZDATECREATED", created},
                       {"ZMODIFICATIONDATE", row.modificationDate.value_or(created + 10.0)},
                       {"ZTRASHEDDATE", valueOrNull(trashed)},
                       {"ZSORTTOKEN", created}};
    fields.insert(fields.end(), dates.begin(), dates.end());
}

void addNames(Fields &fields, const AssetRow &row, const MadeAsset &made)
{
    const QString type = row.kind == 1 ? QStringLiteral("com.apple.quicktime-movie") : QStringLiteral("public.jpeg");
    const Fields names{{"Z_PK", made.key},
                       {"ZADDITIONALATTRIBUTES", valueOrNull(made.attributeKey)},
                       {"ZTHUMBNAILINDEX", row.thumbnailIndex.value_or(made.ordinal - 1)},
                       {"ZAVALANCHEUUID", SqlValue::textOrNull(row.avalancheUuid)},
                       {"ZDIRECTORY", textOr(row.directory, cameraRollFolder(made.ordinal))},
                       {"ZFILENAME", made.fileName},
                       {"ZUNIFORMTYPEIDENTIFIER", textOr(row.uniformTypeIdentifier, type)},
                       {"ZUUID", textOr(row.uuid, madeUuid(UuidUse::Asset, made.ordinal))}};
    fields.insert(fields.end(), names.begin(), names.end());
}

} // namespace

qint64 LibraryBuilder::Table::takeKey(const std::optional<qint64> &wanted)
{
    const qint64 key = wanted.value_or(maxKey + 1);
    maxKey = std::max(maxKey, key);
    return key;
}

qint64 LibraryBuilder::addAsset(const AssetRow &row)
{
    MadeAsset made;
    made.key = assets.takeKey(row.key);
    made.ordinal = ++assetCount;
    const QString suffix = row.kind == 1 ? QStringLiteral("MOV") : QStringLiteral("JPG");
    made.fileName = textOr(row.fileName, cameraRollName(made.ordinal, suffix));
    made.created = row.dateCreated.value_or(600000000.0 + 37.25 * static_cast<double>(made.ordinal));
    if (row.hasAttributes && attributes.writer.isUsable())
        made.attributeKey = attributeKeyFor(row, made.key);

    Fields fields;
    fields.reserve(64);
    fields = unvariedAssetFields();
    fields.push_back({"Z_ENT", eraFacts.concreteAssetEntity});
    addNumbers(fields, row);
    addDates(fields, row, made.created);
    addNames(fields, row, made);
    assets.writer.insert(fields, row.columns);
    if (made.attributeKey)
        addAttributes(row, made.key, *made.attributeKey, made.fileName);
    return made.key;
}

// A key of its own never equals the asset's: a reader that takes one for the other shows.
qint64 LibraryBuilder::attributeKeyFor(const AssetRow &row, qint64 asset)
{
    if (row.attributeKey || options.attributeKeys == AttributeKeys::SameAsAsset)
        return attributes.takeKey(row.attributeKey.value_or(asset));
    const qint64 next = std::max(attributes.maxKey + 1, Q_INT64_C(2));
    return attributes.takeKey(next == asset ? next + 1 : next);
}

void LibraryBuilder::addAttributes(const AssetRow &row, qint64 asset, qint64 key, const QString &fileName)
{
    attributes.writer.insert({{"Z_PK", key},
                              {"Z_ENT", 1},
                              {"Z_OPT", 1},
                              {"ZALLOWEDFORANALYSIS", 1},
                              {"ZCAMERACAPTUREDEVICE", row.cameraDevice},
                              {"ZCLOUDAVALANCHEPICKTYPE", 0},
                              {"ZCLOUDKINDSUBTYPE", 0},
                              {"ZEMBEDDEDTHUMBNAILHEIGHT", 0},
                              {"ZEMBEDDEDTHUMBNAILLENGTH", 0},
                              {"ZEMBEDDEDTHUMBNAILOFFSET", 0},
                              {"ZEMBEDDEDTHUMBNAILWIDTH", 0},
                              {"ZORIGINALFILESIZE", row.fileSize},
                              {"ZORIGINALHEIGHT", row.height},
                              {"ZORIGINALORIENTATION", row.orientation},
                              {"ZORIGINALWIDTH", row.width},
                              {"ZTIMEZONEOFFSET", 0},
                              {"ZVIEWCOUNT", 0},
                              {"ZASSET", asset},
                              {assetCompanion.constData(), eraFacts.concreteAssetEntity},
                              {"ZGPSHORIZONTALACCURACY", -1.0},
                              {"ZORIGINALFILENAME", fileName},
                              {"ZPUBLICGLOBALUUID", madeUuid(UuidUse::Public, key)},
                              {"ZTIMEZONENAME", "GMT"}},
                             row.attributeColumns);
}

qint64 LibraryBuilder::addAlbum(const AlbumRow &row)
{
    const qint64 key = albums.takeKey(row.key);
    const std::optional<qint64> root = rootFolder == 0 ? std::nullopt : std::optional(rootFolder);
    albums.writer.insert({{"Z_PK", key},
                          {"Z_ENT", row.entity.value_or(albumEntityOf(eraFacts.era, row.kind))},
                          {"Z_OPT", 1},
                          {"ZCACHEDCOUNT", 0},
                          {"ZCACHEDPHOTOSCOUNT", 0},
                          {"ZCACHEDVIDEOSCOUNT", 0},
                          {"ZCLOUDDELETESTATE", 0},
                          {"ZCLOUDLOCALSTATE", 0},
                          {"ZCUSTOMSORTASCENDING", 1},
                          {"ZCUSTOMSORTKEY", 1},
                          {"ZISPINNED", 0},
                          {"ZKIND", row.kind},
                          {"ZPENDINGITEMSCOUNT", 0},
                          {"ZPRIVACYSTATE", 0},
                          {"ZSYNCEVENTORDERKEY", 0},
                          {"ZTRASHEDSTATE", row.trashedState},
                          {"ZPARENTFOLDER", valueOrNull(row.parent ? row.parent : root)},
                          {"ZCREATIONDATE", 590000000},
                          {"ZTITLE", SqlValue::textOrNull(row.title)},
                          {"ZUUID", textOr(row.uuid, madeUuid(UuidUse::Album, ++albumCount))}},
                         row.columns);
    return key;
}

void LibraryBuilder::addToAlbum(qint64 album, qint64 asset)
{
    const QByteArray albumColumn = eraFacts.albumJoinAlbumColumn().toLatin1();
    const QByteArray assetColumn = eraFacts.albumJoinAssetColumn().toLatin1();
    const QByteArray orderColumn = eraFacts.albumJoinOrderColumn().toLatin1();
    // The first of an album has order 2048, the gaps leave room for moving one between two others.
    const qint64 order = albumOrder.value(album, 1024) + 1024;
    albumMembers.insert(
        {{albumColumn.constData(), album}, {assetColumn.constData(), asset}, {orderColumn.constData(), order}});
    albumOrder.insert(album, order);
}

qint64 LibraryBuilder::addFace(const FaceRow &row)
{
    const qint64 key = faces.takeKey(row.key);
    faces.writer.insert({{"Z_PK", key},
                         {"Z_ENT", eraFacts.detectedFace},
                         {"Z_OPT", 1},
                         {"ZAGETYPE", 0},
                         {"ZCLOUDLOCALSTATE", 0},
                         {"ZHIDDEN", 0},
                         {"ZISINTRASH", 0},
                         {"ZMANUAL", row.manual},
                         {"ZNAMESOURCE", 0},
                         {"ZQUALITYMEASURE", 100},
                         {"ZSOURCEHEIGHT", 3024},
                         {"ZSOURCEWIDTH", 4032},
                         {eraFacts.faceAssetColumn, valueOrNull(row.asset)},
                         {assetCompanion.constData(), companionValue(eraFacts, row.asset)},
                         {"ZFACECROP", valueOrNull(row.crop)},
                         {"ZFACEGROUP", valueOrNull(row.faceGroup)},
                         {"ZFACEGROUPBEINGKEYFACE", valueOrNull(row.keyFaceOfGroup)},
                         {eraFacts.facePersonColumn, valueOrNull(row.person)},
                         {"ZCENTERX", 0.5},
                         {"ZCENTERY", 0.5},
                         {"ZQUALITY", 0.5},
                         {"ZSIZE", 0.25},
                         {"ZUUID", madeUuid(UuidUse::Face, key)}},
                        row.columns);
    return key;
}

qint64 LibraryBuilder::addMemory(const MemoryRow &row)
{
    const qint64 key = memories.takeKey(row.key);
    memories.writer.insert({{"Z_PK", key},
                            {"Z_ENT", eraFacts.memory},
                            {"Z_OPT", 1},
                            {"ZCATEGORY", 1},
                            {"ZCLOUDLOCALSTATE", 0},
                            {"ZFAVORITE", row.favorite},
                            {"ZFEATUREDSTATE", 0},
                            {"ZNOTIFICATIONSTATE", 0},
                            {"ZPLAYCOUNT", 0},
                            {"ZREJECTED", 0},
                            {"ZSUBCATEGORY", 0},
                            {"ZVIEWCOUNT", 0},
                            {"ZKEYASSET", valueOrNull(row.keyAsset)},
                            {keyAssetCompanion.constData(), companionValue(eraFacts, row.keyAsset)},
                            {"ZCREATIONDATE", 610000000.5},
                            {"ZSCORE", 0.5},
                            {"ZSUBTITLE", SqlValue::textOrNull(row.subtitle)},
                            {"ZTITLE", SqlValue::textOrNull(row.title)},
                            {"ZUUID", madeUuid(UuidUse::Memory, key)}},
                           row.columns);
    const QByteArray assetColumn = eraFacts.memoryJoinAssetColumn().toLatin1();
    const QByteArray memoryColumn = eraFacts.memoryJoinMemoryColumn().toLatin1();
    for (const qint64 asset : row.curatedAssets)
        curatedAssets.insert({{assetColumn.constData(), asset}, {memoryColumn.constData(), key}});
    return key;
}

} // namespace testkit
