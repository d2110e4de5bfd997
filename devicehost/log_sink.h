#ifndef DEVICEHOST_LOG_SINK_H
#define DEVICEHOST_LOG_SINK_H

/// @file
/// Where the lines of the reference host go.

#include <QString>

#include <functional>

namespace devicehost
{

/// Where the host's Log() goes besides the logging category "photolib". Process-wide; all functions may be called from
/// any thread.

/// Appends every line ("TAG LEVEL MESSAGE") to a file from now on; an empty path ends it. False when the file cannot be
/// opened for appending; `*error` then says why.
bool setLogFile(const QString &path, QString *error);

/// One call of Log(), formatted.
struct LogLine {
    QString tag;     ///< "PHOTOLIB" for the library's lines
    int level = 0;   ///< 1 progress, 2 error
    QString message; ///< without a line break at its end
};

/// Also hands every line to `listener`; an empty function ends it. Called on the logging thread.
void setLogListener(std::function<void(const LogLine &)> listener);

} // namespace devicehost

#endif
