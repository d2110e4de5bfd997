#ifndef APPS_BROWSER_PAGE_PHOTO_SEARCH_H
#define APPS_BROWSER_PAGE_PHOTO_SEARCH_H

#include "apps/browser/library/snapshot.h"
#include "apps/browser/page/month_range.h"

#include <QString>

namespace browser
{

/// Which photos a text stands for. Each of its words must be in the file name, in what the side bar calls a collection
/// that the photo is in, or be a part of its date: "June 2019", "2019-06", "06/2019", "2019-06-24".
class PhotoSearch
{
public:
    /// Looks through the titles of collections at once.
    PhotoSearch(const Snapshot &snapshot, const QString &text);

    /// `row` is an index in Snapshot::photos.
    bool matches(int row) const;

private:
    struct Word {
        QString text;
        std::vector<MonthRange> dates;
        std::vector<bool> inTitledCollection; ///< by row; empty when no title has the word
    };

    void addTitles(Word &word) const;

    const Snapshot &snapshot;
    std::vector<Word> words;
};

} // namespace browser

#endif
