#include "devicehost/advice.h"

#include "devicehost/private_folder.h"

#include <cerrno>

namespace devicehost
{

QString copyAgain()
{
    return QStringLiteral("unlock the device, connect it again, and mount or copy it again");
}

QString deviceAdvice(int code)
{
    switch (code) {
    case ENOENT:
    case ENOTDIR:
        return QStringLiteral("check that the device is still connected and mounted, and that the copy of it is whole");
    case EACCES:
    case EPERM:
        return QStringLiteral("make it readable for you, or mount the device as your own user");
    case EISDIR:
    case EINVAL:
    case ELOOP:
    case EXDEV:
        return QStringLiteral("a copy of the device must hold the file itself; copy it again");
    case EBADMSG:
    case ENODATA:
        return QStringLiteral("make a new backup of the device, or copy the backup again");
    case ENOKEY:
        return QStringLiteral("give the password");
    case EKEYREJECTED:
        return QStringLiteral(
            "give the password that was set for backups of this device; its passcode is another thing");
    case ESTALE:
        return QStringLiteral("wait until nothing changes it any more, and try again");
    case EMFILE:
    case ENFILE:
        return QStringLiteral("close files or other programs and try again");
    case ENOMEM:
        return QStringLiteral("close other programs and try again");
    case EPROTONOSUPPORT:
        return QStringLiteral("mount the device and give its media root, the folder that holds DCIM and PhotoData");
    default:
        return copyAgain();
    }
}

QString deviceAdvice(const VError &error)
{
    return error.advice.isEmpty() ? deviceAdvice(error.code) : error.advice;
}

QString localAdvice(int code)
{
    const QString place = QString::fromUtf8(PrivateFolder::temporaryPlace());
    switch (code) {
    case ENOSPC:
    case EDQUOT:
    case EFBIG:
        return QStringLiteral("free space in %1, or set TMPDIR to a folder with more").arg(place);
    case EACCES:
    case EPERM:
    case EROFS:
    case ENOENT:
    case ENOTDIR:
        return QStringLiteral("set TMPDIR to a folder that you can write to; it is %1 now").arg(place);
    case EMFILE:
    case ENFILE:
        return QStringLiteral("close files or other programs and try again");
    default:
        return QStringLiteral("try again, and if that does not help, set TMPDIR to another folder than %1").arg(place);
    }
}

} // namespace devicehost
