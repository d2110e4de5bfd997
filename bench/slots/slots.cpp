// slots: what single calls cost on an open library. bench/run sets BENCH_DEVICE, and BENCH_MEDIA with files to read.

#include "devicehost/device_host.h"
#include "photolib/photolib.h"

#include <QByteArray>
#include <QString>

#include <benchmark/benchmark.h>

#include <cstdlib>
#include <memory>

namespace
{

struct Release {
    void operator()(photo_manager_int *manager) const { releasePhotolib(&manager); }
};

class Library
{
public:
    explicit Library(const char *variable)
        : host(QStringLiteral("folder:") + QString::fromLocal8Bit(qgetenv(variable))), manager(getPhotolib(&host)),
          opened(manager != nullptr && manager->openLibrary())
    {
        if (opened)
            photos = manager->getPhotoList();
    }

    devicehost::DeviceHost host;
    std::unique_ptr<photo_manager_int, Release> manager;
    bool opened;
    QList<qint64> photos;
};

Library &shared()
{
    static Library library("BENCH_DEVICE");
    return library;
}

Library &media()
{
    static Library library("BENCH_MEDIA");
    return library;
}

bool isUsable(const Library &library, benchmark::State &state)
{
    if (!library.opened || library.photos.isEmpty())
        state.SkipWithError("the library cannot be opened");
    return library.opened && !library.photos.isEmpty();
}

void getPhotoItem(benchmark::State &state)
{
    Library &library = shared();
    if (!isUsable(library, state))
        return;
    photoItem item;
    int next = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(library.manager->getPhotoItem(&library.photos[next], &item));
        next = (next + 7919) % library.photos.size(); // neighbours would lie in the same cache lines
    }
}
BENCHMARK(getPhotoItem);

void getPhotoList(benchmark::State &state)
{
    Library &library = shared();
    if (!isUsable(library, state))
        return;
    for (auto _ : state)
        benchmark::DoNotOptimize(library.manager->getPhotoList());
    state.SetItemsProcessed(state.iterations() * library.photos.size());
}
BENCHMARK(getPhotoList);

// Album items and groups share the lists of the library: the time must not grow with the members.
void getAlbumItemOfHalfOfAllPhotos(benchmark::State &state)
{
    Library &library = shared();
    if (!isUsable(library, state))
        return;
    albumItem largest;
    for (const qint64 id : library.manager->getAlbumList()) {
        albumItem album;
        library.manager->getAlbumItem(&id, &album);
        if (album.photoIds.size() >= largest.photoIds.size())
            largest = album;
    }
    albumItem item;
    for (auto _ : state)
        benchmark::DoNotOptimize(library.manager->getAlbumItem(&largest.id, &item));
}
BENCHMARK(getAlbumItemOfHalfOfAllPhotos);

void getPhotoGroupOfTheCameraRoll(benchmark::State &state)
{
    Library &library = shared();
    if (!isUsable(library, state))
        return;
    const QString key = QStringLiteral("0");
    for (auto _ : state)
        benchmark::DoNotOptimize(library.manager->getPhotoGroup(25, key));
}
BENCHMARK(getPhotoGroupOfTheCameraRoll);

void getGroupKeysOfPlaces(benchmark::State &state)
{
    Library &library = shared();
    if (!isUsable(library, state))
        return;
    int keys = 0;
    for (auto _ : state)
        keys = library.manager->getGroupKeys(5).size();
    state.SetItemsProcessed(state.iterations() * keys);
}
BENCHMARK(getGroupKeysOfPlaces);

// Each iteration has a library of its own, as it is used up.
void addKnownPhotosToOneAlbum(benchmark::State &state)
{
    Library library("BENCH_DEVICE");
    if (!isUsable(library, state))
        return;
    for (auto _ : state) {
        albumItem album;
        album.trashedState = 0;
        library.manager->createAlbum(&album);
        photoItem photo;
        for (int i = 0; i < state.range(0); ++i) {
            photo.id = library.photos[i % library.photos.size()];
            library.manager->addPhotoToAlbum(&photo, &album);
        }
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(addKnownPhotosToOneAlbum)->Arg(1000)->Arg(10000)->Iterations(3)->Unit(benchmark::kMillisecond);

void addNewPhotosToOneAlbum(benchmark::State &state)
{
    Library library("BENCH_DEVICE");
    if (!isUsable(library, state))
        return;
    for (auto _ : state) {
        albumItem album;
        album.trashedState = 0;
        library.manager->createAlbum(&album);
        for (int i = 0; i < state.range(0); ++i) {
            photoItem photo;
            library.manager->addPhotoToAlbum(&photo, &album);
        }
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(addNewPhotosToOneAlbum)->Arg(1000)->Arg(10000)->Iterations(1)->Unit(benchmark::kMillisecond);

void deletePhotos(benchmark::State &state)
{
    Library library("BENCH_SYNCED");
    if (!isUsable(library, state))
        return;
    const auto count = std::min<std::int64_t>(state.range(0), library.photos.size());
    for (auto _ : state) {
        for (std::int64_t i = 0; i < count; ++i) // from everywhere, and each once: 7919 is prime
            library.manager->deletePhoto(&library.photos[static_cast<int>(i * 7919 % library.photos.size())]);
    }
    state.SetItemsProcessed(count);
}
BENCHMARK(deletePhotos)->Arg(10000)->Arg(100000)->Iterations(1)->Unit(benchmark::kMillisecond);

void readPhotoFile(benchmark::State &state)
{
    Library &library = media();
    if (!isUsable(library, state))
        return;
    QByteArray bytes;
    std::int64_t total = 0;
    for (auto _ : state) {
        if (library.manager->readPhotoFile(&library.photos.first(), &bytes) != 1)
            state.SkipWithError("the file cannot be read");
        total += bytes.size();
    }
    state.SetBytesProcessed(total);
}
BENCHMARK(readPhotoFile)->Unit(benchmark::kMillisecond);

// The first photo of BENCH_MEDIA has a JPEG file as its thumbnail, the second none but a frame.
void getThumbnail(benchmark::State &state)
{
    Library &library = media();
    if (!isUsable(library, state))
        return;
    const qint64 id = library.photos[static_cast<int>(state.range(0))];
    std::int64_t total = 0;
    for (auto _ : state) {
        QByteArray bytes;
        if (library.manager->getThumbnail(&id, &bytes) != 0 || bytes.isEmpty())
            state.SkipWithError("the thumbnail cannot be read");
        total += bytes.size();
    }
    state.SetBytesProcessed(total);
}
BENCHMARK(getThumbnail)->ArgName("fromFrame")->Arg(0)->Arg(1);

} // namespace

BENCHMARK_MAIN();
