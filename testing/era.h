#ifndef TESTING_ERA_H
#define TESTING_ERA_H

#include <QString>
#include <QStringList>
#include <QVector>
#include <optional>

namespace testkit
{

/// The releases whose photo library databases differ in shape, oldest first.
enum class Era { Ios11, Ios12, Ios13, Ios14, Ios15, Ios16, Ios17, Ios18, Ios26 };

/// What differs between the releases. An entity number of 0 means that the release has no such entity.
/// The numbers of iOS 11 and 12 are known for the asset, GenericAlbum, Album and Memory entities only; the others of
/// these two follow from the alphabetical numbering and are assumed.
struct EraFacts {
    Era era;
    const char *name; ///< "ios13"
    int modelVersion; ///< of the model description in Z_METADATA; of iOS 11 and 12 only the first two digits are known
    const char *assetTable;   ///< "ZGENERICASSET" or "ZASSET"
    const char *assetEntity;  ///< the name that owns the asset table: "GenericAsset" or "Asset"
    int assetEntityNumber;    ///< the number of that entity, which the join tables' columns carry
    int concreteAssetEntity;  ///< what Z_ENT of an asset row holds: the child "Asset" while GenericAsset is the root
    int wallpaperAssetEntity; ///< "WallpaperAsset", a child of GenericAsset
    int detectedFace;         ///< DetectedFaceGroup is always the next number
    int genericAlbum;
    int album;
    int cloudSharedAlbum; ///< children of Album, down to projectAlbum
    int duplicateAlbum;
    int legacyFaceAlbum;
    int photoStreamAlbum;
    int projectAlbum;
    int conversation; ///< children of GenericAlbum, down to importSession
    int fetchingAlbum;
    int folder;
    int importSession;
    int memory;
    int person;
    const char *faceAssetColumn;  ///< the link from a face to its asset
    const char *facePersonColumn; ///< the link from a face to its person

    /// Whether GenericAsset is the root. A link to an asset then has a companion column with the concrete entity.
    bool hasGenericAsset() const { return concreteAssetEntity != assetEntityNumber; }
    QString albumJoinTable() const;       ///< "Z_26ASSETS"
    QString albumJoinAlbumColumn() const; ///< "Z_26ALBUMS"
    QString albumJoinAssetColumn() const; ///< "Z_34ASSETS"
    QString albumJoinOrderColumn() const; ///< "Z_FOK_34ASSETS"
    /// "Z_34MEMORIESBEING" + list + "ASSETS"; the list that is read is "EXTENDEDCURATED".
    QString memoryJoinTable(const QString &list = QStringLiteral("EXTENDEDCURATED")) const;
    QString memoryJoinAssetColumn(const QString &list = QStringLiteral("EXTENDEDCURATED")) const;
    QString memoryJoinMemoryColumn(const QString &list = QStringLiteral("EXTENDEDCURATED")) const;
};

/// A column of the asset statement that not every release has.
struct OptionalColumn {
    const char *name;
    Era first; ///< the releases that have it, both inclusive
    Era last;
    const char *otherName; ///< the column that stands for it in the other releases, or null

    bool isIn(Era era) const { return first <= era && era <= last; }
};

/// The facts of one era; the reference stays valid for the whole program.
const EraFacts &factsOf(Era era);

/// The 27 optional columns in the order of the asset statement. ZCAMERACAPTUREDEVICE belongs to
/// ZADDITIONALASSETATTRIBUTES, all others to the asset table.
const QVector<OptionalColumn> &optionalColumns();

/// The names of those that `era` lacks, in the same order.
QStringList missingOptionalColumns(Era era);

/// The era that `name` ("ios13", in any case) stands for; nothing when there is none.
std::optional<Era> eraFromName(const QString &name);

/// All eras and their names, oldest first.
const QVector<Era> &allEras();
QStringList eraNames();

} // namespace testkit

#endif
