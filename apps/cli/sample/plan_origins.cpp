#include "apps/cli/sample/plan.h"

namespace sample
{

namespace
{

void planCardAndComputer(PlanBuilder &builder)
{
    const Motif card[] = {Motif::Forest, Motif::Hills, Motif::Sea, Motif::Flower};
    for (int i = 0; i < 8; ++i) {
        PlannedAsset &imported = builder.photo(card[i % 4], i % 3 == 0 ? Hour::Dawn : Hour::Day,
                                               timeOf(QDate(2023, 6, 10), Hour::Day, 14 * i), nowhere);
        imported.origin = Origin::Card;
        imported.tags << QStringLiteral("import session");
    }
    for (int i = 0; i < 8; ++i) {
        PlannedAsset &synced =
            builder.photo(i % 2 == 0 ? Motif::Group : Motif::Portrait, i % 2 == 0 ? Hour::Dawn : Hour::Day,
                          timeOf(QDate(2018, 12, 24), Hour::Day, 12 * i), nowhere);
        synced.origin = Origin::Synced;
        synced.scene.person = i % 6;
        synced.tags << QStringLiteral("From the computer");
    }
    for (int i = 0; i < 3; ++i) {
        PlannedAsset &wallpaper =
            builder.photo(i == 0 ? Motif::Aurora : Motif::Desert, i == 0 ? Hour::Night : Hour::Dusk,
                          timeOf(QDate(2019, 1, 5 + i), Hour::Day, 5), nowhere);
        wallpaper.origin = Origin::SyncedFolder;
        wallpaper.tags << QStringLiteral("Wallpapers");
    }
}

void planClouds(PlanBuilder &builder)
{
    const Motif party[] = {Motif::Meadow, Motif::Group, Motif::Cake, Motif::Sea};
    for (int i = 0; i < 8; ++i) {
        PlannedAsset &shared = builder.photo(party[i % 4], i % 4 == 3 ? Hour::Dusk : Hour::Day,
                                             timeOf(QDate(2022, 7, 16), Hour::Day, 20 * i), home);
        shared.origin = Origin::Shared;
        shared.scene.person = i % 4;
        shared.tags << QStringLiteral("Summer party");
        shared.row.visibilityState = 2;
        shared.row.columns[QStringLiteral("ZSAVEDASSETTYPE")] = 4;
        shared.row.columns[QStringLiteral("ZMODIFICATIONDATE")] = testkit::SqlValue();
    }
    const Motif kept[] = {Motif::Skyline, Motif::Blossom, Motif::Hills, Motif::Coffee};
    for (int i = 0; i < 12; ++i) {
        PlannedAsset &cloud = builder.photo(kept[i % 4], i % 4 == 0 ? Hour::Night : Hour::Day,
                                            timeOf(QDate(2024, 4, 1).addDays(5 * i), Hour::Day, 6 * i), home);
        cloud.origin = Origin::Cloud;
        cloud.onDevice = i % 2 == 0; // the others were moved out to the cloud to save room
        cloud.row.cloudLocalState = 1;
        cloud.row.columns[QStringLiteral("ZSAVEDASSETTYPE")] = 6;
        if (builder.hasColumn("ZLOCALRESOURCESSTATE"))
            cloud.row.columns[QStringLiteral("ZLOCALRESOURCESSTATE")] =
                cloud.onDevice ? qint64(32) : qint64(17179869216);
    }
    for (int i = 0; i < 5; ++i)
        builder
            .photo(i % 2 == 0 ? Motif::Cat : Motif::Flower, Hour::Day, timeOf(QDate(2019, 11, 2 + i), Hour::Day, 30),
                   nowhere)
            .origin = Origin::Stream;
}

} // namespace

void planOtherOrigins(PlanBuilder &builder)
{
    planCardAndComputer(builder);
    planClouds(builder);
}

} // namespace sample
