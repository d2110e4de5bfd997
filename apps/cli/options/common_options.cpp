#include "apps/cli/options/common_options.h"

#include <CLI/CLI.hpp>

namespace photocli
{

namespace
{

constexpr const char *verboseName = "--verbose";
constexpr const char *logFileName = "--log-file";
constexpr const char *noProgressName = "--no-progress";

constexpr const char *passwordFileName = "--password-file";

constexpr const char *verboseFlags = "-v,--verbose";
constexpr const char *verboseHelp = "Show the log lines on standard error";
constexpr const char *logFileHelp = "Append every log line to FILE (\"TAG LEVEL MESSAGE\")";
constexpr const char *noProgressHelp = "Show no progress bar, also on a terminal";

constexpr const char *passwordFileHelp = "Read the password of an encrypted backup from FILE, or - for standard input";

// Options before the command have been read when the command's own are about to be.
void takeOver(const CLI::App &app, LogOptions &options)
{
    if (app.count(verboseName) > 0)
        options.verbose = true;
    const std::vector<std::string> files = app.get_option(logFileName)->results();
    if (!files.empty())
        options.logFile = files.back();
}

} // namespace

void addGlobalOptions(CLI::App &app)
{
    app.add_flag(verboseFlags, verboseHelp);
    app.add_option(logFileName, logFileHelp)->type_name("FILE");
    app.add_flag(noProgressName, noProgressHelp);
    app.add_option(passwordFileName, passwordFileHelp)->type_name("FILE");
}

void addLogOptions(CLI::App &command, LogOptions &options)
{
    command.add_option(logFileName, options.logFile, logFileHelp)->type_name("FILE");
    command.add_flag(verboseFlags, options.verbose, verboseHelp);
    command.preparse_callback([&command, &options](std::size_t) { takeOver(*command.get_parent(), options); });
}

void addProgressOptions(CLI::App &command, ProgressOptions &options)
{
    addLogOptions(command, options);
    command.add_flag(noProgressName, options.noProgress, noProgressHelp);
    command.preparse_callback([&command, &options](std::size_t) {
        takeOver(*command.get_parent(), options);
        options.noProgress = command.get_parent()->count(noProgressName) > 0;
    });
}

void addDeviceOptions(CLI::App &command, DeviceOptions &options)
{
    command
        .add_option("DEVICE", options.device,
                    "The device: a folder that holds its DCIM and PhotoData folders, or the folder of a backup")
        ->required()
        ->type_name("");
    addProgressOptions(command, options);
    command.add_option(passwordFileName, options.passwordFile, passwordFileHelp)->type_name("FILE");
    command.preparse_callback([&command, &options](std::size_t) {
        takeOver(*command.get_parent(), options);
        options.noProgress = command.get_parent()->count(noProgressName) > 0;
        const std::vector<std::string> files = command.get_parent()->get_option(passwordFileName)->results();
        if (!files.empty())
            options.passwordFile = files.back();
    });
}

void addJsonOption(CLI::App &command, FormatOptions &options)
{
    command.add_flag("--json", options.json, "Print JSON");
}

void addFormatOptions(CLI::App &command, FormatOptions &options)
{
    CLI::Option *json = command.add_flag("--json", options.json, "Print JSON, one array of records");
    command.add_flag("--csv", options.csv, "Print comma-separated values (RFC 4180)")->excludes(json);
}

} // namespace photocli
