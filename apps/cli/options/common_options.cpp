#include "apps/cli/options/common_options.h"

#include <CLI/CLI.hpp>

namespace photocli
{

namespace
{

constexpr const char *verboseName = "--verbose";
constexpr const char *logFileName = "--log-file";
constexpr const char *noProgressName = "--no-progress";

constexpr const char *pairName = "--pair";
constexpr const char *timeoutName = "--timeout";
constexpr const char *passwordFileName = "--password-file";

constexpr const char *verboseFlags = "-v,--verbose";
constexpr const char *verboseHelp = "Show the log lines on standard error";
constexpr const char *logFileHelp = "Append every log line to FILE (\"TAG LEVEL MESSAGE\")";
constexpr const char *noProgressHelp = "Show no progress bar, also on a terminal";

constexpr const char *pairHelp = "Pair with a connected device anew where the present pairing does not work";
constexpr const char *timeoutHelp = "Give a connected device up when it does not answer for SECONDS (30 unless given)";
constexpr double longestTimeout = 3600;

std::string refusalOfTimeout(const std::string &text)
{
    double seconds = 0;
    const bool isNumber = CLI::detail::lexical_cast(text, seconds);
    return isNumber && seconds > 0 && seconds <= longestTimeout
               ? ""
               : "\"" + text + "\" is no number of seconds above 0 and up to 3600";
}
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

void takeOver(const CLI::App &app, ProgressOptions &options)
{
    takeOver(app, static_cast<LogOptions &>(options));
    options.noProgress = app.count(noProgressName) > 0;
}

void takeOver(const CLI::App &app, UsbOptions &options)
{
    options.pair = app.count(pairName) > 0;
    if (app.count(timeoutName) > 0)
        options.timeout = app.get_option(timeoutName)->as<double>();
}

void takeOverPassword(const CLI::App &app, DeviceOptions &options)
{
    const std::vector<std::string> files = app.get_option(passwordFileName)->results();
    if (!files.empty())
        options.passwordFile = files.back();
}

} // namespace

void addGlobalOptions(CLI::App &app)
{
    app.add_flag(verboseFlags, verboseHelp);
    app.add_option(logFileName, logFileHelp)->type_name("FILE");
    app.add_flag(noProgressName, noProgressHelp);
    app.add_flag(pairName, pairHelp);
    app.add_option(timeoutName, timeoutHelp)->type_name("SECONDS")->check(refusalOfTimeout);
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
    command.preparse_callback([&command, &options](std::size_t) { takeOver(*command.get_parent(), options); });
}

void addDeviceOptions(CLI::App &command, DeviceOptions &options)
{
    command
        .add_option("DEVICE", options.device,
                    "The device: a folder that holds its DCIM and PhotoData folders, or the folder of a backup; usb "
                    "for the device on USB or on the network, or afc:UDID")
        ->required()
        ->type_name("");
    command.add_flag(pairName, options.pair, pairHelp);
    command.add_option(passwordFileName, options.passwordFile, passwordFileHelp)->type_name("FILE");
    addDeviceSearchOptions(command, options);
}

void addDeviceSearchOptions(CLI::App &command, DeviceOptions &options)
{
    addProgressOptions(command, options);
    command.add_option(timeoutName, options.timeout, timeoutHelp)->type_name("SECONDS")->check(refusalOfTimeout);
    command.preparse_callback([&command, &options](std::size_t) {
        takeOver(*command.get_parent(), static_cast<ProgressOptions &>(options));
        takeOver(*command.get_parent(), static_cast<UsbOptions &>(options));
        takeOverPassword(*command.get_parent(), options);
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
