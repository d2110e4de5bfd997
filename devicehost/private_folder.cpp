#include "devicehost/private_folder.h"

#include "devicehost/local_path.h"
#include "devicehost/stale_folders.h"

#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <system_error>
#include <utility>

namespace devicehost
{

// Whether that works or not: a database full of private things is not put somewhere else without being asked.
QByteArray PrivateFolder::temporaryPlace()
{
    const QByteArray wanted = qgetenv("TMPDIR");
    return wanted.isEmpty() ? QByteArray("/tmp") : absoluteLocalPath(QString::fromLocal8Bit(wanted)).toUtf8();
}

PrivateFolder::PrivateFolder() : parent(temporaryPlace())
{
    removeStaleFolders(parent);
    QByteArray name = parent + "/photolib-XXXXXX";
    if (::mkdtemp(name.data()) == nullptr) {
        code = errno;
        return;
    }
    folder = name + '/';
    lock = holdFolder(folder);
}

PrivateFolder::PrivateFolder(PrivateFolder &&other) noexcept
    : parent(std::move(other.parent)), folder(std::exchange(other.folder, QByteArray())), code(other.code),
      lock(std::move(other.lock))
{
}

PrivateFolder::~PrivateFolder()
{
    if (folder.isEmpty())
        return;
    emptyHeldFolder(folder);
    std::error_code ignored; // links inside are removed, not followed; the lock ends after that
    std::filesystem::remove_all(folder.toStdString(), ignored);
}

} // namespace devicehost
