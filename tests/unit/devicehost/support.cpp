#include "support.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>

void writeFile(const QString &path, const QByteArray &content)
{
    QDir().mkpath(QFileInfo(path).path());
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
        qFatal("%s: %s", qPrintable(path), qPrintable(file.errorString()));
}

QByteArray contentOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QByteArray readFrom(VDev *device, const QByteArray &name)
{
    const File file(vFileOpen(device, name.constData(), 0));
    if (file == nullptr)
        return {};
    QByteArray content("");
    std::array<char, 4096> buffer = {};
    for (int count = vFileRead(file.get(), buffer.data(), 4096); count > 0;
         count = vFileRead(file.get(), buffer.data(), 4096))
        content.append(buffer.data(), count);
    return content;
}

int modeOf(const QString &path)
{
    struct stat info = {};
    return ::lstat(path.toUtf8().constData(), &info) == 0 ? static_cast<int>(info.st_mode & 07777) : -1;
}

QString inUnprivilegedChild(const std::function<QString()> &work)
{
    constexpr unsigned nobody = 65534;
    std::array<int, 2> ends = {};
    if (::pipe(ends.data()) != 0)
        qFatal("no pipe");
    const pid_t child = ::fork();
    if (child == 0) {
        const bool dropped =
            ::getuid() != 0 || (::setresgid(nobody, nobody, nobody) == 0 && ::setresuid(nobody, nobody, nobody) == 0);
        const QByteArray answer = dropped ? work().toUtf8() : QByteArray("privileges cannot be dropped");
        const bool told =
            ::write(ends[1], answer.constData(), static_cast<std::size_t>(answer.size())) == answer.size();
        ::_exit(told ? 0 : 1);
    }
    ::close(ends[1]);
    QFile reader;
    QByteArray answer;
    if (reader.open(ends[0], QIODevice::ReadOnly, QFileDevice::AutoCloseHandle))
        answer = reader.readAll();
    int status = 0;
    ::waitpid(child, &status, 0);
    return status == 0 ? QString::fromUtf8(answer) : QStringLiteral("the child failed");
}
