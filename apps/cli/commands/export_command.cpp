#include "apps/cli/commands/commands.h"
#include "apps/cli/commands/listing.h"
#include "apps/cli/device_place.h"
#include "apps/cli/export/export_view.h"
#include "apps/cli/export/export_words.h"
#include "apps/cli/messages.h"
#include "apps/cli/options/selection_options.h"
#include "apps/cli/output/text.h"
#include "devicehost/open_error.h"
#include "exporter/exporter.h"
#include "exporter/layout.h"

#include <CLI/CLI.hpp>

#include <QDir>
#include <QFileInfo>

#include <unistd.h>

namespace photocli
{

namespace
{

using exporter::FileStatus;
using exporter::RunEnd;
using exporter::RunOutcome;

struct ExportCommandOptions : DeviceOptions {
    SelectionOptions selection;
    std::string destination;
    std::string layout = exporter::defaultLayout;
    std::string report;
    bool utc = false, edited = false, albums = false, dryRun = false, verify = false;
    int retries = 1;
};

void requireLayout(const QString &layout)
{
    exporter::LayoutError error;
    if (exporter::Layout::parse(layout, &error) == nullptr)
        throw Failure{ExitUsage, QStringLiteral("--layout %1 is wrong at character %2: %3")
                                     .arg(quoted(layout))
                                     .arg(error.position + 1)
                                     .arg(error.text)};
}

void requirePlace(const QString &destination, const QString &device)
{
    if (destination.isEmpty())
        throw Failure{ExitUsage, QStringLiteral("the name of the destination is empty; name a folder")};
    refuseToWriteToDevice(destination, device);
    if (placeOf(destination, device) == Place::Around)
        throw Failure{ExitUsage, QStringLiteral("%1 holds the device's own folder, to which nothing is ever written; "
                                                "name a folder beside that")
                                     .arg(quoted(destination))};
}

exporter::OpenFailure whyNotOpened()
{
    const devicehost::OpenError error = devicehost::lastOpenError();
    return {error.absent, error.advice.isEmpty() ? error.text : QStringLiteral("%1; %2").arg(error.text, error.advice)};
}

exporter::ExportOptions exportOptions(const ExportCommandOptions &options)
{
    exporter::ExportOptions result;
    result.destination = QString::fromStdString(options.destination);
    result.layout = QString::fromStdString(options.layout);
    result.utcDates = options.utc;
    result.edited = options.edited;
    result.albums = options.albums;
    result.dryRun = options.dryRun;
    result.retries = options.retries;
    result.measureFirst = options.showProgress() && ::isatty(STDERR_FILENO) == 1; // the bar wants the totals
    result.lastOpenFailure = whyNotOpened;
    return result;
}

// The report may lie in the destination, which the exporter would make later only.
std::unique_ptr<ExportReport> beginReport(const ExportCommandOptions &options, const QString &device)
{
    if (options.report.empty())
        return nullptr;
    const QString name = QString::fromStdString(options.report);
    refuseToWriteToDevice(name, device);
    const QString folder = QFileInfo(name).absolutePath();
    const QString destination =
        QDir::cleanPath(QFileInfo(QString::fromStdString(options.destination)).absoluteFilePath());
    if (!options.dryRun && folder == destination)
        QDir().mkpath(folder);
    return std::make_unique<ExportReport>(name, options.dryRun);
}

QList<qint64> chosenPhotos(photo_manager_int &library, SelectionRequest request)
{
    QList<qint64> ids;
    Selection(library, std::move(request)).forEach([&ids](const photoItem &photo) {
        ids += photo.id;
        return true;
    });
    return ids;
}

// What is to be said about the way a run ended; a run that was completed gives the status of its files.
ExitCode concludeRun(const RunOutcome &outcome, bool dryRun)
{
    switch (outcome.end) {
    case RunEnd::Completed:
        return outcome.isSuccess() && outcome.count(FileStatus::Missing) == 0 ? ExitOk : ExitSomeFailed;
    case RunEnd::Cancelled:
        throw Failure{ExitInterrupted,
                      dryRun ? QStringLiteral("interrupted")
                             : QStringLiteral("interrupted; every file that is there is complete, and the same command "
                                              "goes on where this one stopped")};
    case RunEnd::DeviceGone:
        throw Failure{ExitDeviceUnreachable, outcome.message};
    case RunEnd::DestinationFull:
    case RunEnd::DestinationRefused:
    case RunEnd::RecordUnusable:
        throw Failure{ExitOutputFailed, outcome.message};
    case RunEnd::BadLayout:
        throw Failure{ExitUsage, outcome.message};
    case RunEnd::OutOfMemory:
        break;
    }
    throw Failure{ExitSomeFailed, outcome.message};
}

void printSummary(Output &out, const QString &destination, const RunOutcome &outcome, bool dryRun)
{
    out.write(harmless(QStringLiteral("%1: %2").arg(destination, summaryLine(outcome, dryRun))) + QChar('\n'));
    if (dryRun)
        out.write("nothing was written: --dry-run\n");
    out.flush(); // before what follows on standard error
}

ExitCode verifyExport(const QString &destination, ExportView &view, Output &out)
{
    const exporter::VerifyOutcome outcome = exporter::verify(destination, view);
    view.finishVerifying();
    if (outcome.end == RunEnd::Cancelled)
        throw Failure{ExitInterrupted, QStringLiteral("interrupted while verifying; the export itself is complete")};
    if (outcome.end != RunEnd::Completed)
        throw Failure{ExitOutputFailed, outcome.message};
    out.write(harmless(QStringLiteral("%1: %2 verified, %3")
                           .arg(destination, counted(outcome.filesChecked, "file", "files"),
                                outcome.differences == 0 ? QStringLiteral("no difference")
                                                         : counted(outcome.differences, "difference", "differences"))) +
              QChar('\n'));
    out.flush();
    if (outcome.differences == 0)
        return ExitOk;
    printError(QStringLiteral("to have files that differ anew, move them out of the destination and run the same "
                              "command again"));
    return ExitSomeFailed;
}

bool didSomething(const RunOutcome &outcome)
{
    return outcome.end == RunEnd::Completed || outcome.photosDone > 0;
}

ExitCode work(const ExportCommandOptions &options, LibrarySession &session, const QList<qint64> &ids)
{
    Output out;
    const QString destination = QString::fromStdString(options.destination);
    ExportView view(options.showProgress(), beginReport(options, session.deviceName()),
                    options.dryRun ? &out : nullptr);
    const RunOutcome outcome = exporter::run(session.library(), session.device(), ids, exportOptions(options), view);
    view.finishRun();
    if (didSomething(outcome))
        printSummary(out, destination, outcome, options.dryRun);
    if (outcome.count(FileStatus::Missing) + outcome.count(FileStatus::Failed) > 0)
        session.noteOnMissingFiles();
    ExitCode code = ExitOk;
    try {
        code = concludeRun(outcome, options.dryRun);
        if (options.verify && verifyExport(destination, view, out) != ExitOk)
            code = ExitSomeFailed;
    } catch (const Failure &) {
        view.commitReport(); // what was done is worth knowing above all when the rest was not
        throw;
    }
    view.commitReport();
    out.finish();
    return code;
}

ExitCode runExport(const ExportCommandOptions &options)
{
    // What is malformed is refused before anything is read.
    SelectionRequest request = options.selection.request();
    requireLayout(QString::fromStdString(options.layout));
    if (!options.report.empty())
        ExportReport::checkName(QString::fromStdString(options.report));
    LibrarySession session(options);
    requirePlace(QString::fromStdString(options.destination), session.deviceName());
    const QList<qint64> ids = chosenPhotos(session.library(), std::move(request));
    if (ids.isEmpty())
        printNote(QStringLiteral("photolib: no photos match"));
    const ExitCode code = work(options, session, ids);
    return code == ExitOk ? session.status() : code;
}

std::string layoutHelp()
{
    return "Where files go below DEST: a template in which {FIELD} or, for dates, {FIELD:FORMAT} stand for what is "
           "known of the photo; dcim keeps the device's folders and names. Fields: " +
           exporter::Layout::fields().join(QStringLiteral(", ")).toStdString();
}

void addOptions(CLI::App &command, ExportCommandOptions &options)
{
    command.add_option("DEST", options.destination, "The folder that receives the files; made when it is not there")
        ->required()
        ->type_name("");
    command.add_option("--layout", options.layout, layoutHelp())->type_name("TEMPLATE")->capture_default_str();
    command.add_flag("--utc", options.utc, "Dates in the layout are UTC, not local time");
    command.add_flag("--albums", options.albums, "Also a folder of links for each album, Albums/TITLE, in its order");
    command.add_flag("--edited", options.edited, "Also photos and videos as they were edited on the device");
    command.add_option("--retries", options.retries, "Try a file that failed N times more")
        ->type_name("N")
        ->check(CLI::Range(0, 100).description(""))
        ->capture_default_str();
    CLI::Option *dryRun =
        command.add_flag("--dry-run", options.dryRun, "Only list what would be copied; write nothing");
    command.add_flag("--verify", options.verify, "Afterwards read all exported files again and compare them")
        ->excludes(dryRun);
    command
        .add_option("--report", options.report,
                    "Write what became of each file to FILE, .csv or .json; replaced "
                    "when it is there")
        ->type_name("FILE");
}

} // namespace

void addExportCommand(CLI::App &app, Action &action)
{
    const auto options = std::make_shared<ExportCommandOptions>();
    CLI::App *command = app.add_subcommand("export", "Copy photos and videos into a folder; again: what is new only");
    addDeviceOptions(*command, *options);
    addOptions(*command, *options);
    addSelectionOptions(*command, options->selection);
    command->callback([options, &action] { action = [options] { return runExport(*options); }; });
}

} // namespace photocli
