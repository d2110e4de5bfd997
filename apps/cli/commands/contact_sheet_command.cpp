#include "apps/cli/commands/commands.h"
#include "apps/cli/commands/listing.h"
#include "apps/cli/contact_sheet/sheet_page.h"
#include "apps/cli/device_place.h"
#include "apps/cli/messages.h"
#include "apps/cli/options/selection_options.h"
#include "apps/cli/output/output_file.h"
#include "apps/cli/output/text.h"
#include "apps/cli/progress_bar.h"

#include <CLI/CLI.hpp>

#include <QFileInfo>

#include <unistd.h>

namespace photocli
{

namespace
{

struct ContactSheetOptions : DeviceOptions {
    SelectionOptions selection;
    std::string file;
    std::string title;
    bool force = false;

    Existing existing() const { return force ? Existing::Replace : Existing::Keep; }
};

QString titleFor(const ContactSheetOptions &options, const QString &device)
{
    if (!options.title.empty())
        return QString::fromStdString(options.title);
    const QString name = QFileInfo(QFileInfo(device.mid(device.indexOf(QChar(':')) + 1)).absoluteFilePath()).fileName();
    return name.isEmpty() ? QStringLiteral("Contact sheet") : QStringLiteral("Contact sheet of %1").arg(name);
}

void endIfDeviceIsGone(LibrarySession &session)
{
    if (session.device().isAvailable())
        return;
    endIfInterrupted(); // which ends what is asked of the device, too
    throw Failure{ExitDeviceUnreachable, QStringLiteral("%1: the device cannot be reached any more, so no page is "
                                                        "written; connect it again and try again")
                                             .arg(session.deviceName())};
}

void tell(const QString &file, bool onStandardError, const SheetPlan &plan, int missing)
{
    int groups = 0;
    for (const SheetSection &section : plan.sections)
        groups += section.groups.size();
    const QString line =
        QStringLiteral("%1 in %2, %3")
            .arg(counted(plan.photos.size(), "photo or video", "photos and videos"), counted(groups, "group", "groups"),
                 counted(plan.photos.size() - missing, "thumbnail", "thumbnails"));
    if (onStandardError)
        return printNote(QStringLiteral("photolib: ") + line);
    const QString size = humanSize(QFileInfo(file).size());
    Output report;
    report.write(harmless(QStringLiteral("%1: %2, %3").arg(file, line, size)) + QChar('\n'));
    report.finish();
}

// Answers how many photos have no thumbnail.
int writePage(LibrarySession &session, const SheetPlan &plan, const QString &title, OutputFile &file, bool showProgress)
{
    ProgressBar bar;
    SheetPage page(file.out(), session.library(), plan);
    int missing = 0;
    const auto goOn = [&] {
        if (showProgress)
            bar.show(page.pictures().taken(), plan.photos.size());
        if (page.pictures().missing() > missing) {
            missing = page.pictures().missing();
            endIfDeviceIsGone(session);
        }
        return file.out().wanted();
    };
    page.write(title, goOn);
    goOn(); // also for the last photo
    bar.erase();
    endIfInterrupted();
    file.commit();
    return missing;
}

ExitCode runContactSheet(const ContactSheetOptions &options)
{
    const QString name = QString::fromStdString(options.file);
    const SelectionRequest request = options.selection.request(); // before anything is read: it may be malformed
    if (name == QChar('-') && ::isatty(STDOUT_FILENO) == 1)
        throw Failure{ExitUsage, QStringLiteral("a page of pictures is nothing for a terminal; name a file with -o, or "
                                                "send standard output to one")};
    OutputFile::check(name, options.existing());
    LibrarySession session(options);
    refuseToWriteToDevice(name, session.deviceName());
    const SheetPlan plan = planSheet(session.library(), request);
    OutputFile file(name, options.existing());
    const int missing = writePage(session, plan, titleFor(options, session.deviceName()), file, options.showProgress());
    tell(name, file.isStandardOutput(), plan, missing);
    if (missing > 0)
        session.noteOnMissingFiles();
    if (missing > 0)
        printWarning(QStringLiteral("%1 of %2 photos have no thumbnail on the device; if they were added just now, "
                                    "look at them on the device, then connect or copy the device again")
                         .arg(missing)
                         .arg(plan.photos.size()));
    else if (plan.photos.isEmpty())
        printNote(QStringLiteral("photolib: no photos match"));
    endIfInterrupted();
    return missing > 0 ? ExitSomeFailed : session.status();
}

} // namespace

void addContactSheetCommand(CLI::App &app, Action &action)
{
    const auto options = std::make_shared<ContactSheetOptions>();
    CLI::App *command = app.add_subcommand("contact-sheet", "Write a web page of thumbnails by album and group");
    addDeviceOptions(*command, *options);
    command->add_option("-o,--output", options->file, "The HTML file to write, or - for standard output")
        ->required()
        ->type_name("FILE");
    command->add_option("--title", options->title, "What the page is called")->type_name("TEXT");
    command->add_flag("--force", options->force, "Replace FILE when it is there");
    addSelectionOptions(*command, options->selection);
    command->callback([options, &action] { action = [options] { return runContactSheet(*options); }; });
}

} // namespace photocli
