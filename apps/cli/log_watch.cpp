#include "apps/cli/log_watch.h"

#include "apps/cli/failure.h"
#include "apps/cli/messages.h"
#include "apps/cli/output/descriptor.h"
#include "apps/cli/output/text.h"
#include "devicehost/log_sink.h"

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <unistd.h>

namespace photocli
{

namespace
{

QString textOf(const devicehost::LogLine &line)
{
    return QStringLiteral("%1 %2 %3").arg(line.tag, QString::number(line.level), line.message);
}

int openLogFile(const QString &name)
{
    const int mode = 0666; // less the user's mask
    const int descriptor =
        ::open(name.toUtf8().constData(), O_WRONLY | O_APPEND | O_CREAT | O_CLOEXEC | O_NOCTTY, mode);
    if (descriptor < 0)
        throw Failure{ExitOutputFailed, QStringLiteral("the log file %1 cannot be written: %2; name another file with "
                                                       "--log-file")
                                            .arg(name, QString::fromLocal8Bit(std::strerror(errno)))};
    return descriptor;
}

} // namespace

LogWatch::LogWatch(const QString &logFile, bool verbose) : logFileName(logFile)
{
    if (!logFile.isEmpty())
        logFileDescriptor = openLogFile(logFile);
    devicehost::setLogListener([this, verbose](const devicehost::LogLine &line) {
        toLogFile(line);
        if (verbose)
            printNote(textOf(line));
        note(line.message);
    });
}

LogWatch::~LogWatch()
{
    devicehost::setLogListener({});
    if (logFileDescriptor >= 0)
        ::close(logFileDescriptor);
}

// The host's own log file would do, but that the file may be a pipe whose reader must not hold up Ctrl-C.
void LogWatch::toLogFile(const devicehost::LogLine &line)
{
    if (logFileDescriptor < 0)
        return;
    const QByteArray bytes = harmless(textOf(line)).toUtf8() + '\n';
    const int error = writeAll(logFileDescriptor, bytes.constData(), static_cast<size_t>(bytes.size()));
    if (error == 0)
        return;
    ::close(logFileDescriptor);
    logFileDescriptor = -1;
    if (error != EINTR)
        printWarning(QStringLiteral("the log file %1 is not complete: %2; name another file with --log-file")
                         .arg(logFileName, QString::fromLocal8Bit(std::strerror(error))));
}

// The interface has no other way to say that a library opened without its albums or photos. Without the table of albums
// the library does not look for that of photos.
void LogWatch::note(const QString &message)
{
    if (message.startsWith(QLatin1String("Can not parse camera album")))
        found = Shortcoming::NoAlbumTable;
    else if (message.startsWith(QLatin1String("photo sql error")))
        found = Shortcoming::NoPhotoTable;
}

} // namespace photocli
