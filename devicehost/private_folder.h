#ifndef DEVICEHOST_PRIVATE_FOLDER_H
#define DEVICEHOST_PRIVATE_FOLDER_H

#include "devicehost/vdev/unique_fd.h"

#include <QByteArray>

namespace devicehost
{

/// A new folder (mode 0700) among the system's temporary files, removed with all that is in it when the object goes.
/// Making one removes those that killed programs of this user have left there.
class PrivateFolder
{
public:
    PrivateFolder();
    ~PrivateFolder();
    PrivateFolder(PrivateFolder &&other) noexcept;
    PrivateFolder &operator=(PrivateFolder &&) = delete;

    /// Where the user wants such folders: TMPDIR, else /tmp. Absolute, UTF-8, without a trailing "/" of its own.
    static QByteArray temporaryPlace();

    /// In UTF-8, with a trailing "/"; empty when it could not be made.
    const QByteArray &path() const { return folder; }

    /// The place where it was to be made.
    const QByteArray &place() const { return parent; }

    /// errno value of the attempt; 0 when all went well.
    int error() const { return code; }

private:
    QByteArray parent;
    QByteArray folder;
    int code = 0;
    UniqueFd lock; ///< says to other programs that the folder is in use
};

} // namespace devicehost

#endif
