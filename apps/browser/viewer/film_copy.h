#ifndef APPS_BROWSER_VIEWER_FILM_COPY_H
#define APPS_BROWSER_VIEWER_FILM_COPY_H

#include "apps/browser/library/opened_library.h"
#include "apps/browser/media/device_copy.h"

namespace devicehost
{
class PrivateFolder;
}

namespace browser
{

/// Which film of a photo.
enum class FilmPart {
    Original, ///< the video itself
    Live,     ///< what a Live Photo shows when it moves
};

/// A film as a file of this computer, for a player.
struct Film {
    CopyEnd state = CopyEnd::Absent;
    QString reason;                                    ///< for ReadFailed and CannotWrite; may be empty
    QString path;                                      ///< for Complete
    std::shared_ptr<devicehost::PrivateFolder> folder; ///< holds the film, and is removed in the background
};

/// Copies a film to this computer, into a folder that nobody else can read: no other program gets a file of a device,
/// which it might change, not even of one that is a folder of this computer. The name that a player gets ends like that
/// of a film, whatever the device calls it. Blocks; any thread. Throws std::bad_alloc.
Film fetchFilm(OpenedLibrary &library, qint64 id, FilmPart part, const CopyProgress &progress);

} // namespace browser

#endif
