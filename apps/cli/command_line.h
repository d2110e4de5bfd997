#ifndef APPS_CLI_COMMAND_LINE_H
#define APPS_CLI_COMMAND_LINE_H

namespace photocli
{

/// Parses the command line and does what it says. Returns the status to exit with; everything made on the way is gone.
int runCommandLine(int argc, char **argv);

} // namespace photocli

#endif
