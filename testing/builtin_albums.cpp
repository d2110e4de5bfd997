#include "testing/builtin_albums.h"

namespace testkit
{

namespace
{

int entityOfKind(const EraFacts &facts, int kind)
{
    switch (kind) {
    case 1505:
        return facts.cloudSharedAlbum;
    case 1506:
        return facts.importSession;
    case 1507:
    case 1552:
        return facts.fetchingAlbum;
    case 1508:
        return facts.projectAlbum;
    case 1509:
        return facts.conversation;
    case 1510:
        return facts.duplicateAlbum;
    case 3998:
    case 3999:
    case 4000:
    case 4004:
    case 4005:
    case 4006:
        return facts.folder;
    default:
        return kind >= 1600 && kind <= 1699 ? facts.fetchingAlbum : facts.album;
    }
}

} // namespace

QVector<BuiltinAlbum> builtinAlbumsOf(Era era)
{
    QVector<BuiltinAlbum> albums{{3998, {}},
                                 {3999, {}},
                                 {3571, QStringLiteral("progress-sync")},
                                 {3572, QStringLiteral("progress-ota-restore")},
                                 {3573, QStringLiteral("progress-fs-import")},
                                 {1552, {}},
                                 {1600, {}},
                                 {1602, {}}};
    for (int kind = 1605; kind <= 1628; ++kind)
        albums.append(BuiltinAlbum{kind, {}});
    for (int kind = 4001; kind <= 4006; ++kind)
        albums.append(BuiltinAlbum{kind, {}});
    const auto later = [&](int kind, Era first, Era last = Era::Ios26) {
        if (first <= era && era <= last)
            albums.append(BuiltinAlbum{kind, {}});
    };
    later(1630, Era::Ios15);
    later(1631, Era::Ios15);
    later(1632, Era::Ios15);
    later(1629, Era::Ios16, Era::Ios16);
    later(1634, Era::Ios16);
    later(1636, Era::Ios16);
    later(1637, Era::Ios16);
    later(1639, Era::Ios17);
    later(1640, Era::Ios18);
    later(1641, Era::Ios18);
    later(1642, Era::Ios26);
    return albums;
}

int albumEntityOf(Era era, int kind)
{
    const EraFacts &facts = factsOf(era);
    const int entity = entityOfKind(facts, kind);
    return entity == 0 ? facts.album : entity;
}

} // namespace testkit
