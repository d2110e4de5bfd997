#ifndef APPS_CLI_CATEGORIES_H
#define APPS_CLI_CATEGORIES_H

#include <QString>

#include <vector>

namespace photocli
{

/// One category of the library's automatic groups.
struct Category {
    int code;          ///< as photo_manager_int counts them
    const char *name;  ///< for input and output
    const char *title; ///< for people
};

/// All categories, ascending by code: the only list of them. Code 2 is never used.
const std::vector<Category> &categories();

/// The category of a name or a number, in any case; null when there is none.
const Category *findCategory(const QString &nameOrNumber);

/// The category's name, or its number as text for one that is not in the list.
QString categoryName(int code);

/// The names of all categories, separated by ", ".
QString allCategoryNames();

/// The category's title for people, or its number as text for one that is not in the list.
QString categoryTitle(int code);

constexpr int videosCategory = 1;
constexpr int photosCategory = 3;
constexpr int peopleCategory = 4;
constexpr int placesCategory = 5;
constexpr int recentlyDeletedCategory = 6;
constexpr int memoriesCategory = 15;
constexpr int burstsCategory = 16;

} // namespace photocli

#endif
