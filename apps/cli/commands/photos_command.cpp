#include "apps/cli/commands/commands.h"
#include "apps/cli/commands/listing.h"
#include "apps/cli/media_type.h"
#include "apps/cli/messages.h"
#include "apps/cli/options/selection_options.h"
#include "apps/cli/output/photo_text.h"
#include "apps/cli/output/table.h"
#include "apps/cli/output/text.h"
#include "apps/cli/output/value_text.h"

#include <CLI/CLI.hpp>

namespace photocli
{

namespace
{

struct PhotosOptions : DeviceOptions, FormatOptions {
    SelectionOptions selection;
};

QStringList cellsOf(const photoItem &photo)
{
    const QString file = photo.directory.isEmpty() ? photo.fileName : photo.directory + QChar('/') + photo.fileName;
    return {QString::number(photo.id),       localDateText(photo.dateCreated),
            mediaTypeName(photo.mediaType),  QStringLiteral("%1x%2").arg(photo.width).arg(photo.height),
            durationText(photo.duration),    humanSize(photo.fileSize),
            marksOf(photo).join(QChar(',')), file};
}

QList<Column> columnsFor(photo_manager_int &library)
{
    // Fixed before the first line, so that lines can be printed as the photos come: ids ascend, so the last is the
    // widest, and the others have a usual width.
    const QList<qint64> ids = library.getPhotoList();
    const int idWidth = ids.isEmpty() ? 0 : QString::number(ids.last()).size();
    return {{QStringLiteral("ID"), Column::Right, idWidth}, {QStringLiteral("TAKEN"), Column::Left, 19},
            {QStringLiteral("TYPE"), Column::Left, 5},      {QStringLiteral("PIXELS"), Column::Right, 11},
            {QStringLiteral("LENGTH"), Column::Right, 7},   {QStringLiteral("SIZE"), Column::Right, 8},
            {QStringLiteral("MARKS"), Column::Left, 8},     {QStringLiteral("FILE")}};
}

// Hands each photo of the selection to `add`; the first line goes out at once, the others as the buffer fills. Whether
// there was any.
template <typename Add>
bool stream(const Selection &selection, Output &out, const Add &add)
{
    bool first = true;
    selection.forEach([&](const photoItem &photo) {
        add(photo);
        if (first)
            out.flush();
        first = false;
        return out.wanted();
    });
    return !first;
}

void printPhotos(const Selection &selection, photo_manager_int &library, Format format, Output &out)
{
    if (format == Format::Table) {
        TableWriter table(out, columnsFor(library));
        table.header();
        if (!stream(selection, out, [&table](const photoItem &photo) { table.row(cellsOf(photo)); })) {
            out.flush(); // the header first, where both go to one terminal
            printNote(QStringLiteral("photolib: no photos match"));
        }
        return;
    }
    RecordList<photoItem> list(out, format);
    stream(selection, out, [&list](const photoItem &photo) { list.add(photo); });
    list.end();
}

ExitCode runPhotos(const PhotosOptions &options)
{
    SelectionRequest request = options.selection.request(); // before anything is read: it may be malformed
    LibrarySession session(options);
    const Selection selection(session.library(), std::move(request));
    Output out;
    printPhotos(selection, session.library(), options.format(), out);
    return conclude(out, session);
}

} // namespace

void addPhotosCommand(CLI::App &app, Action &action)
{
    const auto options = std::make_shared<PhotosOptions>();
    CLI::App *command = app.add_subcommand("photos", "List photos and videos, all or some");
    addDeviceOptions(*command, *options);
    addFormatOptions(*command, *options);
    addSelectionOptions(*command, options->selection);
    command->callback([options, &action] { action = [options] { return runPhotos(*options); }; });
}

} // namespace photocli
