#include "photolib/db/key_set.h"
#include "photolib/db/photos_db.h"
#include "photolib/db/statement.h"
#include "photolib/host/log.h"
#include "photolib/logging.h"

#include <map>
#include <vector>

using namespace photolib;

namespace
{

// Collects the faces of one statement. There are many more faces than groups: the key of a group is made once, and its
// faces come to lie side by side.
class FaceGroups
{
public:
    void add(qint64 group, qint64 asset) { assets[group].push_back(asset); }

    // The faces of each group, the last one first. From the last group to the first, so that each face goes before all
    // others, and no place has to be searched.
    void moveInto(QMultiMap<QString, qint64> *faces)
    {
        std::map<QString, std::vector<qint64> *> inOrder;
        for (auto &[group, assetsOfGroup] : assets)
            inOrder.emplace(QString::number(group, 10), &assetsOfGroup);
        for (auto group = inOrder.crbegin(); group != inOrder.crend(); ++group) {
            for (const qint64 asset : *group->second)
                faces->insert(faces->constBegin(), group->first, asset);
            std::vector<qint64>().swap(*group->second);
        }
    }

private:
    KeyMap<std::vector<qint64>> assets;
};

} // namespace

// The groups of all faces with a crop, each once, in order of appearance; "0" stands for no group. Silent when the
// statement cannot be prepared: older releases have no such column.
QStringList Photos_DB::croppedFaceGroups(sqlite3 *db) const
{
    Statement statement(db, SqlText("select ZFACEGROUP from ZDETECTEDFACE where zfacecrop is not null").get());
    if (!statement.isPrepared())
        return {};
    QStringList groups;
    KeySet seen;
    for (const Row row : statement.rows(stop)) {
        const qint64 group = row.int64(0);
        if (seen.insert(group).second)
            groups.append(QString::number(group, 10));
    }
    return groups;
}

void Photos_DB::parseDetectedFaces(sqlite3 *db)
{
    if (!db || !allTableNames(db).contains(QLatin1String("ZDETECTEDFACE"), Qt::CaseSensitive))
        return;
    const QStringList groups = croppedFaceGroups(db);
    if (groups.isEmpty())
        return;
    const QString sql = QStringLiteral("select ZASSET, ZFACEGROUP, ZFACEGROUPBEINGKEYFACE from ZDETECTEDFACE where "
                                       "ZFACEGROUP in (%1)")
                            .arg(groups.join(QLatin1Char(',')), 0);
    Statement statement(db, sql.toUtf8().constData());
    if (!statement.isPrepared()) {
        Log(logTag, logError, "Can not parse camera photos: %s", sqlite3_errmsg(db));
        return;
    }
    FaceGroups faces;
    for (const Row row : statement.rows(stop)) {
        const qint64 asset = row.int64(0);
        if (asset == 0)
            continue;
        const qint64 group = row.int64(1);
        const qint64 keyFaceOfGroup = row.int64(2);
        faces.add(group, asset);
        if (keyFaceOfGroup == group)
            faceGroupKeyFaces.insert(QString::number(group, 10), keyFaceOfGroup);
    }
    faces.moveInto(&faceGroupAssets);
}
