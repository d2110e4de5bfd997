// What a dry run does with a photo: the same decisions, without the files' content, written into a private record only.
#include "exporter/photo_export.h"

#include <algorithm>

namespace exporter
{

void PhotoExport::planAll()
{
    const bool changed = std::any_of(members.begin(), members.end(), [](const Member &member) {
        return !member.dropped && (member.deviceChanged || member.local == Member::Local::Altered);
    });
    const bool anyNeeded =
        std::any_of(members.begin(), members.end(), [](const Member &member) { return member.needsCopy(); });
    if (anyNeeded && (!set || changed || !plan(false)))
        plan(true);
    for (Member &member : members) {
        if (!member.dropped)
            tools.state.report(reportOf(member, FileStatus::Skipped));
    }
}

// `anew`: all files under the next name; else those that are needed beside the others. False when they do not fit
// there.
bool PhotoExport::plan(bool anew)
{
    std::vector<Member *> planned;
    std::vector<QString> endings;
    for (Member &member : members) {
        if (member.dropped || !(anew || member.needsCopy()))
            continue;
        planned.push_back(&member);
        endings.push_back(member.ending());
    }
    // The same size is all that can be compared without reading the device.
    const auto same = [&planned](std::size_t index, const QString &, qint64 size) {
        return size == planned[index]->file.size;
    };
    NameAllocation::Choice choice;
    if (anew)
        choice = tools.names.choose(tools.layout.place(photo, tools.state.options.utcDates), endings, same);
    else if (tools.names.fits(set->stemPath, endings, same, &choice.adopted))
        choice.stemPath = set->stemPath;
    else
        return false;
    Transaction transaction(tools.record.connection());
    const qint64 row = anew ? tools.record.addSet(tools.library.keyOf(photo), choice.stemPath) : set->id;
    for (std::size_t index = 0; index < planned.size(); ++index) {
        StoredFile file;
        file.set = row;
        file.role = planned[index]->file.role;
        file.path = choice.stemPath + endings[index];
        tools.record.addFile(file);
        reportPlan(*planned[index], file.path, choice.adopted[index]);
    }
    transaction.commit();
    return true;
}

void PhotoExport::reportPlan(Member &member, const QString &path, bool adopted)
{
    FileReport report = reportOf(member, adopted ? FileStatus::Adopted : FileStatus::Exported);
    report.destination = path;
    if (!adopted && member.needsCopy())
        tools.state.outcome.bytesExported += member.file.size;
    member.dropped = true;
    tools.state.report(report);
}

} // namespace exporter
