#include "devicehost/database_errors.h"

#include "devicehost/device_host.h"
#include "devicehost/host_state.h"

#include <sqlite3.h>

namespace devicehost
{

namespace
{

// The library steps its statements itself, so their errors pass the host by. SQLite's error log hears of every
// one, but names no connection. A connection of the library is opened, read and closed on one thread, so the
// thread tells whose it is.
thread_local std::weak_ptr<HostState> readingHost;

void onSqliteLog(void *, int code, const char *)
{
    if (!isDatabaseDamage(code))
        return;
    if (const std::shared_ptr<HostState> host = readingHost.lock())
        host->recordDatabaseError(code);
}

} // namespace

bool isDatabaseDamage(int code)
{
    switch (code & 0xff) {
    case SQLITE_CORRUPT:
    case SQLITE_NOTADB:
    case SQLITE_IOERR:
    case SQLITE_NOMEM:
    case SQLITE_FULL:
    case SQLITE_TOOBIG:
        return true;
    default:
        return false;
    }
}

QString databaseErrorText(int code)
{
    return QString::fromUtf8(sqlite3_errstr(code));
}

void enterDatabase(const std::shared_ptr<HostState> &host)
{
    readingHost = host;
}

void leaveDatabase(const HostState *host)
{
    // A connection that another thread closes, or that a newer one on this thread has followed, changes nothing.
    if (readingHost.lock().get() == host)
        readingHost.reset();
}

bool watchDatabaseErrors()
{
    return sqlite3_config(SQLITE_CONFIG_LOG, &onSqliteLog, nullptr) == SQLITE_OK;
}

} // namespace devicehost
