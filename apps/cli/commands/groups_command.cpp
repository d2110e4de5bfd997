#include "apps/cli/categories.h"
#include "apps/cli/commands/commands.h"
#include "apps/cli/commands/listing.h"
#include "apps/cli/output/table.h"
#include "apps/cli/selection/group_name.h"

#include <CLI/CLI.hpp>

#include <QSet>

namespace photocli
{

namespace
{

struct GroupsOptions : DeviceOptions, FormatOptions {
    std::vector<std::string> groups;
};

QVector<GroupName> requested(const GroupsOptions &options)
{
    QVector<GroupName> names;
    for (const std::string &group : options.groups)
        names += parseGroupName(QString::fromStdString(group));
    return names;
}

// The groups to list: every one that `names` asks for, or all; by category, then in the library's order, each once.
QVector<GroupName> chosen(photo_manager_int &library, const QVector<GroupName> &names)
{
    QVector<GroupName> result;
    for (const Category &category : categories()) {
        QSet<QString> keys;
        for (const GroupName &name : names) {
            if (name.category != category.code)
                continue;
            for (const QString &key : groupKeys(library, name))
                keys.insert(key);
        }
        for (const QString &key : library.getGroupKeys(category.code)) {
            if (names.isEmpty() || keys.contains(key))
                result += GroupName{category.code, key};
        }
    }
    return result;
}

QString coverText(const photoGroup &group)
{
    // For people the number is the face group's own, not a photo's.
    const bool isPhoto = group.category != peopleCategory && group.coverAssetId != 0;
    return isPhoto ? QString::number(group.coverAssetId) : QStringLiteral("-");
}

QStringList cellsOf(const photoGroup &group)
{
    return {QString::number(group.category),
            categoryName(group.category),
            group.key,
            QString::number(group.assetIds.size()),
            coverText(group),
            group.title.isEmpty() ? QStringLiteral("-") : group.title};
}

void printTable(Output &out, photo_manager_int &library, const QVector<GroupName> &names)
{
    QList<QStringList> rows;
    for (const GroupName &name : names)
        rows += cellsOf(library.getPhotoGroup(name.category, name.key));
    TableWriter::print(out,
                       {{QStringLiteral("CODE"), Column::Right},
                        {QStringLiteral("CATEGORY")},
                        {QStringLiteral("KEY")},
                        {QStringLiteral("PHOTOS"), Column::Right},
                        {QStringLiteral("COVER"), Column::Right},
                        {QStringLiteral("TITLE")}},
                       rows);
}

void printRecords(Output &out, photo_manager_int &library, const QVector<GroupName> &names, Format format)
{
    RecordList<photoGroup> list(out, format);
    for (const GroupName &name : names) {
        if (!out.wanted())
            return;
        list.add(library.getPhotoGroup(name.category, name.key));
    }
    list.end();
}

ExitCode runGroups(const GroupsOptions &options)
{
    const QVector<GroupName> request = requested(options);
    LibrarySession session(options);
    const QVector<GroupName> names = chosen(session.library(), request);
    Output out;
    if (options.format() == Format::Table)
        printTable(out, session.library(), names);
    else
        printRecords(out, session.library(), names, options.format());
    return conclude(out, session);
}

} // namespace

void addGroupsCommand(CLI::App &app, Action &action)
{
    const auto options = std::make_shared<GroupsOptions>();
    CLI::App *command = app.add_subcommand("groups", "List the automatic groups: people, places, memories, ...");
    addDeviceOptions(*command, *options);
    addFormatOptions(*command, *options);
    command->add_option("--group", options->groups, "Only this group, or the groups of this category (name or number)")
        ->allow_extra_args(false)
        ->type_name("CATEGORY[/KEY]");
    command->callback([options, &action] { action = [options] { return runGroups(*options); }; });
}

} // namespace photocli
