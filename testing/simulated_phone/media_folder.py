"""The media root of the phone: a local folder, read only. Nothing outside of it is opened, whatever a path or link says."""

import errno
import os
import stat

LINKS_FOLLOWED = 40


class Refused(OSError):
    """The path leads out of the folder, or to something that is neither file nor folder."""

    def __init__(self, path):
        super().__init__(errno.EACCES, "leads out of the folder", path)


class MediaFolder:
    """For any thread. Paths are bytes, from the media root, with or without a slash in front."""

    def __init__(self, root):
        self.root = os.open(root, os.O_PATH | os.O_DIRECTORY | os.O_CLOEXEC)

    def _walk(self, path, follow_last):
        """Opens the object with O_PATH, one name after the other. The caller closes the descriptor."""
        names = [name for name in path.split(b"/") if name not in (b"", b".")]
        if b".." in names:
            raise Refused(path)
        opened = [os.dup(self.root)]  # the folders on the way, the last one the present one
        links = 0
        try:
            while names:
                name = names.pop(0)
                if name == b"..":  # only links bring them here
                    if len(opened) == 1:
                        raise Refused(path)
                    os.close(opened.pop())
                    continue
                found = os.open(name, os.O_PATH | os.O_NOFOLLOW | os.O_CLOEXEC, dir_fd=opened[-1])
                if stat.S_ISLNK(os.fstat(found).st_mode) and (names or follow_last):
                    os.close(found)
                    target = os.readlink(name, dir_fd=opened[-1])
                    links += 1
                    if target.startswith(b"/"):
                        raise Refused(path)
                    if links > LINKS_FOLLOWED:
                        raise OSError(errno.ELOOP, "too many links", path)
                    names = [part for part in target.split(b"/") if part not in (b"", b".")] + names
                else:
                    opened.append(found)
            return opened.pop()
        finally:
            for descriptor in opened:
                os.close(descriptor)

    def open(self, path):
        """A descriptor to read the file from, which the caller closes. Only regular files are opened."""
        place = self._walk(path, True)
        try:
            mode = os.fstat(place).st_mode
            if stat.S_ISDIR(mode):
                raise IsADirectoryError(errno.EISDIR, "is a folder", path)
            if not stat.S_ISREG(mode):
                raise Refused(path)
            return os.open(f"/proc/self/fd/{place}", os.O_RDONLY | os.O_CLOEXEC)
        finally:
            os.close(place)

    def names(self, path):
        """The names in the folder, in order, "." and ".." first."""
        place = self._walk(path, True)
        try:
            if not stat.S_ISDIR(os.fstat(place).st_mode):
                raise NotADirectoryError(errno.ENOTDIR, "is no folder", path)
            return [b".", b".."] + sorted(os.fsencode(name) for name in os.listdir(f"/proc/self/fd/{place}"))
        finally:
            os.close(place)

    def status(self, path):
        """os.stat_result of the object itself, and the target when it is a link."""
        place = self._walk(path, False)
        try:
            result = os.fstat(place)
            target = os.readlink(b"", dir_fd=place) if stat.S_ISLNK(result.st_mode) else None
            return result, target
        finally:
            os.close(place)

    def space(self):
        """os.statvfs_result of the file system."""
        return os.fstatvfs(self.root)
