#include "exporter/set_publication.h"

#include "exporter/errors.h"
#include "photolib/photo_item.h"

namespace exporter
{

namespace
{

// Names that appear between the look and the rename are rare; this many in a row mean something else is wrong.
constexpr int attemptLimit = 20;

qint64 sizeOf(const Member &member)
{
    return member.copy ? member.copy->size : member.stored->size;
}

QByteArray hashOfContent(const Member &member)
{
    return member.copy ? member.copy->sha256 : member.stored->sha256;
}

} // namespace

std::vector<QString> SetPublication::endings() const
{
    std::vector<QString> result;
    for (const Result &item : items)
        result.push_back(item.member->ending());
    return result;
}

NameAllocation::SameContent SetPublication::comparison()
{
    return [this](std::size_t index, const QString &path, qint64 size) {
        const Member &member = *items[index].member;
        if (size != sizeOf(member))
            return false;
        try {
            return hashOf(tools.destination, path, [this](qint64) { tools.state.requireGoOn(); }) ==
                   hashOfContent(member);
        } catch (const FileProblem &) {
            return false; // what cannot be read is in the way
        }
    };
}

void SetPublication::publishAnew()
{
    const Place place = tools.layout.place(photo, tools.state.options.utcDates);
    for (int attempt = 0; attempt < attemptLimit; ++attempt) {
        const NameAllocation::Choice choice = tools.names.choose(place, endings(), comparison());
        if (publishAt(choice.stemPath, choice.adopted, nullptr))
            return;
    }
    throw FileProblem(QStringLiteral("another program keeps taking the names for this photo"));
}

bool SetPublication::publishBeside(const StoredSet &set)
{
    std::vector<bool> adopted;
    return tools.names.fits(set.stemPath, endings(), comparison(), &adopted) && publishAt(set.stemPath, adopted, &set);
}

bool SetPublication::publishAt(const QString &stemPath, const std::vector<bool> &adopted, const StoredSet *beside)
{
    for (std::size_t index = 0; index < items.size(); ++index) {
        items[index].path = stemPath + items[index].member->ending();
        items[index].adopted = adopted[index];
        items[index].published = false;
    }
    writeIntents(beside, stemPath);
    try {
        for (Result &item : items) {
            if (item.adopted || giveName(item))
                continue;
            takeBack();
            tools.names.refuse(item.path);
            return false;
        }
        finish();
    } catch (const FileProblem &) {
        takeBack();
        throw;
    }
    return true;
}

void SetPublication::writeIntents(const StoredSet *beside, const QString &stemPath)
{
    Transaction transaction(tools.record.connection());
    newSet = beside != nullptr ? 0 : tools.record.addSet(tools.library.keyOf(photo), stemPath);
    for (Result &item : items) {
        const Member &member = *item.member;
        StoredFile file;
        file.set = beside != nullptr ? beside->id : newSet;
        file.role = member.file.role;
        file.devicePath = member.file.devicePath;
        file.size = sizeOf(member);
        file.sha256 = hashOfContent(member);
        file.modified = modificationOf(photo);
        file.path = item.path;
        file.mtimeNs = member.copy ? member.copy->mtimeNs : member.stored->mtimeNs;
        file.uuid = photo.uuid;
        item.rowId = tools.record.addFile(file);
    }
    transaction.commit();
}

// False when the name was taken meanwhile.
bool SetPublication::giveName(Result &item)
{
    Member &member = *item.member;
    if (member.copy)
        return item.published = member.copy->temporary->publish(item.path);
    switch (tools.destination.link(member.stored->path, item.path)) {
    case Destination::LinkResult::Linked:
        return item.published = true;
    case Destination::LinkResult::Taken:
        return false;
    case Destination::LinkResult::Impossible:
        break;
    }
    item.localCopy = copyInside(tools.destination, member.stored->path, member.stored->sha256, tools.state);
    return item.published = item.localCopy->temporary->publish(item.path);
}

void SetPublication::finish()
{
    if (!items.empty())
        tools.destination.syncFolder(folderOf(items.front().path));
    Transaction transaction(tools.record.connection());
    for (const Result &item : items) {
        const auto found = tools.destination.stat(item.path);
        if (!found)
            throw FileProblem(item.path + QStringLiteral(": removed by another program"));
        tools.record.finishFile(item.rowId, found->mtimeNs);
    }
    transaction.commit();
    for (const Result &item : items)
        tools.names.add(item.path);
}

void SetPublication::takeBack()
{
    for (Result &item : items) {
        if (!item.published)
            continue;
        item.published = false;
        try {
            if (item.member->copy)
                item.member->copy->temporary->unpublish(item.path);
            else if (item.localCopy)
                item.localCopy->temporary->unpublish(item.path);
            else
                tools.destination.remove(item.path);
        } catch (const FileProblem &) {
            // Stays as a file without a row; a later run with the same content adopts it.
        }
    }
    Transaction transaction(tools.record.connection());
    for (const Result &item : items)
        tools.record.removeFile(item.rowId);
    if (newSet != 0)
        tools.record.removeEmptySet(newSet);
    transaction.commit();
    if (!items.empty())
        tools.names.forget(folderOf(items.front().path));
}

} // namespace exporter
