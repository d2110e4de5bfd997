#ifndef APPS_BROWSER_PAGE_COLLECTION_TITLES_H
#define APPS_BROWSER_PAGE_COLLECTION_TITLES_H

#include "apps/browser/library/snapshot.h"
#include "apps/browser/page/glyphs.h"

#include <QCoreApplication>

namespace browser
{

/// What the side bar calls collections, and the glyphs beside them.
class CollectionTitles
{
    Q_DECLARE_TR_FUNCTIONS(browser::CollectionTitles)

public:
    static QString ofSection(Section section);
    static QString of(const Collection &collection, const Snapshot &snapshot);
    static Glyph glyph(const Collection &collection);

private:
    static QString ofCategory(int category);
    static QString ofOtherCategory(int category);
    static QString ofGroup(const Collection &collection, const Snapshot &snapshot);
};

} // namespace browser

#endif
