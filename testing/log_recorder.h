#ifndef TESTING_LOG_RECORDER_H
#define TESTING_LOG_RECORDER_H

#include "testing/qt_printers.h"

#include <QString>
#include <QStringList>

#include <functional>
#include <mutex>

namespace testkit
{

/// Receives every call of Log() while it is alive, as lines such as "PHOTOLIB 1 load ATHCameraDB" (bytes that are not
/// UTF-8 are shown as \xE4). A test must consume every line: the destructor fails it for each line that is left, and
/// Log() with no recorder alive fails it too. Of several recorders the newest receives.
///
/// Threads: any.
class LogRecorder
{
public:
    LogRecorder();
    LogRecorder(const LogRecorder &) = delete;
    LogRecorder &operator=(const LogRecorder &) = delete;
    ~LogRecorder();

    /// Consumes the oldest line, which must be this one; otherwise the test fails there and nothing is consumed.
    void expectLine(const QString &line, const char *file = __builtin_FILE(), int atLine = __builtin_LINE());

    /// The same for several lines, one after the other.
    void expectLines(const QStringList &lines, const char *file = __builtin_FILE(), int atLine = __builtin_LINE());

    /// Consumes and answers all lines.
    QStringList takeAll();

    /// Consumes and answers the lines that contain `part`; the others stay in order.
    QStringList consumeMatching(const QString &part);

    /// The lines that are not consumed yet.
    QStringList lines() const;

    /// Called for each line as it is logged, on the thread that logs; no lock is held.
    void onLine(std::function<void(const QString &line)> hook);

    /// For Log().
    void receive(const QString &line);

private:
    mutable std::mutex mutex;
    QStringList unconsumed;
    std::function<void(const QString &)> hook;
};

} // namespace testkit

#endif
