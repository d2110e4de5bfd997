#include "photolib/db/key_set.h"
#include "photolib/db/photos_db.h"
#include "photolib/db/schema.h"
#include "photolib/db/statement.h"
#include "photolib/host/log.h"
#include "photolib/logging.h"

#include <QVector>

#include <algorithm>

using namespace photolib;

namespace
{

enum class KeyColumn { Neither, Album, Asset };

// "Z_", digits of any script, `ending`. By hand: QRegExp ends the program when memory runs short in its destructor.
bool isKeyColumn(const QString &name, QLatin1String ending)
{
    const QLatin1String beginning("Z_");
    const int digits = name.size() - beginning.size() - ending.size();
    if (digits < 1 || !name.startsWith(beginning) || !name.endsWith(ending))
        return false;
    const auto *const first = name.constBegin() + beginning.size();
    return std::all_of(first, first + digits, [](QChar character) { return character.isDigit(); });
}

QVector<KeyColumn> keyColumnsOf(const Row &row)
{
    QVector<KeyColumn> columns;
    for (int column = 0; column < row.columnCount(); ++column) {
        const QString name = QString::fromUtf8(row.columnName(column));
        if (isKeyColumn(name, QLatin1String("ALBUMS")))
            columns.append(KeyColumn::Album);
        else if (isKeyColumn(name, QLatin1String("ASSETS")))
            columns.append(KeyColumn::Asset);
        else
            columns.append(KeyColumn::Neither);
    }
    return columns;
}

// One album's assets in the order of their first appearance, each once.
class Members
{
public:
    explicit Members(albumRecord *album) : list(&album->memberIds), first(album->memberIds.size()) {}

    // Databases list the assets of an album in ascending order for the most part: as long as they do, the last one
    // tells that the next is new.
    void add(qint64 asset)
    {
        if (seen.empty() && (list->size() == first || list->last() < asset)) {
            list->append(asset);
            return;
        }
        if (seen.empty())
            seen.insert(list->cbegin() + first, list->cend());
        if (seen.insert(asset).second)
            list->append(asset);
    }

private:
    QList<qint64> *list;
    int first; // behind what was in the list before
    KeySet seen;
};

class MemberLists
{
public:
    explicit MemberLists(const QMap<quint64, albumRecord *> &albums) : albums(albums) {}

    // Null for an unknown album.
    Members *find(qint64 album)
    {
        if (last && album == lastAlbum) // rows of one album stand together
            return last;
        auto found = known.find(album);
        if (found == known.end()) {
            albumRecord *record = albums.value(static_cast<quint64>(album));
            if (!record)
                return nullptr;
            found = known.emplace(album, Members(record)).first;
        }
        last = &found->second;
        lastAlbum = album;
        return last;
    }

private:
    const QMap<quint64, albumRecord *> &albums;
    KeyMap<Members> known;
    Members *last = nullptr;
    qint64 lastAlbum = 0;
};

// A row may carry several columns of either kind: columns are taken from the left until they name a known album and
// an asset.
void addMember(const Row &row, const QVector<KeyColumn> &columns, MemberLists *lists)
{
    qint64 album = 0;
    qint64 asset = 0;
    for (int column = 0; column < columns.size(); ++column) {
        if (columns[column] == KeyColumn::Neither)
            continue;
        (columns[column] == KeyColumn::Album ? album : asset) = row.int64(column);
        if (album == 0 || asset == 0)
            continue;
        if (Members *members = lists->find(album)) {
            members->add(asset);
            return;
        }
    }
}

} // namespace

// Every direct child of GenericAlbum may own a join table; most do not.
QStringList Photos_DB::membershipTables(sqlite3 *db) const
{
    QStringList tables = allTableNames(db);
    std::sort(tables.begin(), tables.end()); // a database may have as many entities as tables, and many of both
    const int albumEntity = entities.value(genericAlbumEntity).entityNumber;
    QStringList candidates;
    for (const entityInfo &entity : entities) {
        if (entity.superEntity != albumEntity)
            continue;
        const QString name = QStringLiteral("Z_%1ASSETS").arg(entity.entityNumber, 0, 10);
        // Without table names (their query failed) every candidate is worth a try.
        if (tables.isEmpty() || std::binary_search(tables.cbegin(), tables.cend(), name))
            candidates.append(name);
    }
    return candidates;
}

bool Photos_DB::parseMembershipTables(sqlite3 *db)
{
    if (!db)
        return false;
    MemberLists lists(albums);
    for (const QString &table : membershipTables(db)) {
        const QByteArray name = table.toLatin1();
        Log(logTag, logProgress, "Got asset table name: %s", name.constData());
        Statement statement(db, SqlText("select * from %s", name.constData()).get());
        if (!statement.isPrepared()) {
            Log(logTag, logError, "Can not parse camera photos: %s", sqlite3_errmsg(db));
            continue;
        }
        QVector<KeyColumn> columns;
        for (const Row row : statement.rows(stop)) {
            if (columns.isEmpty())
                columns = keyColumnsOf(row);
            addMember(row, columns, &lists);
        }
    }
    return true;
}
