#include "photolib/db/photos_db.h"
#include "photolib/db/statement.h"
#include "photolib/host/log.h"
#include "photolib/logging.h"

using namespace photolib;

namespace
{

memoryRecord memoryOf(const Row &row)
{
    memoryRecord memory;
    memory.pk = row.int64(0);
    memory.favorite = row.int32(1);
    memory.keyAsset = row.int64(2);
    memory.subtitle = row.text(3);
    memory.title = row.text(4);
    memory.curatedAssets.append(row.int64(5));
    return memory;
}

} // namespace

void Photos_DB::parseMemories(sqlite3 *db)
{
    // Libraries with memories have detected faces; the test names the table of faces on purpose.
    if (!db || !allTableNames(db).contains(QLatin1String("ZDETECTEDFACE"), Qt::CaseSensitive))
        return;
    // An entity that the database does not know has number 0, and no join table carries that in its name.
    const int memoryEntity = entities.value(QLatin1String("Memory")).entityNumber;
    const int assetEntity = entities.value(assetEntityName).entityNumber;
    const SqlText sql("select G.Z_PK, G.ZFAVORITE, G.ZKEYASSET, G.ZSUBTITLE, G.ZTITLE, "
                      "A.Z_%dEXTENDEDCURATEDASSETS                                       "
                      "from ZMEMORY as G left join Z_%dMEMORIESBEINGEXTENDEDCURATEDASSETS as A "
                      "on G.Z_PK = A.Z_%dMEMORIESBEINGEXTENDEDCURATEDASSETS order by G.Z_PK ASC",
                      assetEntity, assetEntity, memoryEntity);
    Statement statement(db, sql.get());
    if (!statement.isPrepared()) {
        Log(logTag, logError, "Can not parse camera photos: %s", sqlite3_errmsg(db));
        return;
    }
    for (const Row row : statement.rows(stop)) {
        const QString key = QString::number(row.int64(0), 10);
        const auto known = memories.find(key);
        if (known == memories.end())
            memories.insert(key, memoryOf(row));
        else
            known->curatedAssets.append(row.int64(5));
    }
}
