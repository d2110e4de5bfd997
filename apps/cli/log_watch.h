#ifndef APPS_CLI_LOG_WATCH_H
#define APPS_CLI_LOG_WATCH_H

#include <QString>

namespace devicehost
{
struct LogLine;
}

namespace photocli
{

/// Listens to the host's log while it lives: keeps what the user has to know, and shows the lines when asked to.
/// One at a time; made and destroyed on the thread that uses the library.
class LogWatch
{
public:
    /// What a library that opened all the same turned out to lack.
    enum class Shortcoming { None, NoPhotoTable, NoAlbumTable };

    /// Appends the lines to `logFile` unless that is empty; throws a Failure when the file cannot be opened. `verbose`
    /// also shows them on standard error.
    LogWatch(const QString &logFile, bool verbose);
    ~LogWatch();
    LogWatch(const LogWatch &) = delete;
    LogWatch &operator=(const LogWatch &) = delete;

    Shortcoming shortcoming() const { return found; }

private:
    void toLogFile(const devicehost::LogLine &line);
    void note(const QString &message);

    QString logFileName;
    int logFileDescriptor = -1; ///< -1: no file, or one that could not be written
    Shortcoming found = Shortcoming::None;
};

} // namespace photocli

#endif
