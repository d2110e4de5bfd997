#include "apps/browser/page/photo_search.h"

#include "apps/browser/page/collection_titles.h"
#include "apps/browser/page/date_words.h"

#include <QRegularExpression>

#include <algorithm>

namespace browser
{

PhotoSearch::PhotoSearch(const Snapshot &library, const QString &text) : snapshot(library)
{
    static const QRegularExpression blanks(QStringLiteral("\\s+"));
    const QStringList parts = text.split(blanks, Qt::SkipEmptyParts);
    for (const QString &part : parts) {
        Word word;
        word.text = part;
        word.dates = datesOf(part, QLocale());
        addTitles(word);
        words.push_back(std::move(word));
    }
}

void PhotoSearch::addTitles(Word &word) const
{
    for (const Collection &collection : snapshot.collections) {
        const bool isEverything = collection.albumId == 0 && collection.category == category::everything;
        if (isEverything || collection.isPart ||
            !CollectionTitles::of(collection, snapshot).contains(word.text, Qt::CaseInsensitive))
            continue;
        word.inTitledCollection.resize(snapshot.photos.size());
        for (const qint64 id : collection.photoIds) {
            const auto row = snapshot.rows.constFind(id);
            if (row != snapshot.rows.constEnd())
                word.inTitledCollection[static_cast<std::size_t>(*row)] = true;
        }
    }
}

bool PhotoSearch::matches(int row) const
{
    const auto at = static_cast<std::size_t>(row);
    const Photo &photo = snapshot.photos[at];
    return std::all_of(words.begin(), words.end(), [&](const Word &word) {
        return (!word.inTitledCollection.empty() && word.inTitledCollection[at]) ||
               photo.fileName.contains(word.text, Qt::CaseInsensitive) ||
               std::any_of(word.dates.begin(), word.dates.end(),
                           [&photo](const MonthRange &range) { return range.contains(photo.created); });
    });
}

} // namespace browser
