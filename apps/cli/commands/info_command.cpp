#include "apps/cli/categories.h"
#include "apps/cli/commands/commands.h"
#include "apps/cli/commands/library_summary.h"
#include "apps/cli/commands/listing.h"
#include "apps/cli/output/labelled_line.h"
#include "apps/cli/output/table.h"
#include "apps/cli/output/text.h"
#include "apps/cli/output/value_text.h"

#include <CLI/CLI.hpp>

namespace photocli
{

namespace
{

struct InfoOptions : DeviceOptions, FormatOptions {
};

void printLine(Output &out, const char *label, const QString &text)
{
    printLabelled(out, QLatin1String(label), 18, text);
}

void printText(Output &out, const LibrarySummary &summary)
{
    printLine(out, "Device", summary.device);
    printLine(out, "Library UUID", summary.libraryUuid.isEmpty() ? QStringLiteral("-") : summary.libraryUuid);
    printLine(out, "Photos", QString::number(summary.photos));
    printLine(out, "Videos", QString::number(summary.videos));
    printLine(out, "Recently deleted", QString::number(summary.recentlyDeleted));
    printLine(
        out, "Albums",
        QStringLiteral("%1 (and %2 built-in)").arg(summary.albums - summary.builtinAlbums).arg(summary.builtinAlbums));
    printLine(out, "First taken", localDateText(summary.firstDate));
    printLine(out, "Last taken", localDateText(summary.lastDate));
    printLine(out, "Size", humanSize(summary.bytes));
    if (summary.categories.isEmpty())
        return;
    out.put('\n');
    QList<QStringList> rows;
    for (const CategoryCount &count : summary.categories)
        rows += QStringList{count.category->title, QLatin1String(count.category->name), QString::number(count.groups),
                            QString::number(count.photos)};
    TableWriter::print(out,
                       {{QStringLiteral("CATEGORY")},
                        {QStringLiteral("NAME")},
                        {QStringLiteral("GROUPS"), Column::Right},
                        {QStringLiteral("PHOTOS"), Column::Right}},
                       rows);
}

void printJson(Output &out, const LibrarySummary &summary)
{
    Json json(out);
    const auto member = [&json](const char *name, const auto &value) {
        json.newLine();
        json.member(name, value);
    };
    json.beginObject();
    member("device", summary.device);
    member("libraryUuid", summary.libraryUuid);
    member("photos", summary.photos);
    member("videos", summary.videos);
    member("recentlyDeleted", summary.recentlyDeleted);
    member("albums", summary.albums);
    member("builtinAlbums", summary.builtinAlbums);
    member("firstDate", summary.firstDate);
    member("lastDate", summary.lastDate);
    member("bytes", summary.bytes);
    json.newLine();
    json.name("categories");
    json.beginArray();
    for (const CategoryCount &count : summary.categories) {
        json.newLine();
        json.beginObject();
        json.member("category", count.category->code);
        json.member("name", QString::fromLatin1(count.category->name));
        json.member("groups", count.groups);
        json.member("photos", count.photos);
        json.endObject();
    }
    json.newLine();
    json.endArray();
    json.newLine();
    json.endObject();
    out.put('\n');
}

ExitCode runInfo(const InfoOptions &options)
{
    LibrarySession session(options);
    LibrarySummary summary = summarize(session.library());
    endIfInterrupted(); // the figures are not complete then
    summary.device = session.deviceName();
    Output out;
    if (options.json)
        printJson(out, summary);
    else
        printText(out, summary);
    return conclude(out, session);
}

} // namespace

void addInfoCommand(CLI::App &app, Action &action)
{
    const auto options = std::make_shared<InfoOptions>();
    CLI::App *command = app.add_subcommand("info", "Tell what a device's photo library holds");
    addDeviceOptions(*command, *options);
    addJsonOption(*command, *options);
    command->callback([options, &action] { action = [options] { return runInfo(*options); }; });
}

} // namespace photocli
