#include "apps/cli/album_kinds.h"
#include "apps/cli/categories.h"
#include "apps/cli/commands/commands.h"
#include "apps/cli/commands/listing.h"
#include "apps/cli/failure.h"
#include "apps/cli/messages.h"
#include "apps/cli/output/labelled_line.h"
#include "apps/cli/selection/album_lookup.h"
#include "apps/cli/selection/photo_lookup.h"

#include <CLI/CLI.hpp>

#include <QMap>

namespace photocli
{

namespace
{

struct ShowOptions : DeviceOptions, FormatOptions {
    std::vector<std::string> ids;
};

// Where a photo belongs; the lists of ids are left out.
struct Membership {
    QVector<albumItem> albums;
    QVector<photoGroup> groups;
};

QMap<qint64, Membership> membershipsOf(photo_manager_int &library, const QList<qint64> &photos)
{
    QMap<qint64, Membership> result;
    for (const qint64 albumId : library.getAlbumList()) {
        albumItem album = albumOf(library, albumId);
        const QList<qint64> ids = album.photoIds;
        album.photoIds.clear();
        for (const qint64 photo : photos) {
            if (ids.contains(photo))
                result[photo].albums += album;
        }
    }
    for (const Category &category : categories()) {
        for (const QString &key : library.getGroupKeys(category.code)) {
            photoGroup group = library.getPhotoGroup(category.code, key);
            const QList<qint64> ids = group.assetIds;
            group.assetIds.clear();
            for (const qint64 photo : photos) {
                if (ids.contains(photo))
                    result[photo].groups += group;
            }
        }
    }
    return result;
}

QString albumText(const albumItem &album)
{
    const QString title = album.title.isEmpty() ? QStringLiteral("-") : album.title;
    return QStringLiteral("%1 (%2, id %3)").arg(title, albumKindName(album.kind), QString::number(album.id));
}

QString groupText(const photoGroup &group)
{
    QString text = categoryName(group.category);
    if (group.key != QLatin1String("0"))
        text += QChar('/') + group.key;
    return group.title.isEmpty() ? text : text + QStringLiteral(" (%1)").arg(group.title);
}

void printLine(Output &out, const QString &name, const QString &text)
{
    printLabelled(out, name, 34, text);
}

// Of a photo that never was in the trash, the database says that it came there at the zero of its dates.
bool isDateOfNothing(const photoItem &photo)
{
    static const QDateTime zero(QDate(2001, 1, 1), QTime(0, 0), Qt::UTC);
    return photo.trashedState != 1 && photo.trashedDate == zero;
}

void printText(Output &out, const photoItem &photo, const Membership &membership)
{
    photoItem shown = photo;
    if (isDateOfNothing(photo))
        shown.trashedDate = QDateTime();
    visitFields(shown,
                [&out](const char *name, const auto &value) { printLine(out, QLatin1String(name), valueText(value)); });
    for (const albumItem &album : membership.albums)
        printLine(out, QStringLiteral("album"), albumText(album));
    for (const photoGroup &group : membership.groups)
        printLine(out, QStringLiteral("group"), groupText(group));
}

void printJson(Json &json, const photoItem &photo, const Membership &membership)
{
    json.newLine();
    json.beginObject();
    json.fields(photo);
    json.name("albums");
    json.beginArray();
    for (const albumItem &album : membership.albums) {
        json.beginObject();
        json.member("id", album.id);
        json.member("uuid", album.uuid);
        json.member("title", album.title);
        json.member("kindName", albumKindName(album.kind));
        json.endObject();
    }
    json.endArray();
    json.name("groups");
    json.beginArray();
    for (const photoGroup &group : membership.groups) {
        json.beginObject();
        json.member("category", group.category);
        json.member("categoryName", categoryName(group.category));
        json.member("key", group.key);
        json.member("title", group.title);
        json.endObject();
    }
    json.endArray();
    json.endObject();
}

// Tells of the names that stand for no photo.
QList<qint64> findPhotos(photo_manager_int &library, const std::vector<std::string> &names, ExitCode &result)
{
    QList<qint64> photos;
    for (const std::string &name : names) {
        const QString text = QString::fromStdString(name);
        const QList<qint64> ids = photosNamed(library, text);
        photos += ids;
        if (!ids.isEmpty())
            continue;
        printError(noSuchPhoto(text));
        result = ExitSomeFailed;
    }
    return photos;
}

void printPhotos(photo_manager_int &library, const QList<qint64> &photos, bool asJson, Output &out)
{
    const QMap<qint64, Membership> memberships = membershipsOf(library, photos);
    Json json(out);
    if (asJson)
        json.beginArray();
    bool first = true;
    photoItem photo;
    for (const qint64 id : photos) {
        if (!out.wanted() || !library.getPhotoItem(&id, &photo))
            continue;
        if (asJson) {
            printJson(json, photo, memberships.value(id));
            continue;
        }
        if (!first)
            out.put('\n');
        printText(out, photo, memberships.value(id));
        first = false;
    }
    if (!asJson)
        return;
    json.newLine();
    json.endArray();
    out.put('\n');
}

ExitCode runShow(const ShowOptions &options)
{
    LibrarySession session(options);
    ExitCode result = ExitOk;
    const QList<qint64> photos = findPhotos(session.library(), options.ids, result);
    Output out;
    if (!photos.isEmpty())
        printPhotos(session.library(), photos, options.json, out);
    const ExitCode concluded = conclude(out, session);
    return concluded == ExitOk ? result : concluded;
}

} // namespace

void addShowCommand(CLI::App &app, Action &action)
{
    const auto options = std::make_shared<ShowOptions>();
    CLI::App *command = app.add_subcommand("show", "Show everything known about single photos");
    addDeviceOptions(*command, *options);
    command->add_option("ID", options->ids, "Id numbers or UUIDs of photos")->required()->type_name("");
    addJsonOption(*command, *options);
    command->callback([options, &action] { action = [options] { return runShow(*options); }; });
}

} // namespace photocli
