#include "photolib/db/schema.h"

#include "photolib/db/photos_db.h"
#include "photolib/db/statement.h"
#include "photolib/host/log.h"
#include "photolib/logging.h"

using namespace photolib;

QStringList Photos_DB::allTableNames(sqlite3 *db) const
{
    Statement statement(db, SqlText("SELECT tbl_name FROM sqlite_master where type = 'table'").get());
    if (!statement.isPrepared()) {
        Log(logTag, logError, "get AllTableNames error #%d: %s", statement.result(), sqlite3_errmsg(db));
        return {};
    }
    QStringList names;
    for (const Row row : statement.rows(stop))
        names.append(row.text(0));
    return names;
}

bool Photos_DB::readSchemaVersion(sqlite3 *db)
{
    if (!db)
        return false;
    Statement statement(db, SqlText("select Z_VERSION, Z_UUID from Z_METADATA").get());
    if (!statement.isPrepared())
        return false;
    for (const Row row : statement.rows(stop))
        libraryUuid = row.text(1);
    return true;
}

bool Photos_DB::readEntityTable(sqlite3 *db)
{
    if (!db)
        return false;
    Statement statement(db, SqlText("select Z_ENT, Z_NAME , Z_SUPER , Z_MAX from Z_PRIMARYKEY").get());
    if (!statement.isPrepared())
        return false;
    entities.clear();
    for (const Row row : statement.rows(stop)) {
        entityInfo entity;
        entity.entityNumber = row.int32(0);
        entity.name = row.text(1);
        entity.superEntity = row.int32(2);
        entity.maxPk = row.int32(3);
        entities.insert(entity.name, entity);
    }
    return true;
}

void Photos_DB::readAssetTableSql(sqlite3 *db)
{
    const QByteArray table = assetTableName.toUtf8();
    const SqlText sql("SELECT sql FROM sqlite_master where tbl_name = '%s' and name = '%s'", table.constData(),
                      table.constData());
    readTableSql(db, sql.get(), &assetTableSql);
}

void Photos_DB::readAdditionalAttributesSql(sqlite3 *db)
{
    const SqlText sql("SELECT sql FROM sqlite_master where tbl_name = 'ZADDITIONALASSETATTRIBUTES' and name = "
                      "'ZADDITIONALASSETATTRIBUTES'");
    readTableSql(db, sql.get(), &additionalAttributesSql);
}

// The message names the assets table for both tables; hosts know it so.
void Photos_DB::readTableSql(sqlite3 *db, const char *sql, QString *out) const
{
    Statement statement(db, sql);
    if (!statement.isPrepared()) {
        Log(logTag, logError, "get assets table name sql error #%d: %s", statement.result(), sqlite3_errmsg(db));
        return;
    }
    for (const Row row : statement.rows(stop)) {
        *out = row.text(0);
        return;
    }
}
