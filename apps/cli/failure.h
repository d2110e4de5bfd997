#ifndef APPS_CLI_FAILURE_H
#define APPS_CLI_FAILURE_H

#include "apps/cli/exit_code.h"

#include <QString>

namespace photocli
{

/// Thrown to end a command; main() prints the message and exits with the code. Thrown rather than exit() called, so
/// that the local copy of the database is always removed.
struct Failure {
    ExitCode code;
    QString message; ///< one sentence without a full stop; empty: nothing is printed
};

} // namespace photocli

#endif
