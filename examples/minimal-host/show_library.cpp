// What a program does with photolib, whoever its host is.

#include "show_library.h"

#include <photolib/photolib.h>

#include <cstdio>

namespace
{

bool failed(const char *what)
{
    std::fprintf(stderr, "%s\n", what);
    return false;
}

// Groups have a category, which is a number, and a key inside it: category 4 is people, and has a key for each person.
// photoGroup::category says which; the codes run from 1 to 29 in this release.
void printGroups(photo_manager_int &library)
{
    for (int category = 1; category <= 29; ++category) {
        for (const QString &key : library.getGroupKeys(category)) {
            const photoGroup group = library.getPhotoGroup(category, key);
            std::printf("category %d, group %s: %d photos%s%s\n", category, qUtf8Printable(key),
                        int(group.assetIds.size()), group.title.isEmpty() ? "" : ", ", qUtf8Printable(group.title));
        }
    }
}

// Edits change what the library answers from memory. The device is not touched: writing is the program's own business,
// which finds in the items what it needs for it.
bool makeAlbum(photo_manager_int &library)
{
    const QList<qint64> photos = library.getPhotoList();
    if (photos.isEmpty())
        return failed("There is no photo to put into an album.");

    albumItem album;
    album.title = QStringLiteral("Made by an example");
    album.trashedState = 0; // the only field that the constructor leaves unset
    if (library.createAlbum(&album) != 0)
        return failed("The album cannot be made.");

    // A photo whose id is 0 would be created; this one is in the library already.
    photoItem photo;
    if (!library.getPhotoItem(&photos.first(), &photo))
        return failed("The photo cannot be read.");
    if (library.addPhotoToAlbum(&photo, &album) != 0)
        return failed("The photo cannot be put into the album.");

    // An unknown id leaves the item as it was, so ask for an item of your own and look at what came.
    albumItem stored;
    if (!library.getAlbumItem(&album.id, &stored) || stored.id != album.id)
        return failed("The album is not in the library.");
    std::printf("new album \"%s\": %d photo, %s\n", qUtf8Printable(stored.title), int(stored.photoIds.size()),
                qUtf8Printable(photo.fileName));
    return stored.photoIds == QList<qint64>{photo.id} || failed("The album holds something else.");
}

bool use(photo_manager_int &library)
{
    // Copies the device's database and reads it. Everything is answered from memory afterwards.
    if (!library.openLibrary())
        return failed("The library cannot be opened; the lines above say why.");
    std::printf("library %s: %d photos, %d albums\n", qUtf8Printable(library.getLibraryUuid()), library.getPhotoCount(),
                library.getAlbumCount());
    printGroups(library);
    return makeAlbum(library);
}

} // namespace

bool showLibrary(IIPod *device)
{
    photo_manager_int *library = getPhotolib(device);
    if (!library)
        return failed("The device cannot be reached.");
    const bool good = use(*library);
    releasePhotolib(&library); // what getPhotolib() made goes back to it, before the device object goes
    return good;
}
