#include "devicehost/private_folder.h"

#include "devicehost/local_path.h"
#include "devicehost/stale_folders.h"

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <new>
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
    QByteArray withSlash = name + '/'; // made first: once the folder is there, nothing may fail
    if (::mkdtemp(name.data()) == nullptr) {
        code = errno;
        return;
    }
    std::copy(name.cbegin(), name.cend(), withSlash.begin());
    folder = std::move(withSlash);
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
    try {
        emptyHeldFolder(folder);
        if (::rmdir(folder.constData()) == 0)
            return;
        std::error_code ignored; // links inside are removed, not followed; the lock ends after that
        std::filesystem::remove_all(folder.toStdString(), ignored);
    } catch (const std::bad_alloc &) { // the next one of this user removes what is left
    }
}

} // namespace devicehost
