#ifndef DEVICEHOST_VDEV_PATH_TREE_H
#define DEVICEHOST_VDEV_PATH_TREE_H

#include "devicehost/vdev/unique_fd.h"
#include "devicehost/vdev/verror.h"

#include <sys/types.h>

namespace devicehost
{

/// What becomes of symbolic links below the folder of a confined tree.
enum class Links {
    Within,  ///< followed inside the folder only, or not at all where the kernel cannot confine them
    Refused, ///< never followed: a name that goes over one cannot be opened
};

/// Names that can be opened: those below one folder, or all that this process sees.
///
/// A confined tree never leads outside its folder, whatever the name says and whatever symbolic links the folder
/// holds: ".." is refused, and links are followed inside the folder only, or not at all where the kernel cannot
/// confine them. Several threads may use one tree at once.
class PathTree
{
public:
    /// All files of the process; relative names start from its current folder.
    static PathTree wholeSystem() { return PathTree(UniqueFd(), false); }

    /// The files below the folder `root`, which itself may be a link. A tree that is not valid(), with `*error`
    /// filled, when it cannot be entered.
    static PathTree below(const char *root, VError *error, Links links = Links::Within);

    bool valid() const { return !confined || static_cast<bool>(root); }

    /// Opens with open()'s flags; close-on-exec is added. An empty descriptor on failure, with `*error` filled.
    UniqueFd open(const char *path, int flags, mode_t mode, VError *error) const;

    /// Opens a regular file for reading. Nothing else is ever opened, so that this neither blocks nor has effects:
    /// pipes and devices may have both.
    UniqueFd openForReading(const char *path, VError *error) const;

    /// Creates a regular file (mode 0600), or empties it. The last component must be no link.
    UniqueFd openForWriting(const char *path, VError *error) const;

    /// Creates a folder (mode 0700) and those above it that are missing. 0 on success, else an errno value.
    int createFolder(const char *path) const;

private:
    PathTree(UniqueFd rootFolder, bool isConfined, Links linksBelow = Links::Within)
        : root(std::move(rootFolder)), confined(isConfined), links(linksBelow)
    {
    }

    UniqueFd openBelow(const char *path, int flags, mode_t mode) const;
    UniqueFd walk(const char *path, int flags, mode_t mode) const;

    UniqueFd root;
    bool confined = false;
    Links links = Links::Within;
};

/// For tests: acts as a kernel would that lacks openat2(), from now on.
void forceComponentWalk(bool forced);

} // namespace devicehost

#endif
