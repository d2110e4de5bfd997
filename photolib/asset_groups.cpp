#include "photolib/asset_groups.h"

#include "photolib/category_rules.h"
#include "photolib/db/records.h"

namespace photolib
{

photoGroup &groupOf(CategoryGroups *groups, int category, const QString &key)
{
    QMap<QString, photoGroup> &ofCategory = (*groups)[category];
    auto group = ofCategory.find(key);
    if (group == ofCategory.end()) {
        photoGroup fresh;
        fresh.category = category;
        fresh.key = key;
        group = ofCategory.insert(key, fresh);
    }
    return *group;
}

void addToGroup(photoGroup *group, const assetRecord &asset, bool setCover)
{
    group->assetIds.append(asset.pk);
    if (setCover)
        group->coverAssetId = asset.pk;
}

void AssetGroups::add(const assetRecord &asset)
{
    if (isRecentlyDeleted(asset)) {
        addToOnlyGroup(recentlyDeletedCategory, asset);
        return;
    }
    if (const int category = folderCategory(asset))
        addToOnlyGroup(category, asset);
    for (const CategoryRule &rule : categoryRules()) {
        if (const int category = rule.categoryOf(asset))
            addByRule(rule, category, asset);
    }
}

void AssetGroups::addToOnlyGroup(int category, const assetRecord &asset)
{
    Recent &last = recent[static_cast<std::size_t>(category)];
    if (!last.group)
        last.group = &groupOf(groups, category, singleGroupKey());
    addToGroup(last.group, asset, false);
}

void AssetGroups::addByRule(const CategoryRule &rule, int category, const assetRecord &asset)
{
    Recent &last = recent[static_cast<std::size_t>(category)];
    if (!last.asset || !rule.haveSameKey(*last.asset, asset))
        last.group = &groupOf(groups, category, rule.keyOf(asset));
    last.asset = &asset;
    addToGroup(last.group, asset, rule.isCover(asset));
}

int AssetGroups::folderCategory(const assetRecord &asset)
{
    if (folder.constData() != asset.directory.constData()) {
        folder = asset.directory;
        categoryOfFolder = directoryCategory(asset);
    }
    return categoryOfFolder;
}

} // namespace photolib
