#ifndef EXPORTER_FILE_OPERATIONS_H
#define EXPORTER_FILE_OPERATIONS_H

#include <sys/stat.h>
#include <sys/statvfs.h>
#include <sys/types.h>

#include <cstddef>

namespace exporter
{

/// Every system call by which the exporter touches the destination, so that tests can have each one fail. This class
/// makes the real calls. Answers are those of the system: below 0 on failure, with errno set; interrupted calls
/// are made again.
///
/// Threads: any.
class FileOperations
{
public:
    FileOperations() = default;
    FileOperations(const FileOperations &) = delete;
    FileOperations &operator=(const FileOperations &) = delete;
    virtual ~FileOperations() = default;

    virtual int openAt(int folder, const char *name, int flags, mode_t mode);
    virtual int makeFolderAt(int folder, const char *name);
    virtual ssize_t read(int file, void *buffer, std::size_t size);
    virtual ssize_t write(int file, const void *buffer, std::size_t size);
    virtual int sync(int file);
    virtual int beginWriting(int file, off_t offset, off_t size); ///< to the disk, without waiting; a hint
    virtual int setTimes(int file, const timespec times[2]);
    virtual int stat(int file, struct stat *out);
    virtual int statAt(int folder, const char *name, struct stat *out); ///< of a symbolic link itself
    virtual int statFileSystem(int file, struct statvfs *out);
    virtual int linkAt(int fromFolder, const char *from, int toFolder, const char *to);
    virtual int unlinkAt(int folder, const char *name, int flags);
    virtual int renameWithoutReplacing(int fromFolder, const char *from, int toFolder, const char *to);

    /// For file systems that cannot refuse to replace: reserves the name with an empty file first.
    virtual int renameOverOwnEmptyFile(int fromFolder, const char *from, int toFolder, const char *to);
};

/// Moves a file to a name that must be free (else EEXIST), in whichever way the file system offers.
int moveToFreeName(FileOperations &operations, int fromFolder, const char *from, int toFolder, const char *to);

} // namespace exporter

#endif
