#include "apps/cli/categories.h"

#include <QStringList>

namespace photocli
{

const std::vector<Category> &categories()
{
    static const std::vector<Category> list = {
        {1, "videos", "Videos"},
        {3, "photos", "Photos"},
        {4, "people", "People"},
        {5, "places", "Places"},
        {6, "recently-deleted", "Recently deleted"},
        {7, "favorites", "Favorites"},
        {8, "portrait", "Portrait"},
        {9, "panoramas", "Panoramas"},
        {10, "live-photos", "Live Photos"},
        {11, "time-lapse", "Time-lapse"},
        {12, "screen-recordings", "Screen recordings"},
        {13, "slow-motion", "Slow motion"},
        {14, "animated", "Animated"},
        {15, "memories", "Memories"},
        {16, "bursts", "Bursts"},
        {17, "screenshots", "Screenshots"},
        {18, "selfies", "Selfies"},
        {19, "hidden", "Hidden"},
        {20, "imported", "Imported"},
        {21, "raw", "RAW"},
        {22, "badge-8", "Badge 8"},
        {23, "duplicates", "Duplicates"},
        {24, "cinematic", "Cinematic"},
        {25, "camera-roll", "Camera roll"},
        {26, "shared", "Shared albums"},
        {27, "cloud", "Cloud"},
        {28, "synced", "Synced"},
        {29, "photo-stream", "Photo stream"},
    };
    return list;
}

const Category *findCategory(const QString &nameOrNumber)
{
    bool isNumber = false;
    const int code = nameOrNumber.toInt(&isNumber);
    for (const Category &category : categories()) {
        if (isNumber ? category.code == code
                     : nameOrNumber.compare(QLatin1String(category.name), Qt::CaseInsensitive) == 0)
            return &category;
    }
    return nullptr;
}

QString categoryName(int code)
{
    for (const Category &category : categories()) {
        if (category.code == code)
            return QLatin1String(category.name);
    }
    return QString::number(code);
}

QString categoryTitle(int code)
{
    for (const Category &category : categories()) {
        if (category.code == code)
            return QLatin1String(category.title);
    }
    return QString::number(code);
}

QString allCategoryNames()
{
    QStringList names;
    for (const Category &category : categories())
        names += QLatin1String(category.name);
    return names.join(QStringLiteral(", "));
}

} // namespace photocli
