#include "apps/cli/categories.h"
#include "apps/cli/commands/commands.h"
#include "apps/cli/commands/listing.h"
#include "apps/cli/selection/album_lookup.h"

#include <CLI/CLI.hpp>

namespace photocli
{

namespace
{

// A member of the document that is an array, one element a line, written while there is a reader for it.
template <typename Write>
void arrayMember(Json &json, const char *name, const Write &writeElements)
{
    json.newLine();
    json.name(name);
    json.beginArray();
    writeElements();
    json.newLine();
    json.endArray();
}

template <typename Value>
void lineMember(Json &json, const char *name, const Value &value)
{
    json.newLine();
    json.member(name, value);
}

void dumpPhotos(Json &json, Output &out, photo_manager_int &library)
{
    photoItem photo;
    for (const qint64 id : library.getPhotoList()) {
        if (!out.wanted())
            return;
        library.getPhotoItem(&id, &photo);
        json.newLine();
        json.record(photo);
    }
}

void dumpAlbums(Json &json, Output &out, photo_manager_int &library)
{
    for (const qint64 id : library.getAlbumList()) {
        if (!out.wanted())
            return;
        json.newLine();
        json.record(albumOf(library, id));
    }
}

void dumpGroups(Json &json, Output &out, photo_manager_int &library)
{
    for (const Category &category : categories()) {
        for (const QString &key : library.getGroupKeys(category.code)) {
            if (!out.wanted())
                return;
            json.newLine();
            json.record(library.getPhotoGroup(category.code, key));
        }
    }
}

void dumpLibrary(Output &out, photo_manager_int &library)
{
    Json json(out);
    json.beginObject();
    lineMember(json, "libraryUuid", library.getLibraryUuid());
    lineMember(json, "photoCount", library.getPhotoCount());
    lineMember(json, "albumCount", library.getAlbumCount());
    arrayMember(json, "photos", [&] { dumpPhotos(json, out, library); });
    arrayMember(json, "albums", [&] { dumpAlbums(json, out, library); });
    arrayMember(json, "groups", [&] { dumpGroups(json, out, library); });
    json.newLine();
    json.endObject();
    out.put('\n');
}

ExitCode runDump(const DeviceOptions &options)
{
    LibrarySession session(options);
    Output out;
    dumpLibrary(out, session.library());
    return conclude(out, session);
}

} // namespace

void addDumpCommand(CLI::App &app, Action &action)
{
    const auto options = std::make_shared<DeviceOptions>();
    CLI::App *command = app.add_subcommand("dump", "Print all photos, albums and groups as one JSON document");
    addDeviceOptions(*command, *options);
    command->callback([options, &action] { action = [options] { return runDump(*options); }; });
}

} // namespace photocli
