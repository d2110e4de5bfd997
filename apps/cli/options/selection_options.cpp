#include "apps/cli/options/selection_options.h"

#include "apps/cli/failure.h"
#include "apps/cli/messages.h"
#include "apps/cli/selection/date_bound.h"

#include <CLI/CLI.hpp>

namespace photocli
{

namespace
{

constexpr const char *heading = "Choosing photos (different options narrow the choice, a repeated one widens it)";

void addList(CLI::App &command, const char *name, std::vector<std::string> &values, const char *type,
             const std::string &help)
{
    command.add_option(name, values, help)->allow_extra_args(false)->type_name(type)->group(heading);
}

void addFlag(CLI::App &command, const char *name, bool &value, const char *help)
{
    command.add_flag(name, value, help)->group(heading);
}

qint64 parseLimit(const QString &text)
{
    bool isNumber = false;
    const qint64 number = text.toLongLong(&isNumber);
    if (!isNumber || number < 0)
        throw Failure{ExitUsage, QStringLiteral("--limit %1 is no number of photos; give 0 or more").arg(quoted(text))};
    return number;
}

} // namespace

void addSelectionOptions(CLI::App &command, SelectionOptions &options)
{
    addList(command, "--album", options.albums, "NAME", "Photos of the album with this title, id or UUID");
    addList(command, "--group", options.groups, "CATEGORY[/KEY]",
            "Photos of this group, or of all groups of the category (name or number)");
    addFlag(command, "--favorite", options.favorite, "Photos marked as favorites");
    addFlag(command, "--hidden", options.hidden, "Photos that their owner has hidden");
    addFlag(command, "--deleted", options.deleted, "Recently deleted photos, which are left out otherwise");
    addFlag(command, "--only-photos", options.onlyPhotos, "Photos only: still and animated pictures, no videos");
    addFlag(command, "--only-movies", options.onlyMovies, "Movies only: videos of every kind, no pictures");
    command.get_option("--only-movies")->excludes("--only-photos");
    addList(command, "--from-date", options.fromDates, "DATE",
            "Taken at or after this date (2024-05-01) or time (2024-05-01T18:30), local time");
    addList(command, "--to-date", options.toDates, "DATE", "Taken at or before this time, or on this date or before");
    addList(command, "--uuid", options.uuids, "UUID", "The photo with this UUID");
    command.add_option("--limit", options.limit, "At most N photos")->type_name("N")->group(heading);
}

SelectionRequest SelectionOptions::request() const
{
    SelectionRequest result;
    for (const std::string &album : albums)
        result.albums += QString::fromStdString(album);
    for (const std::string &group : groups)
        result.groups += parseGroupName(QString::fromStdString(group));
    for (const std::string &uuid : uuids)
        result.uuids += QString::fromStdString(uuid);
    for (const std::string &date : fromDates)
        result.fromDates += parseFromDate(QString::fromStdString(date));
    for (const std::string &date : toDates)
        result.toDates += parseToDate(QString::fromStdString(date));
    result.favorite = favorite;
    result.hidden = hidden;
    result.deleted = deleted;
    result.onlyPhotos = onlyPhotos;
    result.onlyMovies = onlyMovies;
    if (!limit.empty())
        result.limit = parseLimit(QString::fromStdString(limit));
    return result;
}

} // namespace photocli
