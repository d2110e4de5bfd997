#include "apps/cli/album_kinds.h"
#include "apps/cli/commands/commands.h"
#include "apps/cli/commands/listing.h"
#include "apps/cli/output/table.h"
#include "apps/cli/selection/album_lookup.h"

#include <CLI/CLI.hpp>

namespace photocli
{

namespace
{

struct AlbumsOptions : DeviceOptions, FormatOptions {
    bool all = false;
};

QStringList cellsOf(const albumItem &album)
{
    return {QString::number(album.id), album.title.isEmpty() ? QStringLiteral("-") : album.title,
            albumKindName(album.kind), QString::number(album.photoIds.size()),
            album.trashedState != 0 ? QStringLiteral("in the trash") : QString()};
}

void printTable(Output &out, photo_manager_int &library, bool all)
{
    QList<QStringList> rows;
    int builtin = 0;
    for (const qint64 id : library.getAlbumList()) {
        const albumItem album = albumOf(library, id);
        if (!all && isBuiltinAlbum(album))
            ++builtin;
        else
            rows += cellsOf(album);
    }
    TableWriter::print(out,
                       {{QStringLiteral("ID"), Column::Right},
                        {QStringLiteral("TITLE")},
                        {QStringLiteral("KIND")},
                        {QStringLiteral("PHOTOS"), Column::Right},
                        {QStringLiteral("STATE")}},
                       rows);
    if (builtin > 0)
        out.write(QStringLiteral("%1 built-in album%2 not shown (--all)\n")
                      .arg(builtin)
                      .arg(builtin == 1 ? QString() : QStringLiteral("s")));
}

void printRecords(Output &out, photo_manager_int &library, Format format)
{
    RecordList<albumItem> list(out, format);
    for (const qint64 id : library.getAlbumList()) {
        if (!out.wanted())
            return;
        list.add(albumOf(library, id));
    }
    list.end();
}

ExitCode runAlbums(const AlbumsOptions &options)
{
    LibrarySession session(options);
    Output out;
    if (options.format() == Format::Table)
        printTable(out, session.library(), options.all);
    else
        printRecords(out, session.library(), options.format());
    return conclude(out, session);
}

} // namespace

void addAlbumsCommand(CLI::App &app, Action &action)
{
    const auto options = std::make_shared<AlbumsOptions>();
    CLI::App *command = app.add_subcommand("albums", "List the albums");
    addDeviceOptions(*command, *options);
    addFormatOptions(*command, *options);
    command->add_flag("--all", options->all, "Show the device's built-in albums too (JSON and CSV always do)");
    command->callback([options, &action] { action = [options] { return runAlbums(*options); }; });
}

} // namespace photocli
