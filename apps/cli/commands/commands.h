#ifndef APPS_CLI_COMMANDS_COMMANDS_H
#define APPS_CLI_COMMANDS_COMMANDS_H

#include "apps/cli/exit_code.h"

#include <functional>

namespace CLI
{
class App;
}

namespace photocli
{

/// What the command line asks for. May throw a Failure.
using Action = std::function<ExitCode()>;

/// Each adds one subcommand to `app`; parsing a line that names it sets `action`, which must outlive the parsing.
void addDevicesCommand(CLI::App &app, Action &action);
void addInfoCommand(CLI::App &app, Action &action);
void addAlbumsCommand(CLI::App &app, Action &action);
void addPhotosCommand(CLI::App &app, Action &action);
void addGroupsCommand(CLI::App &app, Action &action);
void addShowCommand(CLI::App &app, Action &action);
void addDumpCommand(CLI::App &app, Action &action);
void addThumbnailCommand(CLI::App &app, Action &action);
void addContactSheetCommand(CLI::App &app, Action &action);
void addExportCommand(CLI::App &app, Action &action);
void addSampleCommand(CLI::App &app, Action &action);

} // namespace photocli

#endif
