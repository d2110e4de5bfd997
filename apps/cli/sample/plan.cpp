#include "apps/cli/sample/plan.h"

#include <QLocale>

#include <algorithm>

namespace sample
{

namespace
{

const char *extensionOf(const PlannedAsset &asset)
{
    switch (asset.form) {
    case FileForm::Jpeg:
        break;
    case FileForm::Png:
        return "PNG";
    case FileForm::Gif:
        return "GIF";
    case FileForm::Raw:
        return "DNG";
    case FileForm::Film:
        return "MOV";
    }
    // The cloud keeps what another phone took in the newer format.
    return asset.onDevice ? "JPG" : "HEIC";
}

const char *typeOf(const PlannedAsset &asset)
{
    switch (asset.form) {
    case FileForm::Jpeg:
        break;
    case FileForm::Png:
        return "public.png";
    case FileForm::Gif:
        return "com.compuserve.gif";
    case FileForm::Raw:
        return "com.adobe.raw-image";
    case FileForm::Film:
        return "com.apple.quicktime-movie";
    }
    return asset.onDevice ? "public.jpeg" : "public.heic";
}

// Names files as the source does that they came from; counts on from call to call.
class Namer
{
public:
    void name(PlannedAsset &asset)
    {
        const QString extension = QString::fromLatin1(extensionOf(asset));
        QString &directory = asset.row.directory;
        QString stem = asset.row.uuid;
        switch (asset.origin) {
        case Origin::Camera:
            ++camera;
            directory = QStringLiteral("DCIM/%1APPLE").arg(100 + camera / 1000);
            stem = numbered("IMG_", camera);
            break;
        case Origin::Card:
            directory = QStringLiteral("DCIM/100IMPRT");
            stem = numbered("PICT", ++card);
            break;
        case Origin::Synced:
            directory = QStringLiteral("PhotoData/Sync/100SYNCD");
            stem = numbered("IMG_", ++synced);
            break;
        case Origin::SyncedFolder:
            directory = QStringLiteral("Photos/Wallpapers");
            stem = numbered("Scenery ", ++folder);
            break;
        case Origin::Shared:
            directory = QStringLiteral("PhotoData/PhotoCloudSharingData/17058154511/"
                                       "6D1F0C2E-55B9-4B0D-9C3B-0A4E7F2D8C61/100CLOUD");
            break;
        case Origin::Cloud:
            directory = QStringLiteral("PhotoData/CPLAssets/group%1").arg(123 + cloud++ / 6);
            break;
        case Origin::Stream:
            directory = QStringLiteral("PhotoStreamsData/1705815451/100APPLE");
            stem = numbered("IMG_", ++stream);
            break;
        }
        asset.row.fileName = stem + QLatin1Char('.') + extension;
    }

private:
    static QString numbered(const char *prefix, int number)
    {
        return QString::fromLatin1(prefix) + QStringLiteral("%1").arg(number, 4, 10, QLatin1Char('0'));
    }

    int camera = 870; // so that the camera goes on to its second folder
    int card = 40, synced = 0, folder = 0, cloud = 0, stream = 0;
};

void caption(PlannedAsset &asset)
{
    const QLocale english(QLocale::English, QLocale::UnitedKingdom);
    asset.scene.title = asset.row.fileName;
    const QString date = english.toString(asset.taken.date(), QStringLiteral("d MMMM yyyy"));
    asset.scene.subtitle =
        asset.scene.subtitle.isEmpty() ? date : date + QStringLiteral(" \u00B7 ") + asset.scene.subtitle;
}

} // namespace

QString uuidFrom(Random &random)
{
    QString text;
    for (int i = 0; i < 32; ++i) {
        if (i == 8 || i == 12 || i == 16 || i == 20)
            text += QLatin1Char('-');
        text += QLatin1Char("0123456789ABCDEF"[i == 12 ? 4 : random.below(16)]);
    }
    return text;
}

QDateTime timeOf(const QDate &date, Hour hour, int minute)
{
    const int start = hour == Hour::Dawn ? 6 : hour == Hour::Day ? 10 : hour == Hour::Dusk ? 18 : 21;
    return QDateTime(date, QTime(start, 0), Qt::UTC).addSecs(60 * minute + minute * 7 % 60);
}

bool PlanBuilder::hasColumn(const char *name) const
{
    return !testkit::missingOptionalColumns(era).contains(QLatin1String(name));
}

PlannedAsset &PlanBuilder::photo(Motif motif, Hour hour, const QDateTime &taken, const Place &place)
{
    PlannedAsset asset;
    asset.scene.motif = motif;
    asset.scene.hour = hour;
    asset.scene.seed = static_cast<quint32>(random.next() >> 40);
    asset.scene.subtitle = QString::fromUtf8(place.name);
    asset.taken = taken;
    const double created = static_cast<double>(QDateTime(QDate(2001, 1, 1), QTime(0, 0), Qt::UTC).secsTo(taken)) -
                           place.hoursFromUtc * 3600 + random.below(1000) / 1000.0;
    asset.row.uuid = uuidFrom(random);
    asset.row.dateCreated = created;
    asset.row.addedDate = created + 1;
    asset.row.modificationDate = created + 2 + random.below(600);
    // A place without coordinates is one that the phone did not know.
    if (place.latitude > -180) {
        asset.row.latitude = place.latitude + random.between(-0.0004, 0.0004);
        asset.row.longitude = place.longitude + random.between(-0.0004, 0.0004);
    }
    plan.assets.append(asset);
    return plan.assets.last();
}

PlannedAsset &PlanBuilder::film(Motif motif, Hour hour, const QDateTime &taken, const Place &place, int frames)
{
    PlannedAsset &asset = photo(motif, hour, taken, place);
    asset.form = FileForm::Film;
    asset.shown = QSize(480, 270);
    asset.frames = frames;
    asset.row.kind = 1;
    asset.row.duration = static_cast<double>(frames) / asset.framesPerSecond;
    return asset;
}

PlannedAlbum &PlanBuilder::album(const QString &title, AlbumKind kind, const QString &parent)
{
    PlannedAlbum album;
    album.row.title = title;
    album.kind = kind;
    album.row.uuid = uuidFrom(random);
    album.tag = title;
    album.parent = parent;
    plan.albums.append(album);
    return plan.albums.last();
}

Plan makePlan(testkit::Era era)
{
    Plan plan;
    PlanBuilder builder{plan, era};
    plan.libraryUuid = uuidFrom(builder.random);
    plan.currentLibraryUuid = uuidFrom(builder.random);
    planTrips(builder);
    planHome(builder);
    planFilms(builder);
    planSpecialKinds(builder);
    planOtherOrigins(builder);
    planAlbums(builder);

    std::stable_sort(plan.assets.begin(), plan.assets.end(), [](const PlannedAsset &a, const PlannedAsset &b) {
        return *a.row.dateCreated < *b.row.dateCreated;
    });
    Namer namer;
    for (int i = 0; i < plan.assets.size(); ++i) {
        PlannedAsset &asset = plan.assets[i];
        namer.name(asset);
        caption(asset);
        asset.row.uniformTypeIdentifier = QString::fromLatin1(typeOf(asset));
        asset.row.key = i + 1;
        asset.row.thumbnailIndex = i;
        asset.selfContained = !asset.onDevice || i % 5 != 4;
    }
    // The newest picture has not got its place in the containers yet.
    plan.assets.last().row.thumbnailIndex = -1;
    plan.assets.last().selfContained = true;
    return plan;
}

} // namespace sample
