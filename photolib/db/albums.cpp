#include "photolib/db/photos_db.h"
#include "photolib/db/schema.h"
#include "photolib/db/statement.h"
#include "photolib/host/log.h"
#include "photolib/logging.h"

#include <memory>

using namespace photolib;

bool Photos_DB::parseAlbums(sqlite3 *db)
{
    if (!db)
        return false;
    // Both tables gained the column in the same release, and the asset table's text is the one at hand.
    const char *trashedState = hasColumn(assetTableSql, "ZTRASHEDSTATE") ? "ZTRASHEDSTATE" : absentColumn;
    const SqlText sql("select Z_PK, Z_ENT, ZTITLE, ZKIND, ZUUID, %s from ZGENERICALBUM", trashedState);
    Statement statement(db, sql.get());
    if (!statement.isPrepared()) {
        Log(logTag, logError, "Can not parse camera album");
        return false;
    }
    for (const Row row : statement.rows(stop))
        addAlbum(parseAlbumRow(row));
    return true;
}

albumRecord *Photos_DB::parseAlbumRow(const Row &row)
{
    auto album = std::make_unique<albumRecord>();
    album->pk = static_cast<quint64>(static_cast<qint64>(row.int32(0)));

    // Unsigned on purpose: a negative key counts as greater than any ceiling.
    entityInfo &entity = entities[genericAlbumEntity];
    if (album->pk > static_cast<quint64>(static_cast<qint64>(entity.maxPk)))
        entity.maxPk = static_cast<qint32>(static_cast<quint32>(album->pk));

    album->entity = row.int32(1);
    album->title = row.text(2);
    album->kind = row.int32(3);
    row.blob(4, &album->uuid);
    album->trashedState = row.int32(5);
    return album.release();
}
