#include "testing/library_schema.h"

namespace testkit
{

namespace
{

// Properties of the asset with an index of their own; the column of "dateCreated" is ZDATECREATED. Where the era lacks
// the column there is no index either.
constexpr const char *assetProperties[] = {"addedDate",
                                           "avalanchePickType",
                                           "avalancheUUID",
                                           "cloudAssetGUID",
                                           "cloudPlaceholderKind",
                                           "complete",
                                           "customRenderedValue",
                                           "dateCreated",
                                           "depthStates",
                                           "hdrType",
                                           "kind",
                                           "kindSubtype",
                                           "lastSharedDate",
                                           "mediaGroupUUID",
                                           "playbackStyle",
                                           "playbackVariation",
                                           "savedAssetType",
                                           "sortToken",
                                           "thumbnailIndex",
                                           "uniformTypeIdentifier",
                                           "uuid",
                                           "visibilityState"};

constexpr const char *assetRelations[] = {"ZADDITIONALATTRIBUTES",
                                          "ZCLOUDFEEDASSETSENTRY",
                                          "ZDUPLICATEMETADATAMATCHINGALBUM",
                                          "ZDUPLICATEPERCEPTUALMATCHINGALBUM",
                                          "ZEXTENDEDATTRIBUTES",
                                          "ZIMPORTSESSION",
                                          "ZMASTER",
                                          "ZMOMENT",
                                          "ZMOMENTSHARE"};

class IndexList
{
public:
    explicit IndexList(const EraFacts &eraFacts) : facts(eraFacts), assetTable(QLatin1String(eraFacts.assetTable)) {}

    void assetIndices()
    {
        const QString prefix = QStringLiteral("Z_%1_").arg(QLatin1String(facts.assetEntity));
        for (const char *relation : assetRelations)
            relationIndex(assetTable, relation);
        for (const char *property : assetProperties) {
            const QString name = QLatin1String(property);
            add(prefix + name, assetTable, {QLatin1Char('Z') + name.toUpper()});
        }
        if (facts.era < Era::Ios18)
            add(prefix + QLatin1String("favorite"), assetTable, {QStringLiteral("ZFAVORITE")});
        const auto compound = [&](const char *name, const char *columns, const char *where = "") {
            add(prefix + QLatin1String(name), assetTable, QString::fromLatin1(columns).split(QLatin1Char(' ')),
                QLatin1String(where));
        };
        compound("compoundIndex", "ZDIRECTORY ZFILENAME");
        compound("compoundIndex1", "ZTRASHEDSTATE ZTRASHEDDATE");
        compound("compoundIndex2", "ZHIDDEN ZVISIBILITYSTATE");
        compound("compoundIndex3", "ZLATITUDE ZLONGITUDE ZTRASHEDSTATE ZHIDDEN ZAVALANCHEPICKTYPE ZSAVEDASSETTYPE");
        compound("compoundIndex4", "ZCLOUDLOCALSTATE ZDATECREATED");
        compound("forAllPhotos", "ZDATECREATED ZADDEDDATE ZFILENAME ZSAVEDASSETTYPE ZVISIBILITYSTATE ZTRASHEDSTATE "
                                 "ZHIDDEN ZAVALANCHEPICKTYPE ZKIND ZKINDSUBTYPE ZPLAYBACKSTYLE Z_ENT");
        if (facts.era >= Era::Ios15)
            compound("forVideosAlbum", "ZPLAYBACKSTYLE ZDATECREATED ZADDEDDATE Z_PK", "ZPLAYBACKSTYLE = 4");
    }

    void otherTableIndices()
    {
        const QString album = QStringLiteral("ZGENERICALBUM");
        const QString face = QStringLiteral("ZDETECTEDFACE");
        relationIndex(QStringLiteral("ZADDITIONALASSETATTRIBUTES"), "ZASSET");
        for (const char *column : {"ZCUSTOMKEYASSET", "ZKEYASSET", "ZPARENTFOLDER", "Z_ENT"})
            relationIndex(album, column);
        for (const char *column : {"ZKIND", "ZUUID", "ZCLOUDGUID"})
            add(QStringLiteral("Z_GenericAlbum_by") + QLatin1String(column), album, {QLatin1String(column)});
        for (const char *column : {facts.faceAssetColumn, facts.facePersonColumn, "ZFACECROP", "ZFACEGROUP",
                                   "ZFACEGROUPBEINGKEYFACE", "ZFACEPRINT", "ZPERSONBEINGKEYFACE"})
            relationIndex(face, column);
        relationIndex(QStringLiteral("ZMEMORY"), "ZKEYASSET");
    }

    void joinIndices()
    {
        const QString table = facts.albumJoinTable();
        const QString album = facts.albumJoinAlbumColumn();
        const QString asset = facts.albumJoinAssetColumn();
        const QString order = facts.albumJoinOrderColumn();
        const bool named = facts.era >= Era::Ios26;
        const auto name = [&](const char *radar, const QString &first, const QString &second) {
            return named ? QStringList{table, album, first, second, QStringLiteral("INDEX")}.join(QLatin1Char('_'))
                         : QString::fromLatin1(radar);
        };
        add(QStringLiteral("%1_%2_INDEX").arg(table, asset), table, {asset, album});
        add(name("RADAR_22158684_INDEX", order, asset), table, {album, order, asset});
        add(name("RADAR_10322662_INDEX", asset, order), table, {album, asset, order});
        const QString memory = facts.memoryJoinTable();
        add(QStringLiteral("%1_%2_INDEX").arg(memory, facts.memoryJoinMemoryColumn()), memory,
            {facts.memoryJoinMemoryColumn(), facts.memoryJoinAssetColumn()});
    }

    QVector<IndexSpec> indices;

private:
    void add(const QString &name, const QString &table, const QStringList &columns, const QString &where = {})
    {
        indices << IndexSpec{name, table, columns, where};
    }

    void relationIndex(const QString &table, const char *column)
    {
        add(QStringLiteral("%1_%2_INDEX").arg(table, QLatin1String(column)), table, {QLatin1String(column)});
    }

    const EraFacts &facts;
    QString assetTable;
};

} // namespace

QString IndexSpec::sql() const
{
    const QString condition = where.isEmpty() ? QString() : QStringLiteral(" WHERE ") + where;
    return QStringLiteral("CREATE INDEX %1 ON %2 (%3)%4")
        .arg(name, table, columns.join(QStringLiteral(", ")), condition);
}

QVector<IndexSpec> indicesOf(Era era)
{
    IndexList list(factsOf(era));
    list.assetIndices();
    list.otherTableIndices();
    list.joinIndices();
    return list.indices;
}

} // namespace testkit
