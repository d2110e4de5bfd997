#ifndef APPS_CLI_EXIT_CODE_H
#define APPS_CLI_EXIT_CODE_H

namespace photocli
{

/// The exit status of the command. Scripts rely on the numbers.
enum ExitCode {
    ExitOk = 0,
    ExitSomeFailed = 1,        ///< some of what was asked for could not be found or read
    ExitUsage = 2,             ///< the command line is wrong
    ExitDeviceUnreachable = 3, ///< the device is absent, locked or not trusted
    ExitLibraryUnreadable = 4, ///< the device holds no library that can be read
    ExitOutputFailed = 5,      ///< the output, or the log file, cannot be written
    ExitInterrupted = 130,
};

} // namespace photocli

#endif
