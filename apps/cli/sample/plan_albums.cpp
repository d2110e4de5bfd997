#include "apps/cli/sample/plan.h"

namespace sample
{

namespace
{

void addMemory(PlanBuilder &builder, const char *title, const char *subtitle, const char *tag, int favorite)
{
    PlannedMemory memory;
    memory.row.title = title == nullptr ? QString() : QString::fromUtf8(title);
    memory.row.subtitle = subtitle == nullptr ? QString() : QString::fromUtf8(subtitle);
    memory.row.favorite = favorite;
    memory.tag = QString::fromLatin1(tag);
    builder.plan.memories.append(memory);
}

} // namespace

void planAlbums(PlanBuilder &builder)
{
    const QString travel = QStringLiteral("Travel"), europe = QStringLiteral("Europe");
    builder.album(travel, Folder);
    builder.album(europe, Folder, travel);
    for (const char *title : {"Iceland", "Paris", "Amsterdam", "The Alps"})
        builder.album(QString::fromLatin1(title), UserAlbum, europe);
    for (const char *title : {"New York", "San Francisco", "Kyoto", "Cappadocia", "Cape Town"})
        builder.album(QString::fromLatin1(title), UserAlbum, travel);
    for (const char *title : {"Family", "Birthdays", "The cat", "Garden", "Films", "Best of the best", "To print"})
        builder.album(QString::fromLatin1(title), UserAlbum);
    builder.album(QStringLiteral("Old ideas"), UserAlbum).row.trashedState = 1;
    for (const char *title : {"From the computer", "Wallpapers"})
        builder.album(QString::fromLatin1(title), SyncedAlbum);

    PlannedAlbum &shared = builder.album(QStringLiteral("Summer party"), SharedAlbum);
    shared.row.columns[QStringLiteral("ZCLOUDGUID")] = "6D1F0C2E-55B9-4B0D-9C3B-0A4E7F2D8C61";
    shared.row.columns[QStringLiteral("ZCLOUDPERSONID")] = "17058154511";
    builder.album(QStringLiteral("import session"), ImportSession).row.title = QString();
    if (builder.hasColumn("ZDUPLICATEASSETVISIBILITYSTATE"))
        for (const char *tag : {"duplicates 0", "duplicates 1"})
            builder.album(QString::fromLatin1(tag), DuplicateSet).row.title = QString();

    addMemory(builder, "Northern lights", "September 2019", "Iceland", 1);
    addMemory(builder, "Cherry blossom", "Spring in Kyoto", "Kyoto", 0);
    addMemory(builder, "Above the clouds", "January 2024", "The Alps", 0);
    addMemory(builder, "Purrfect days", nullptr, "The cat", 1);
    addMemory(builder, "Happy birthday!", "Through the years", "Birthdays", 0);
    addMemory(builder, nullptr, "On this day", "Paris", 0);
}

} // namespace sample
