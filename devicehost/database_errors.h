#ifndef DEVICEHOST_DATABASE_ERRORS_H
#define DEVICEHOST_DATABASE_ERRORS_H

#include <QString>

#include <memory>

namespace devicehost
{

class HostState;

/// Whether an SQLite result code says that data could not be read, as against a wrong statement, an interruption,
/// a notice or a warning.
bool isDatabaseDamage(int code);

/// SQLite's words for a result code.
QString databaseErrorText(int code);

/// Errors that SQLite meets on this thread are blamed on `host` until the matching leaveDatabase().
void enterDatabase(const std::shared_ptr<HostState> &host);
void leaveDatabase(const HostState *host);

} // namespace devicehost

#endif
