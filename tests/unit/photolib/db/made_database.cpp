#include "tests/unit/photolib/db/made_database.h"

#include "testing/sql_connection.h"
#include "testing/test_sql_utils.h"

#include <sqlite3.h>

#include <new>

using testkit::ColumnValues;
using testkit::Operation;
using testkit::OperationKind;

namespace dbtests
{

QString LibrarySql::plainAssetTable(const QString &name, const QStringList &more)
{
    QStringList columns{"Z_PK",    "Z_ENT", "ZFILENAME",       "ZDIRECTORY",   "ZUUID",        "ZWIDTH",
                        "ZHEIGHT", "ZKIND", "ZTHUMBNAILINDEX", "ZORIENTATION", "ZDATECREATED", "ZMODIFICATIONDATE"};
    columns += more;
    return "create table " + name + " (" + columns.join(", ") + ");";
}

QString LibrarySql::assetTable(const QString &name)
{
    QStringList optional;
    for (const testkit::OptionalColumn &column : testkit::optionalColumns()) {
        if (QLatin1String(column.name) != QLatin1String("ZCAMERACAPTUREDEVICE"))
            optional << column.name;
    }
    return plainAssetTable(name, optional);
}

void LibrarySql::setEntities(const QString &values)
{
    entities = "create table Z_PRIMARYKEY (Z_ENT, Z_NAME, Z_SUPER, Z_MAX);"
               "insert into Z_PRIMARYKEY values " +
               values + ';';
}

QString insertInto(const QString &table, const ColumnValues &values)
{
    QStringList literals;
    for (const testkit::SqlValue &value : values)
        literals << value.literal();
    return "insert into " + table + " (" + QStringList(values.keys()).join(", ") + ") values (" + literals.join(", ") +
           ");";
}

QString insertAsset(const ColumnValues &values, const QString &table)
{
    ColumnValues row{{"Z_PK", 1},
                     {"Z_ENT", 3},
                     {"ZFILENAME", "IMG_0001.JPG"},
                     {"ZDIRECTORY", "DCIM/100APPLE"},
                     {"ZUUID", "ASSET-UUID"}};
    for (auto value = values.begin(); value != values.end(); ++value)
        row[value.key()] = value.value();
    return insertInto(table, row);
}

LibraryTest::LibraryTest()
{
    device.onOperation([this](const Operation &operation) {
        if (operation.kind == OperationKind::PrepareSqlite) {
            EXPECT_EQ(operation.size, -1);
            EXPECT_EQ(operation.tail, nullptr);
            statements.append(operation.path);
        }
        if (beforeOperation)
            beforeOperation(operation);
    });
    device.setOpenSqlite([this](const QString &path, sqlite3 **db) { return openConnection(path, db); });
}

LibraryTest::~LibraryTest()
{
    close();
}

int LibraryTest::openConnection(const QString &path, sqlite3 **db)
{
    const int result = testkit::openSqliteFile(path, db);
    if (result == SQLITE_OK) {
        sqlite3_trace_v2(*db, SQLITE_TRACE_ROW, traceRow, this);
        if (prepareConnection)
            prepareConnection(*db);
    }
    return result;
}

int LibraryTest::traceRow(unsigned, void *test, void *statement, void *)
{
    auto *row = static_cast<sqlite3_stmt *>(statement);
    for (RowWatch &watch : static_cast<LibraryTest *>(test)->watches) {
        if (QByteArray(sqlite3_sql(row)).contains(watch.part) && ++watch.seen == watch.row)
            watch.action(sqlite3_db_handle(row));
    }
    return 0;
}

void LibraryTest::putOnDevice()
{
    if (isOnDevice)
        return;
    const QString path = folder.path() + "/Photos.sqlite";
    testkit::SqlConnection(path).exec("pragma synchronous = off; begin;" + sql.all() + "commit;");
    device.addDatabase(path);
    isOnDevice = true;
}

void LibraryTest::putOnDevice(testkit::LibraryBuilder &builder)
{
    const QString path = folder.path() + "/Photos.sqlite";
    builder.write(path);
    device.addDatabase(path);
    isOnDevice = true;
}

Photos_DB &LibraryTest::openAnyhow()
{
    putOnDevice();
    close();
    opened = new (storage.data()) Photos_DB(&device);
    return *opened;
}

Photos_DB &LibraryTest::open(const QStringList &lines)
{
    Photos_DB &db = openAnyhow();
    log.expectLines({progress("load ATHCameraDB"), error("Can not open file: /PhotoData/Photos.sqlite-wal"),
                     error("Can not open file: /PhotoData/Photos.sqlite-shm"), progress("Parser_Ath_camera_DB")});
    log.expectLines(lines);
    log.expectLine(progress("load ATHCameraDB end"));
    EXPECT_TRUE(db.isLoaded());
    return db;
}

void LibraryTest::close()
{
    if (opened)
        opened->~Photos_DB();
    opened = nullptr;
}

PhotosDbProbe LibraryTest::probe()
{
    return {*std::launder(reinterpret_cast<Photos_DB *>(storage.data()))};
}

void LibraryTest::atRow(const QString &part, int row, std::function<void(sqlite3 *)> action)
{
    watches.push_back({part.toUtf8(), row, std::move(action)});
}

void LibraryTest::stopAtRow(const QString &part, int row)
{
    atRow(part, row, [this](sqlite3 *) { probe().stop() = true; });
}

void LibraryTest::failAfterRow(const QString &part, int row)
{
    atRow(part, row, sqlite3_interrupt);
}

} // namespace dbtests
