#ifndef EXPORTER_ALBUM_FOLDERS_H
#define EXPORTER_ALBUM_FOLDERS_H

#include "exporter/photo_export.h"

#include <vector>

class photo_manager_int;
struct albumItem;

namespace exporter
{

/// Folders "Albums/TITLE" with links to the exported files, named POSITION_NAME. Links of an earlier run that are not
/// wanted any more are removed, when they are still as they were made; everything else in the folders is left alone.
/// The folder of an album that the device has no longer stays as it is: it may be of another device.
class AlbumFolders
{
public:
    AlbumFolders(RunTools &runTools, photo_manager_int &library) : tools(runTools), manager(library) {}

    /// Brings all albums up to date. Throws RunEnded.
    void update();

private:
    /// One link as it should be. Files of one photo share the prefix.
    struct Wanted {
        StoredFile file;
        QString prefix;        ///< "007_"
        bool available = true; ///< false: the exported file is not as it was; a link that is there stays
        bool exists = false;
    };

    /// A link that is not wanted any more.
    struct Stale {
        StoredEntry entry;
        bool asMade; ///< nobody has changed or replaced it
    };

    void updateAlbum(const albumItem &album);
    std::vector<Wanted> wantedOf(const albumItem &album);
    StoredAlbum placeOf(const albumItem &album);
    QString freeFolder(const QString &title);
    bool isFreeFolder(const QString &folder);
    /// Marks those of `wanted` that exist, and removes entries that are not wanted.
    void removeStale(const StoredAlbum &album, std::vector<Wanted> &wanted);
    void removeEntries(const std::vector<Stale> &stale);
    bool isAsMade(const StoredEntry &entry);
    void addMissing(const StoredAlbum &album, const std::vector<Wanted> &wanted);
    bool choosePaths(const QString &folder, std::vector<StoredEntry> &group, const std::vector<const Wanted *> &files,
                     int number);
    void makeEntry(StoredEntry &entry, const StoredFile &file);

    RunTools &tools;
    photo_manager_int &manager;
    NumberedNames folders;
};

/// Whether people see this album on the device and it has a name.
bool isAlbumForPeople(const albumItem &album);

} // namespace exporter

#endif
