#ifndef APPS_BROWSER_EXPORTING_DRAG_FOLDER_H
#define APPS_BROWSER_EXPORTING_DRAG_FOLDER_H

#include "devicehost/private_folder.h"

#include <QString>

#include <chrono>

namespace browser
{

/// A private folder with copies for another program, which may read them long after a drop. Once the object is gone,
/// what was lent() stays for a while: the longer the more it is, a quarter of an hour at least. Then it is removed on a
/// thread of its own; by the end of the program at the latest. What was not lent goes with the object.
///
/// One thread at a time. The destructor of a folder that was not lent removes files: not for the user-interface thread.
class DragFolder
{
public:
    DragFolder();
    ~DragFolder();
    DragFolder(const DragFolder &) = delete;
    DragFolder &operator=(const DragFolder &) = delete;

    /// With a trailing "/"; empty when it could not be made.
    QString path() const { return QString::fromUtf8(folder.path()); }

    /// From now on another program may read it. `bytes`: of all files in it.
    void lend(qint64 bytes);

private:
    devicehost::PrivateFolder folder;
    bool isLent = false;
    std::chrono::seconds stay{0};
};

/// Removes the folders whose time is over at `now`. Blocks; any thread.
void removeDragFolders(std::chrono::steady_clock::time_point now);

} // namespace browser

#endif
