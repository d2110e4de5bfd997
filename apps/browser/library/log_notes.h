#ifndef APPS_BROWSER_LIBRARY_LOG_NOTES_H
#define APPS_BROWSER_LIBRARY_LOG_NOTES_H

#include <QString>

namespace browser
{

/// What the library's log says, on the thread that makes one, of tables that an open library lacks: its interface has
/// no other way to say so. Needs noteLogLine() to be called for every line. One at a time on a thread.
class LogNotes
{
public:
    LogNotes();
    ~LogNotes();
    LogNotes(const LogNotes &) = delete;
    LogNotes &operator=(const LogNotes &) = delete;

    bool lacksTables() const { return lacking; }

private:
    friend void noteLogLine(const QString &message);
    bool lacking = false;
};

/// For the listener of devicehost::setLogListener(), on the thread that logs.
void noteLogLine(const QString &message);

} // namespace browser

#endif
