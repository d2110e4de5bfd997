#include "apps/browser/page/collection_titles.h"

#include "apps/browser/page/texts.h"

#include <QDateTime>
#include <QLocale>

#include <iterator>

namespace browser
{

namespace
{

struct CategoryGlyph {
    int category;
    Glyph glyph;
};

constexpr CategoryGlyph categoryGlyphs[] = {
    {0, Glyph::Photos},  {1, Glyph::Film},      {4, Glyph::Person},   {5, Glyph::Pin},     {6, Glyph::Trash},
    {7, Glyph::Heart},   {8, Glyph::Portrait},  {9, Glyph::Panorama}, {10, Glyph::Live},   {11, Glyph::Clock},
    {12, Glyph::Screen}, {13, Glyph::Clock},    {14, Glyph::Moving},  {15, Glyph::Memory}, {16, Glyph::Burst},
    {17, Glyph::Screen}, {18, Glyph::Portrait}, {19, Glyph::Hidden},  {20, Glyph::Import}, {21, Glyph::Raw},
    {23, Glyph::Copies}, {24, Glyph::Film},     {25, Glyph::Camera},  {26, Glyph::Shared}, {27, Glyph::Cloud},
    {28, Glyph::Import}, {29, Glyph::Cloud},
};

QString firstDate(const Collection &collection, const Snapshot &snapshot)
{
    const Photo *photo = collection.photoIds.isEmpty() ? nullptr : snapshot.find(collection.photoIds.first());
    if (photo == nullptr || photo->created == Photo::noDate)
        return {};
    return QLocale().toString(QDateTime::fromMSecsSinceEpoch(photo->created), QLocale::ShortFormat);
}

} // namespace

QString CollectionTitles::ofSection(Section section)
{
    switch (section) {
    case Section::Library:
        return tr("Library");
    case Section::People:
        return tr("People");
    case Section::Places:
        return tr("Places");
    case Section::Memories:
        return tr("Memories");
    case Section::Kinds:
        return tr("Kinds");
    case Section::Albums:
        return tr("Albums");
    case Section::SharedAlbums:
        return tr("Shared albums");
    case Section::Others:
        return tr("More");
    }
    return {};
}

QString CollectionTitles::ofCategory(int category)
{
    switch (category) {
    case 0:
        return tr("All photos");
    case 1:
        return tr("Videos");
    case 7:
        return tr("Favorites");
    case 8:
        return tr("Portraits");
    case 9:
        return tr("Panoramas");
    case 10:
        return tr("Live Photos");
    case 11:
        return tr("Time-lapse");
    case 12:
        return tr("Screen recordings");
    case 13:
        return tr("Slow motion");
    case 14:
        return tr("Animated");
    case 16:
        return tr("Bursts");
    case 17:
        return tr("Screenshots");
    case 18:
        return tr("Selfies");
    default:
        return ofOtherCategory(category);
    }
}

QString CollectionTitles::ofOtherCategory(int category)
{
    switch (category) {
    case 6:
        return tr("Recently deleted");
    case 19:
        return tr("Hidden");
    case 20:
        return tr("Imported");
    case 21:
        return tr("RAW photos");
    case 23:
        return tr("Duplicates");
    case 24:
        return tr("Cinematic");
    case 25:
        return tr("Camera roll");
    case 26:
        return tr("All shared albums");
    case 27:
        return tr("From the cloud");
    case 28:
        return tr("From a computer");
    case 29:
        return tr("Photo stream");
    default:
        return {};
    }
}

QString CollectionTitles::ofGroup(const Collection &collection, const Snapshot &snapshot)
{
    const QString date = firstDate(collection, snapshot);
    switch (collection.category) {
    case category::people:
        return tr("Person %1").arg(collection.key);
    case category::places:
        return Texts::coordinates(collection.latitude, collection.longitude, 1);
    case category::memories:
        return date.isEmpty() ? tr("Memory") : tr("Memory of %1", "date").arg(date);
    default:
        return date.isEmpty() ? tr("No date") : date;
    }
}

QString CollectionTitles::of(const Collection &collection, const Snapshot &snapshot)
{
    if (!collection.title.isEmpty())
        return collection.title;
    if (collection.albumId != 0) {
        const QString date = firstDate(collection, snapshot);
        return date.isEmpty() ? tr("Import") : tr("Import of %1", "date").arg(date);
    }
    const QString title = collection.isPart ? QString() : ofCategory(collection.category);
    return title.isEmpty() ? ofGroup(collection, snapshot) : title;
}

Glyph CollectionTitles::glyph(const Collection &collection)
{
    if (collection.albumId != 0) {
        if (collection.section == Section::Others)
            return Glyph::Import;
        return collection.section == Section::SharedAlbums ? Glyph::Shared : Glyph::Album;
    }
    for (const CategoryGlyph &entry : categoryGlyphs) {
        if (entry.category == collection.category)
            return entry.glyph;
    }
    return Glyph::Album;
}

} // namespace browser
