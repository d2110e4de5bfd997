#include "apps/cli/commands/commands.h"
#include "apps/cli/failure.h"
#include "apps/cli/interrupt.h"
#include "apps/cli/log_watch.h"
#include "apps/cli/options/common_options.h"
#include "apps/cli/output/output.h"
#include "apps/cli/output/text.h"
#include "apps/cli/progress_bar.h"
#include "apps/cli/sample/sample_device.h"

#include <CLI/CLI.hpp>

namespace photocli
{

namespace
{

struct SampleCommandOptions : ProgressOptions {
    std::string directory;
    std::string era;
};

std::vector<std::string> eraNames()
{
    std::vector<std::string> names;
    for (const QString &era : sample::sampleEras())
        names.push_back(era.toStdString());
    return names;
}

sample::SampleReport writeDevice(const SampleCommandOptions &options)
{
    const sample::SampleOptions request{QString::fromStdString(options.directory), QString::fromStdString(options.era)};
    const InterruptScope interrupts;
    ProgressBar bar;
    const auto progress = [&bar, &options](int done, int total) {
        if (options.showProgress())
            bar.show(done, total);
        return !interruptRequested();
    };
    sample::SampleReport report;
    QString error;
    const sample::SampleOutcome outcome = sample::writeSampleDevice(request, &error, &report, progress);
    bar.erase();
    if (outcome == sample::SampleOutcome::Stopped)
        throw Failure{ExitInterrupted, QStringLiteral("interrupted; %1").arg(error)};
    if (outcome == sample::SampleOutcome::Failed)
        throw Failure{ExitOutputFailed, error};
    return report;
}

ExitCode runSample(const SampleCommandOptions &options)
{
    const LogWatch log(QString::fromStdString(options.logFile), options.verbose);
    const sample::SampleReport report = writeDevice(options);
    Output out;
    out.write(harmless(QStringLiteral("%1: %2 photos and videos, %3 albums, %4 memories in %5 files, %6")
                           .arg(QString::fromStdString(options.directory))
                           .arg(report.assets)
                           .arg(report.albums)
                           .arg(report.memories)
                           .arg(report.files)
                           .arg(humanSize(report.bytes))) +
              QChar('\n'));
    out.finish();
    return ExitOk;
}

std::string refusalOfNoName(const std::string &directory)
{
    return directory.empty() ? "the name is empty; name a new or an empty folder" : "";
}

} // namespace

void addSampleCommand(CLI::App &app, Action &action)
{
    const auto options = std::make_shared<SampleCommandOptions>();
    options->era = sample::defaultEra().toStdString();
    CLI::App *command = app.add_subcommand("sample", "Write a made-up device folder to try everything on");
    command->add_option("DIR", options->directory, "The folder to write; absent or empty")
        ->required()
        ->check(refusalOfNoName)
        ->type_name("");
    command->add_option("--era", options->era, "The release of the device's system")
        ->type_name("ERA")
        ->check(CLI::IsMember(eraNames(), CLI::ignore_case))
        ->capture_default_str();
    addProgressOptions(*command, *options);
    command->callback([options, &action] { action = [options] { return runSample(*options); }; });
}

} // namespace photocli
