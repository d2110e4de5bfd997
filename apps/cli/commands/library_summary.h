#ifndef APPS_CLI_COMMANDS_LIBRARY_SUMMARY_H
#define APPS_CLI_COMMANDS_LIBRARY_SUMMARY_H

#include "photolib/photolib.h"

#include <QVector>

namespace photocli
{

struct Category;

struct CategoryCount {
    const Category *category = nullptr;
    int groups = 0;
    int photos = 0; ///< different photos in all groups together
};

/// What a library holds, in figures.
struct LibrarySummary {
    QString device; ///< left to the caller
    QString libraryUuid;
    int photos = 0; ///< recently deleted ones included, as everywhere here
    int videos = 0;
    int recentlyDeleted = 0;
    int albums = 0; ///< built-in ones included
    int builtinAlbums = 0;
    QDateTime firstDate; ///< null without photos; dates that cannot be are left out
    QDateTime lastDate;
    qint64 bytes = 0;                  ///< of all originals
    QVector<CategoryCount> categories; ///< those with groups, ascending by code
};

LibrarySummary summarize(photo_manager_int &library);

} // namespace photocli

#endif
