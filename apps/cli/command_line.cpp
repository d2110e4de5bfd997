#include "apps/cli/command_line.h"

#include "apps/cli/commands/commands.h"
#include "apps/cli/failure.h"
#include "apps/cli/messages.h"
#include "apps/cli/options/common_options.h"
#include "apps/cli/output/output.h"

#include <CLI/CLI.hpp>

#include <QStringList>

namespace photocli
{

namespace
{

constexpr const char *footer =
    "DEVICE is the folder that holds a device's DCIM and PhotoData folders (folder:PATH), or the folder\n"
    "of a computer backup of a device, encrypted or not (backup:PATH); usb for the device on USB, or on\n"
    "the network when there is none on USB, or afc:UDID where there are several (\"photolib devices\"\n"
    "lists them).\n"
    "\"photolib COMMAND --help\" tells the options of a command.\n"
    "\n"
    "Exit status: 0 all done; 1 some items failed or were not found; 2 wrong usage; 3 the device\n"
    "cannot be reached; 4 the library cannot be read; 5 the output cannot be written; 130 interrupted.";

void addCommands(CLI::App &app, Action &action)
{
    app.set_version_flag("--version", "photolib " PHOTOLIB_VERSION);
    app.require_subcommand(1);
    addGlobalOptions(app);
    addDevicesCommand(app, action);
    addInfoCommand(app, action);
    addAlbumsCommand(app, action);
    addPhotosCommand(app, action);
    addGroupsCommand(app, action);
    addShowCommand(app, action);
    addThumbnailCommand(app, action);
    addContactSheetCommand(app, action);
    addExportCommand(app, action);
    addDumpCommand(app, action);
    addSampleCommand(app, action);
    app.footer(footer); // last: commands added later would print it in their own help
}

QString commandNames(const CLI::App &app)
{
    QStringList names;
    for (const CLI::App *command : app.get_subcommands([](const CLI::App *) { return true; }))
        names += QString::fromStdString(command->get_name());
    return names.join(QStringLiteral(", "));
}

// What is wrong with a line in which no command was found.
QString explainNoCommand(const CLI::App &app, const CLI::ParseError &error)
{
    const std::vector<std::string> unknown = app.remaining();
    for (const std::string &word : unknown) {
        if (word.empty() || word.front() != '-')
            return QStringLiteral("there is no command %1; the commands are %2")
                .arg(quoted(QString::fromStdString(word)), commandNames(app));
    }
    if (!unknown.empty())
        return QStringLiteral("there is no option %1 before a command; see \"photolib --help\"")
            .arg(quoted(QString::fromStdString(unknown.front())));
    if (dynamic_cast<const CLI::RequiredError *>(&error) != nullptr)
        return QStringLiteral("no command is given; the commands are %1").arg(commandNames(app));
    return QStringLiteral("%1; see \"photolib --help\"").arg(QString::fromStdString(error.what()).trimmed());
}

QString explain(const CLI::App &app, const CLI::ParseError &error)
{
    const std::vector<CLI::App *> commands = app.get_subcommands();
    if (commands.empty())
        return explainNoCommand(app, error);
    return QStringLiteral("%1; see \"photolib %2 --help\"")
        .arg(QString::fromStdString(error.what()).trimmed(), QString::fromStdString(commands.front()->get_name()));
}

ExitCode printText(const std::string &text)
{
    Output out;
    out.write(QByteArray::fromStdString(text));
    out.finish();
    return ExitOk;
}

ExitCode parseAndRun(CLI::App &app, Action &action, int argc, char **argv)
{
    try {
        app.parse(argc, argv);
    } catch (const CLI::CallForHelp &) {
        return printText(app.help());
    } catch (const CLI::CallForVersion &version) {
        return printText(std::string(version.what()) + '\n');
    } catch (const CLI::ParseError &error) {
        throw Failure{ExitUsage, explain(app, error)};
    }
    return action();
}

} // namespace

int runCommandLine(int argc, char **argv)
{
    CLI::App app("Lists and shows what is in the photo library of a connected iOS device.", "photolib");
    Action action;
    try {
        addCommands(app, action);
        return parseAndRun(app, action, argc, argv);
    } catch (const Failure &failure) {
        if (!failure.message.isEmpty())
            printError(failure.message);
        return failure.code;
    } catch (const std::exception &error) {
        printError(QStringLiteral("stopped by an unexpected error: %1").arg(QString::fromLocal8Bit(error.what())));
        return ExitSomeFailed;
    }
}

} // namespace photocli
