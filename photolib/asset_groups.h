#ifndef PHOTOLIB_ASSET_GROUPS_H
#define PHOTOLIB_ASSET_GROUPS_H

#include "photolib/photo_group.h"

#include <QMap>

#include <array>

struct assetRecord;

namespace photolib
{

struct CategoryRule;

using CategoryGroups = QMap<int, QMap<QString, photoGroup>>;

/// The group of `category` with this key, made when it is not there yet. It stays where it is until it is removed or
/// the maps are copied.
photoGroup &groupOf(CategoryGroups *groups, int category, const QString &key);

/// Adds an asset behind the others, without looking for it among them, and makes it the cover if so asked.
void addToGroup(photoGroup *group, const assetRecord &asset, bool setCover);

/// Sorts assets into the groups that their own fields name, one asset after the other. A category belongs to one rule,
/// and neighbours are alike, so the group that a category used last is tried first. Nobody else may touch the groups
/// meanwhile, and the assets stay.
class AssetGroups
{
public:
    explicit AssetGroups(CategoryGroups *groups) : groups(groups) {}

    void add(const assetRecord &asset);

private:
    struct Recent {
        const assetRecord *asset = nullptr;
        photoGroup *group = nullptr;
    };

    static constexpr int categoryCodes = 32; ///< all are below

    void addToOnlyGroup(int category, const assetRecord &asset);
    void addByRule(const CategoryRule &rule, int category, const assetRecord &asset);
    int folderCategory(const assetRecord &asset);

    CategoryGroups *groups;
    std::array<Recent, categoryCodes> recent;
    QString folder; ///< the last asset's, whose characters others share
    int categoryOfFolder = 0;
};

} // namespace photolib

#endif
