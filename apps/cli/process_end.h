#ifndef APPS_CLI_PROCESS_END_H
#define APPS_CLI_PROCESS_END_H

namespace photocli
{

/// What main() returns for this status; does not return when a thread was left behind in a call to a device: what it
/// still uses must not be taken down then. Everything of the command's own was written and freed before.
int endProcess(int status);

} // namespace photocli

#endif
