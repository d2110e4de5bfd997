#ifndef APPS_CLI_SAMPLE_PLAN_H
#define APPS_CLI_SAMPLE_PLAN_H

#include "apps/cli/sample/random.h"
#include "apps/cli/sample/scene.h"
#include "testing/era.h"
#include "testing/library_rows.h"

#include <QDateTime>
#include <QStringList>
#include <QVector>

namespace sample
{

enum class FileForm { Jpeg, Png, Gif, Raw, Film };

/// Where a picture was taken.
struct Place {
    const char *name;
    double latitude;
    double longitude;
    int hoursFromUtc;
};

inline constexpr Place home{"Cambridge", 52.2053, 0.1218, 0};
inline constexpr Place nowhere{"", -180, -180, 0};

enum class Origin { Camera, Card, Synced, SyncedFolder, Shared, Cloud, Stream };

/// One asset: what it shows, the files that it has, and its row. The writer of the media fills in sizes in pixels and
/// bytes, so that the database tells the truth about the files.
struct PlannedAsset {
    testkit::AssetRow row;
    Scene scene;
    Origin origin = Origin::Camera;
    FileForm form = FileForm::Jpeg;
    QSize shown{640, 480}; ///< upright pixels
    QDateTime taken;       ///< local time of the place
    int frames = 0;        ///< of a film, a Live Photo's film or an animation
    int framesPerSecond = 10;
    bool onDevice = true;      ///< false: only its thumbnail was fetched from the cloud
    bool edited = false;       ///< has a rendered edit beside the original
    bool selfContained = true; ///< false: its thumbnail is only in the shared containers
    QStringList tags;          ///< names of the albums and memories that it is in
    QVector<int> people;       ///< whose faces were found in it
};

/// What an album is to the device, by the numbers of its ZKIND.
enum AlbumKind {
    UserAlbum = 2,
    SharedAlbum = 1505,
    ImportSession = 1506,
    DuplicateSet = 1510,
    SyncedAlbum = 1550,
    Folder = 4000,
};

struct PlannedAlbum {
    AlbumKind kind = UserAlbum;
    testkit::AlbumRow row; ///< its kind is set when it is written
    QString tag;           ///< its members have it
    QString parent;        ///< tag of the folder that holds it, empty: the root
};

struct PlannedMemory {
    testkit::MemoryRow row;
    QString tag;
};

struct Plan {
    QVector<PlannedAsset> assets; ///< in the order of their keys, from 1
    QVector<PlannedAlbum> albums; ///< a folder before what it holds
    QVector<PlannedMemory> memories;
    QString libraryUuid;        ///< of the database
    QString currentLibraryUuid; ///< of the synchronisation marker
};

/// The whole made-up library as far as `era` has columns for it. Always the same for one era.
Plan makePlan(testkit::Era era);

QString uuidFrom(Random &random);

/// What the themes below share while a plan is made.
struct PlanBuilder {
    Plan &plan;
    testkit::Era era;
    Random random{20240229};

    /// Adds a photo that was taken at that local time; the reference is valid until the next call.
    PlannedAsset &photo(Motif motif, Hour hour, const QDateTime &taken, const Place &place);
    PlannedAsset &film(Motif motif, Hour hour, const QDateTime &taken, const Place &place, int frames);
    /// Adds an album that holds the assets with its title as tag.
    PlannedAlbum &album(const QString &title, AlbumKind kind, const QString &parent = QString());
    bool hasColumn(const char *name) const;
};

/// The time of day at which a picture looks right.
QDateTime timeOf(const QDate &date, Hour hour, int minute);

/// One theme each.
void planTrips(PlanBuilder &builder);
void planHome(PlanBuilder &builder);
void planFilms(PlanBuilder &builder);
void planSpecialKinds(PlanBuilder &builder);
void planOtherOrigins(PlanBuilder &builder);
void planAlbums(PlanBuilder &builder);

} // namespace sample

#endif
