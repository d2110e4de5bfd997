#ifndef APPS_CLI_OPTIONS_COMMON_OPTIONS_H
#define APPS_CLI_OPTIONS_COMMON_OPTIONS_H

#include <string>

namespace CLI
{
class App;
}

namespace photocli
{

/// How records are printed.
enum class Format { Table, Json, Csv };

struct LogOptions {
    std::string logFile;
    bool verbose = false;
};

/// What a subcommand takes that shows how far it has come.
struct ProgressOptions : LogOptions {
    bool noProgress = false;
    /// Log lines and a bar would overwrite each other.
    bool showProgress() const { return !noProgress && !verbose; }
};

struct UsbOptions {
    double timeout = 30; ///< seconds
    bool pair = false;
};

/// What every subcommand that reads a device takes.
struct DeviceOptions : ProgressOptions, UsbOptions {
    std::string device;
    std::string passwordFile; ///< empty for none, "-" for standard input
};

struct FormatOptions {
    bool json = false;
    bool csv = false;
    Format format() const { return json ? Format::Json : csv ? Format::Csv : Format::Table; }
};

/// Declares the log, progress, USB and password options on the command line as a whole, for those who write them before
/// the subcommand. Call it before any subcommand is added.
void addGlobalOptions(CLI::App &app);

/// Declare the options on a subcommand. The structures must outlive the parsing. Those of addGlobalOptions() take
/// effect in them, too.
void addLogOptions(CLI::App &command, LogOptions &options);
void addProgressOptions(CLI::App &command, ProgressOptions &options);
void addDeviceOptions(CLI::App &command, DeviceOptions &options);

/// For a subcommand that looks at connected devices without reading any.
void addDeviceSearchOptions(CLI::App &command, DeviceOptions &options);
void addJsonOption(CLI::App &command, FormatOptions &options);
void addFormatOptions(CLI::App &command, FormatOptions &options);

} // namespace photocli

#endif
