#ifndef EXPORTER_DESTINATION_H
#define EXPORTER_DESTINATION_H

#include "exporter/file_operations.h"
#include "exporter/unique_fd.h"

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <list>
#include <optional>

namespace exporter
{

/// What is found under a name, a symbolic link not followed.
struct FileState {
    bool regular = false;
    bool folder = false;
    qint64 size = 0;
    qint64 mtimeNs = 0; ///< nanoseconds since 1970 UTC
    quint64 device = 0;
    quint64 inode = 0;
};

FileState stateOf(const struct stat &found);

enum class Access {
    Write,    ///< the folder is made when absent, and locked for this run alone
    ReadOnly, ///< nothing is written; the folder may be absent
};

/// The folder that receives the files, and the only way to it: every path below is walked one folder after the other on
/// open descriptors, and no symbolic link is followed. Paths are relative, with "/" between names.
///
/// Functions throw RunEnded when the whole destination fails, else FileProblem. One thread at a time.
class Destination
{
public:
    Destination(FileOperations &fileOperations, const QString &path, Access access);

    /// False only for read-only access to a folder that is not there.
    bool exists() const { return bool(root); }

    /// The path with all symbolic links resolved; empty when the folder does not exist.
    const QString &rootPath() const { return canonicalPath; }

    FileOperations &operations() const { return files; }
    int rootFd() const { return root.get(); }

    /// Removes temporary files of a run that was killed.
    void sweep();

    /// What is at `path`; none when nothing is, or its folder is not there.
    std::optional<FileState> stat(const QString &path);

    /// Opens a plain file for reading; never waits for what is no plain file.
    UniqueFd openForReading(const QString &path);

    /// Names in a folder; none when it is not there.
    QStringList names(const QString &folder);

    /// Makes the folder with its parents.
    void makeFolder(const QString &folder);

    /// Whether a folder of this name, or anything else, exists.
    bool isTaken(const QString &path) { return stat(path).has_value(); }

    /// Moves the file `temporaryName` of the root to `path`; false when there is something already.
    bool publish(const QByteArray &temporaryName, const QString &path);

    /// Takes back publish().
    void unpublish(const QString &path, const QByteArray &temporaryName);

    enum class LinkResult { Linked, Taken, Impossible };
    /// A second name for a file. Impossible when this file system cannot.
    LinkResult link(const QString &from, const QString &to);

    void remove(const QString &path);
    /// Nothing happens when the folder is not empty or not there.
    void removeEmptyFolder(const QString &path);

    /// Makes what happened to names in the folder last.
    void syncFolder(const QString &folder);

    /// Ends the run when `size` more bytes leave less than `reserve` free.
    void requireRoom(qint64 size, qint64 reserve);

    /// A name for a temporary file in the root, another one each time.
    QByteArray temporaryName();

private:
    struct OpenFolder {
        QString path;
        UniqueFd fd;
    };

    void openRoot(const QString &path, Access access);
    void lock(Access access);
    /// The descriptor stays this object's; -1 when absent and not to be made.
    int folderFd(const QString &folder, bool make);
    int existingFolderFd(const QString &folder);
    UniqueFd openStep(int parent, const QString &name, const QString &path, bool make);
    [[noreturn]] void throwNoFolder(int parent, const QString &name, const QString &path, int code);

    FileOperations &files;
    UniqueFd root;
    QString canonicalPath;
    std::list<OpenFolder> opened; ///< a few that were used last, newest first
    quint64 lastTemporary = 0;
};

/// Folder and name of a path; no folder is "".
QString folderOf(const QString &path);
QString nameOf(const QString &path);

/// Throws FileProblem for what is not one plain name. `path` is for the message.
void requireSafeStep(const QString &name, const QString &path);

} // namespace exporter

#endif
