#include "apps/cli/sample/plan.h"

namespace sample
{

namespace
{

// Every year a birthday: the group, everybody alone, and the cake.
void planBirthdays(PlanBuilder &builder)
{
    for (int year = 0; year < 5; ++year) {
        const QDate date(2020 + year, 8, 9);
        const auto at = [&date](int minute) { return timeOf(date, Hour::Dusk, minute); };
        PlannedAsset &group = builder.photo(Motif::Group, Hour::Dusk, at(5), home);
        group.scene.person = year % 4;
        group.people = {year % 4, year % 4 + 1, year % 4 + 2};
        group.tags << QStringLiteral("Family") << QStringLiteral("Birthdays");
        for (int person = 0; person < 2; ++person) {
            PlannedAsset &portrait = builder.photo(Motif::Portrait, Hour::Day, at(12 + 6 * person), home);
            portrait.scene.person = (year + person * 2) % 6;
            portrait.people = {portrait.scene.person};
            portrait.shown = QSize(480, 640);
            portrait.row.orientation = person == 0 ? 6 : 1;
            portrait.row.depthType = person == 0 ? 1 : 0;
            portrait.tags << QStringLiteral("Family") << QStringLiteral("Birthdays");
        }
        PlannedAsset &cake = builder.photo(Motif::Cake, year % 2 == 0 ? Hour::Night : Hour::Day, at(30), home);
        cake.tags << QStringLiteral("Birthdays");
        cake.row.favorite = year % 2;
    }
}

void planSelfies(PlanBuilder &builder)
{
    for (int i = 0; i < 7; ++i) {
        const Hour hour = i % 3 == 0 ? Hour::Dusk : Hour::Day;
        PlannedAsset &selfie =
            builder.photo(Motif::Portrait, hour, timeOf(QDate(2021 + i / 2, 3 + i, 11), hour, 7 * i), home);
        selfie.scene.person = i % 2 == 0 ? 0 : i % 6;
        selfie.people = {selfie.scene.person};
        selfie.shown = QSize(480, 640);
        selfie.row.cameraDevice = 1;
        selfie.row.orientation = 6;
    }
}

void planPetsAndGarden(PlanBuilder &builder)
{
    for (int i = 0; i < 10; ++i) {
        PlannedAsset &cat =
            builder.photo(Motif::Cat, i % 4 == 3 ? Hour::Dusk : Hour::Day,
                          timeOf(QDate(2020, 10, 4).addDays(137 * i), Hour::Day, 3 * i), i % 3 == 0 ? nowhere : home);
        cat.tags << QStringLiteral("The cat");
        cat.row.favorite = i % 3 == 1;
    }
    const Motif grown[] = {Motif::Flower, Motif::Meadow, Motif::Blossom, Motif::Flower};
    for (int i = 0; i < 10; ++i) {
        PlannedAsset &flower =
            builder.photo(grown[i % 4], Hour::Day, timeOf(QDate(2020, 5, 2).addDays(165 * i), Hour::Day, 11 * i), home);
        flower.tags << QStringLiteral("Garden");
        if (i % 4 == 0)
            flower.shown = QSize(480, 480);
    }
    for (int i = 0; i < 3; ++i)
        builder.photo(Motif::Coffee, Hour::Day, timeOf(QDate(2022, 1, 15).addDays(190 * i), Hour::Day, 20), nowhere);
}

} // namespace

void planHome(PlanBuilder &builder)
{
    planBirthdays(builder);
    planSelfies(builder);
    planPetsAndGarden(builder);
}

} // namespace sample
