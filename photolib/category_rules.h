#ifndef PHOTOLIB_CATEGORY_RULES_H
#define PHOTOLIB_CATEGORY_RULES_H

#include <QString>

struct assetRecord;

namespace photolib
{

/// Codes of the categories that the builder of the model treats by itself, and of the one that edits change.
constexpr int recentlyDeletedCategory = 6;
constexpr int peopleCategory = 4;
constexpr int memoriesCategory = 15;
constexpr int syncedCategory = 28; ///< photos that a host placed on the device

/// The key of categories with one group only.
QString singleGroupKey();

/// Whether an asset is recently deleted; it is then in no other category.
bool isRecentlyDeleted(const assetRecord &asset);

/// The category of the folder that the asset lies in, or 0 for none.
int directoryCategory(const assetRecord &asset);

/// One independent category of assets.
struct CategoryRule {
    /// The category's code when the asset belongs to it, else 0.
    int (*categoryOf)(const assetRecord &asset);

    /// The key of the asset's group in it.
    QString (*keyOf)(const assetRecord &asset);

    /// Whether the asset becomes the cover of its group.
    bool (*isCover)(const assetRecord &asset);

    /// Whether two assets certainly have the same key, told without making it. False may be either.
    bool (*haveSameKey)(const assetRecord &one, const assetRecord &other);
};

/// All independent categories, in the order in which they are tested; `end` is behind the last.
struct CategoryRules {
    const CategoryRule *first;
    const CategoryRule *last;
    const CategoryRule *begin() const { return first; }
    const CategoryRule *end() const { return last; }
};
CategoryRules categoryRules();

} // namespace photolib

#endif
