#include "exporter/album_folders.h"

#include "exporter/errors.h"
#include "exporter/library_access.h"
#include "exporter/safe_name.h"
#include "photolib/photolib.h"

#include <QMap>
#include <QSet>

#include <set>

namespace exporter
{

namespace
{

constexpr int longestEntryName = 240;

QString albumsFolder()
{
    return QStringLiteral("Albums");
}

QString entryName(const QString &prefix, const QString &fileName, int number)
{
    const QString extension = extensionOf(fileName);
    const QString stem = safeName(prefix + stemOf(fileName), longestEntryName);
    return NumberedNames::numbered(stem, number) + (extension.isEmpty() ? QString() : QLatin1Char('.') + extension);
}

QString keyOf(qint64 file, const QString &prefix)
{
    return prefix + QString::number(file);
}

} // namespace

bool isAlbumForPeople(const albumItem &album)
{
    constexpr qint32 userAlbum = 2;
    constexpr qint32 sharedAlbum = 1505;
    constexpr qint32 syncedAlbum = 1550;
    return (album.kind == userAlbum || album.kind == sharedAlbum || album.kind == syncedAlbum) &&
           !album.title.trimmed().isEmpty() && album.trashedState == 0;
}

void AlbumFolders::update()
{
    RunState &state = tools.state;
    const QList<qint64> ids = albumsOf(manager);
    state.begin(Phase::Albums, ids.size());
    for (const qint64 id : ids) {
        state.requireGoOn();
        albumItem album;
        album.trashedState = 0;
        manager.getAlbumItem(&id, &album);
        try {
            if (isAlbumForPeople(album))
                updateAlbum(album);
        } catch (const FileProblem &problem) {
            ++state.outcome.albumsFailed;
            state.observer.note(
                QStringLiteral("the folder of the album \"%1\" is not complete: %2").arg(album.title, problem.text));
        }
        ++state.progress.photosDone;
        state.tell();
    }
}

void AlbumFolders::updateAlbum(const albumItem &album)
{
    std::vector<Wanted> wanted = wantedOf(album);
    if (wanted.empty() && !tools.record.album(tools.library.keyOf(album)))
        return;
    const StoredAlbum place = placeOf(album);
    tools.state.progress.currentFile = place.folder;
    removeStale(place, wanted);
    if (wanted.empty()) {
        tools.destination.removeEmptyFolder(place.folder);
        tools.record.removeAlbum(place.id);
        folders.giveBack(place.folder);
        return;
    }
    addMissing(place, wanted);
    ++tools.state.outcome.albums;
}

std::vector<AlbumFolders::Wanted> AlbumFolders::wantedOf(const albumItem &album)
{
    std::vector<Wanted> wanted;
    const int width = QString::number(album.photoIds.size()).size();
    std::set<qint64> seen;
    for (int position = 0; position < album.photoIds.size(); ++position) {
        tools.state.requireGoOn();
        const qint64 id = album.photoIds[position];
        photoItem photo;
        if (seen.count(id) != 0 || !readPhoto(manager, id, &photo))
            continue;
        seen.insert(id);
        const auto set = tools.record.latestSet(tools.library.keyOf(photo));
        if (!set)
            continue;
        const QString prefix = QStringLiteral("%1_").arg(position + 1, width, 10, QLatin1Char('0'));
        for (const StoredFile &file : set->files) {
            const auto found = tools.destination.stat(file.path);
            const bool isAsExported =
                found && found->regular && found->size == file.size && found->mtimeNs == file.mtimeNs;
            wanted.push_back({file, prefix, isAsExported, false});
        }
    }
    return wanted;
}

StoredAlbum AlbumFolders::placeOf(const albumItem &album)
{
    const QString key = tools.library.keyOf(album);
    auto known = tools.record.album(key);
    if (known && known->title == album.title)
        return *known;
    Transaction transaction(tools.record.connection());
    const QString folder = freeFolder(album.title);
    if (known) {
        tools.record.moveAlbum(known->id, album.title, folder);
        folders.giveBack(known->folder);
    } else
        known = StoredAlbum{tools.record.addAlbum(key, album.title, folder), {}, {}};
    transaction.commit();
    return {known->id, folder, album.title};
}

// A folder that is there already is shared: nothing in it is replaced, and it may be that of an earlier run whose
// record was moved away.
QString AlbumFolders::freeFolder(const QString &title)
{
    const QString name = albumsFolder() + QLatin1Char('/') + safeName(title);
    NumberedNames::Numbers &numbers = folders.of(name);
    while (!numbers.open.empty()) {
        const QString folder = NumberedNames::numbered(name, *numbers.open.begin());
        numbers.open.erase(numbers.open.begin());
        if (isFreeFolder(folder))
            return folder;
    }
    while (numbers.next < NumberedNames::numberLimit) {
        const QString folder = NumberedNames::numbered(name, numbers.next++);
        if (isFreeFolder(folder))
            return folder;
    }
    throw FileProblem(QStringLiteral("no free name is left for its folder"));
}

bool AlbumFolders::isFreeFolder(const QString &folder)
{
    const auto found = tools.destination.stat(folder);
    return !tools.record.isAlbumFolderTaken(folder) && (!found || found->folder);
}

bool AlbumFolders::isAsMade(const StoredEntry &entry)
{
    const auto found = tools.destination.stat(entry.path);
    return found && found->regular && found->size == entry.size && found->mtimeNs == entry.mtimeNs;
}

void AlbumFolders::removeStale(const StoredAlbum &album, std::vector<Wanted> &wanted)
{
    QMap<QString, std::size_t> index;
    for (std::size_t at = 0; at < wanted.size(); ++at)
        index.insert(keyOf(wanted[at].file.id, wanted[at].prefix), at);
    std::vector<Stale> stale;
    const std::vector<StoredEntry> entries = tools.record.entries(album.id);
    for (const StoredEntry &entry : entries) {
        tools.state.requireGoOn();
        const QString prefix = nameOf(entry.path).section(QLatin1Char('_'), 0, 0) + QLatin1Char('_');
        const auto match = index.constFind(keyOf(entry.file, prefix));
        const bool asMade = isAsMade(entry);
        if (match == index.constEnd() || !asMade || folderOf(entry.path) != album.folder) {
            stale.push_back({entry, asMade});
            continue;
        }
        wanted[*match].exists = true;
        if (!entry.done)
            tools.record.finishEntry(entry);
    }
    removeEntries(stale);
    QSet<QString> leftFolders;
    for (const Stale &entry : stale)
        leftFolders.insert(folderOf(entry.entry.path));
    leftFolders.remove(album.folder);
    for (const QString &folder : qAsConst(leftFolders))
        tools.destination.removeEmptyFolder(folder);
}

// The rows lose their state 'done' first: a run that ends in between leaves none that promises a link.
void AlbumFolders::removeEntries(const std::vector<Stale> &stale)
{
    if (stale.empty())
        return;
    Transaction intents(tools.record.connection());
    for (const Stale &entry : stale)
        tools.record.reopenEntry(entry.entry.id);
    intents.commit();
    for (const Stale &entry : stale) {
        tools.state.requireGoOn();
        if (entry.asMade)
            tools.destination.remove(entry.entry.path);
    }
    Transaction done(tools.record.connection());
    for (const Stale &entry : stale)
        tools.record.removeEntry(entry.entry.id);
    done.commit();
}

void AlbumFolders::addMissing(const StoredAlbum &album, const std::vector<Wanted> &wanted)
{
    std::vector<StoredEntry> added;
    std::vector<const StoredFile *> files;
    Transaction intents(tools.record.connection());
    for (std::size_t first = 0; first < wanted.size();) {
        std::vector<const Wanted *> group;
        std::size_t next = first;
        for (; next < wanted.size() && wanted[next].prefix == wanted[first].prefix; ++next) {
            if (!wanted[next].exists && wanted[next].available)
                group.push_back(&wanted[next]);
        }
        std::vector<StoredEntry> entries(group.size());
        for (int number = 0; !choosePaths(album.folder, entries, group, number); ++number) {
            if (number == NumberedNames::numberLimit)
                throw FileProblem(QStringLiteral("no free names are left in it"));
        }
        for (std::size_t at = 0; at < group.size(); ++at) {
            entries[at].album = album.id;
            entries[at].id = tools.record.addEntry(entries[at]);
            added.push_back(entries[at]);
            files.push_back(&group[at]->file);
        }
        first = next;
    }
    intents.commit();
    tools.destination.makeFolder(album.folder);
    for (std::size_t at = 0; at < added.size(); ++at) {
        tools.state.requireGoOn();
        makeEntry(added[at], *files[at]);
    }
    if (added.empty())
        return;
    tools.destination.syncFolder(album.folder);
    Transaction done(tools.record.connection());
    for (const StoredEntry &entry : added)
        tools.record.finishEntry(entry);
    done.commit();
}

// True when all names of the group are free, or taken by files with the same content.
bool AlbumFolders::choosePaths(const QString &folder, std::vector<StoredEntry> &group,
                               const std::vector<const Wanted *> &files, int number)
{
    for (std::size_t at = 0; at < files.size(); ++at) {
        const StoredFile &file = files[at]->file;
        StoredEntry &entry = group[at];
        entry.file = file.id;
        entry.path = folder + QLatin1Char('/') + entryName(files[at]->prefix, nameOf(file.path), number);
        entry.size = file.size;
        entry.mtimeNs = file.mtimeNs;
        if (tools.record.isEntryPathTaken(entry.path) || tools.record.isPathTaken(entry.path))
            return false;
        const auto found = tools.destination.stat(entry.path);
        if (!found)
            continue;
        const auto source = tools.destination.stat(file.path);
        const bool isLink = source && source->device == found->device && source->inode == found->inode;
        if (!isLink &&
            !(found->regular && found->size == file.size &&
              hashOf(tools.destination, entry.path, [this](qint64) { tools.state.requireGoOn(); }) == file.sha256))
            return false;
        entry.mtimeNs = found->mtimeNs;
    }
    return true;
}

void AlbumFolders::makeEntry(StoredEntry &entry, const StoredFile &file)
{
    if (isAsMade(entry))
        return;
    switch (tools.destination.link(file.path, entry.path)) {
    case Destination::LinkResult::Linked:
        return;
    case Destination::LinkResult::Taken:
        throw FileProblem(entry.path + QStringLiteral(": made by another program at the same time"));
    case Destination::LinkResult::Impossible:
        break;
    }
    CopiedFile copy = copyInside(tools.destination, file.path, file.sha256, tools.state);
    if (!copy.temporary->publish(entry.path))
        throw FileProblem(entry.path + QStringLiteral(": made by another program at the same time"));
    entry.mtimeNs = copy.mtimeNs;
}

} // namespace exporter
