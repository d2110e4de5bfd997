#include "apps/cli/output/output_file.h"

#include "apps/cli/failure.h"
#include "apps/cli/messages.h"

#include <QCryptographicHash>
#include <QFileInfo>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <optional>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace photocli
{

namespace
{

[[noreturn]] void fail(const QString &title, const QString &reason, const char *advice)
{
    throw Failure{ExitOutputFailed,
                  QStringLiteral("%1 cannot be written: %2; %3").arg(title, reason, QString::fromLatin1(advice))};
}

QString errorText(int code)
{
    return QString::fromLocal8Bit(std::strerror(code));
}

// One that is to be replaced keeps the links that lead to it.
QByteArray followed(const QByteArray &name, Existing existing)
{
    if (existing == Existing::Keep)
        return name;
    const QString real = QFileInfo(QString::fromUtf8(name)).canonicalFilePath();
    return real.isEmpty() ? name : real.toUtf8();
}

QByteArray folderOf(const QByteArray &name)
{
    const int slash = name.lastIndexOf('/');
    if (slash < 0)
        return ".";
    return slash == 0 ? QByteArray("/") : name.left(slash);
}

std::optional<mode_t> typeOf(const QByteArray &name)
{
    struct stat info {
    };
    if (::stat(name.constData(), &info) != 0)
        return std::nullopt;
    return info.st_mode & static_cast<mode_t>(S_IFMT);
}

bool isSpecial(const QByteArray &name)
{
    const std::optional<mode_t> type = typeOf(name);
    return type && *type != S_IFREG && *type != S_IFDIR;
}

bool isThere(const QByteArray &name)
{
    struct stat info {
    };
    return ::lstat(name.constData(), &info) == 0;
}

[[noreturn]] void failAsThere(const QString &title)
{
    fail(title, QStringLiteral("there is a file of this name"), "give another name, or --force to replace it");
}

// Always the same for a file, so that one that a killed process left goes with the next run.
QByteArray temporaryFor(const QByteArray &target)
{
    const QByteArray hash = QCryptographicHash::hash(target.mid(target.lastIndexOf('/') + 1), QCryptographicHash::Sha1);
    return folderOf(target) + "/.photolib-" + hash.toHex().left(16) + ".tmp";
}

bool bearsName(int descriptor, const QByteArray &name)
{
    struct stat opened {
    };
    struct stat named {
    };
    return ::fstat(descriptor, &opened) == 0 && ::lstat(name.constData(), &named) == 0 &&
           opened.st_dev == named.st_dev && opened.st_ino == named.st_ino;
}

// Anyone may have put one into a folder like /tmp.
bool isOwn(int descriptor)
{
    struct stat info {
    };
    return ::fstat(descriptor, &info) == 0 && info.st_uid == ::geteuid();
}

// Opens a file for writing, emptied, that no other process writes to. -1 with errno set: EWOULDBLOCK when one does.
int openAlone(const QByteArray &name)
{
    const int mode = 0666; // less the user's mask
    for (;;) {
        const int descriptor = ::open(name.constData(), O_WRONLY | O_CREAT | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK, mode);
        if (descriptor < 0)
            return -1;
        int error = ::flock(descriptor, LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK ? EWOULDBLOCK : 0;
        // Else the other process gave its file the final name in between.
        const bool ours = error == 0 && bearsName(descriptor, name);
        if (ours && isOwn(descriptor) && ::ftruncate(descriptor, 0) == 0)
            return descriptor;
        if (ours)
            error = isOwn(descriptor) ? errno : EACCES;
        ::close(descriptor);
        errno = error;
        if (error != 0)
            return -1;
    }
}

// Gives `from` the name `to` unless that is taken. Returns 0 or an errno value.
int renameToFree(const char *from, const char *to)
{
    if (::renameat2(AT_FDCWD, from, AT_FDCWD, to, RENAME_NOREPLACE) == 0)
        return 0;
    if (errno != EINVAL && errno != ENOSYS)
        return errno;
    if (::link(from, to) == 0)
        return ::unlink(from) == 0 ? 0 : errno;
    if (errno != EPERM && errno != EOPNOTSUPP)
        return errno;
    // A file system with neither: what is left is to look first.
    if (isThere(to))
        return EEXIST;
    return ::rename(from, to) == 0 ? 0 : errno;
}

} // namespace

void OutputFile::check(const QString &fileName, Existing existing)
{
    if (fileName.isEmpty())
        throw Failure{ExitUsage, QStringLiteral("the name of the file to write is empty; name a file, or - for "
                                                "standard output")};
    if (fileName == QChar('-'))
        return;
    const QString title = quoted(fileName);
    const QByteArray name = followed(fileName.toUtf8(), existing);
    if (fileName.endsWith(QChar('/')) || typeOf(name) == S_IFDIR)
        fail(title, QStringLiteral("it is a folder"), "name a file in it");
    if (existing == Existing::Keep && isThere(name) && !isSpecial(name))
        failAsThere(title);
    if (typeOf(folderOf(name)) != S_IFDIR)
        fail(title, QStringLiteral("there is no folder for it"), "make the folder, or name another one");
}

OutputFile::OutputFile(const QString &fileName, Existing whatToDo) : title(quoted(fileName)), existing(whatToDo)
{
    check(fileName, existing);
    if (fileName == QChar('-')) {
        title = QStringLiteral("standard output");
        output = std::make_unique<Output>();
        return;
    }
    target = followed(fileName.toUtf8(), existing);
    begin();
    output = std::make_unique<Output>(descriptor, title);
}

void OutputFile::begin()
{
    if (isSpecial(target)) {
        // Without waiting for a reader of a pipe: nothing could end the wait.
        descriptor = ::open(target.constData(), O_WRONLY | O_NONBLOCK | O_CLOEXEC | O_NOCTTY);
    } else {
        temporary = temporaryFor(target);
        descriptor = openAlone(temporary);
    }
    if (descriptor >= 0)
        return;
    const int error = errno;
    temporary.clear(); // it is not ours to remove
    if (error == EWOULDBLOCK)
        fail(title, QStringLiteral("another process is writing it"), "wait for that to end");
    fail(title, errorText(error), "name a place that you can write to");
}

OutputFile::~OutputFile()
{
    if (!temporary.isEmpty())
        ::unlink(temporary.constData());
    if (descriptor >= 0)
        ::close(descriptor);
}

void OutputFile::commit()
{
    output->finish();
    if (temporary.isEmpty())
        return;
    if (::fsync(descriptor) != 0 && errno != EINVAL)
        fail(title, errorText(errno), "free some space or write to another place");
    takeName(); // before the file is closed, which would let other processes take it
    temporary.clear();
}

void OutputFile::takeName()
{
    if (existing == Existing::Replace) {
        if (::rename(temporary.constData(), target.constData()) != 0)
            fail(title, errorText(errno), "name a place that you can write to");
        return;
    }
    const int error = renameToFree(temporary.constData(), target.constData());
    if (error == EEXIST)
        failAsThere(title);
    if (error != 0)
        fail(title, errorText(error), "name a place that you can write to");
}

} // namespace photocli
