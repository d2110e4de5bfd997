// A host that loads the library at run time and finds its factory by the decorated name, as an application with
// plug-ins does. It was built with the library's headers: classes and records must be the same on both sides.
// Usage: plugin-host LIBRARY DEVICE

#include "loaded_library.h"

#include <devicehost/device_host.h>
#include <devicehost/log_sink.h>
#include <photolib/photolib.h>

#include <QFileInfo>
#include <QString>

#include <cstdio>

namespace
{

bool failed(const char *what, const QString &reason = QString())
{
    std::fprintf(stderr, "%s %s\n", what, qUtf8Printable(reason));
    return false;
}

// photoGroup is all in its header, so the program makes its own.
void printGroups(photo_manager_int &manager)
{
    for (int category = 1; category <= 29; ++category) {
        for (const QString &key : manager.getGroupKeys(category)) {
            const photoGroup group = manager.getPhotoGroup(category, key);
            std::printf("category %d, group %s: %d photos%s%s\n", category, qUtf8Printable(key),
                        int(group.assetIds.size()), group.title.isEmpty() ? "" : ", ", qUtf8Printable(group.title));
        }
    }
}

bool makeAlbum(const LoadedLibrary &library, photo_manager_int &manager)
{
    const QList<qint64> photos = manager.getPhotoList();
    if (photos.isEmpty())
        return failed("There is no photo to put into an album.");

    LoadedRecord<albumItem> album(library, "9albumItem");
    album->title = QStringLiteral("Made by an example");
    album->trashedState = 0;
    if (manager.createAlbum(album.get()) != 0)
        return failed("The album cannot be made.");
    LoadedRecord<photoItem> photo(library, "9photoItem");
    if (!manager.getPhotoItem(&photos.first(), photo.get()))
        return failed("The photo cannot be read.");
    if (manager.addPhotoToAlbum(photo.get(), album.get()) != 0)
        return failed("The photo cannot be put into the album.");

    LoadedRecord<albumItem> stored(library, "9albumItem");
    if (!manager.getAlbumItem(&album->id, stored.get()) || stored->id != album->id)
        return failed("The album is not in the library.");
    std::printf("new album \"%s\": %d photo, %s\n", qUtf8Printable(stored->title), int(stored->photoIds.size()),
                qUtf8Printable(photo->fileName));
    return stored->photoIds == QList<qint64>{photo->id} || failed("The album holds something else.");
}

bool use(const LoadedLibrary &library, photo_manager_int &manager)
{
    if (!manager.openLibrary())
        return failed("The library cannot be opened.");
    std::printf("library %s: %d photos, %d albums\n", qUtf8Printable(manager.getLibraryUuid()), manager.getPhotoCount(),
                manager.getAlbumCount());
    printGroups(manager);
    return makeAlbum(library, manager);
}

bool run(const LoadedLibrary &library, devicehost::DeviceHost &device)
{
    photo_manager_int *manager = library.getPhotolib(&device);
    if (!manager)
        return failed("The device cannot be reached:", device.failure());
    const bool good = use(library, *manager);
    library.releasePhotolib(&manager);
    if (!device.failure().isEmpty())
        failed("The device had trouble:", device.failure());
    return good;
}

} // namespace

int main(int argc, char **argv)
{
    if (argc != 3) {
        std::fprintf(stderr, "usage: %s LIBRARY DEVICE\n", argv[0]);
        return 2;
    }
    const LoadedLibrary library(argv[1]);
    if (!library.error().empty()) {
        std::fprintf(stderr, "%s\n", library.error().c_str());
        return 1;
    }
    devicehost::setLogListener(
        [](const devicehost::LogLine &line) { std::fprintf(stderr, "log: %s\n", qUtf8Printable(line.message)); });
    // devicehost is told the kind of the device: this one is a folder.
    const QString folder = QFileInfo(QString::fromUtf8(argv[2])).absoluteFilePath();
    devicehost::DeviceHost device(QStringLiteral("folder:") + folder);
    return run(library, device) ? 0 : 1;
}
