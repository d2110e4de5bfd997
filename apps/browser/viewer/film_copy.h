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
    std::shared_ptr<devicehost::PrivateFolder> folder; ///< holds a copy; null where the file itself can be opened
};

/// Brings a film to this computer: in a folder that nobody else can read. Where the device is a folder of this
/// computer, the answer is the file in it. The name that a player gets ends like that of a film, whatever the device
/// calls it. Blocks; any thread. Throws std::bad_alloc.
Film fetchFilm(OpenedLibrary &library, qint64 id, FilmPart part, const CopyProgress &progress);

} // namespace browser

#endif
