#ifndef TESTS_UNIT_PHOTOLIB_DB_MADE_DATABASE_H
#define TESTS_UNIT_PHOTOLIB_DB_MADE_DATABASE_H

#include "testing/fake_device.h"
#include "testing/library_builder.h"
#include "testing/log_recorder.h"
#include "tests/unit/photolib/db/photos_db_probe.h"

#include <gtest/gtest.h>

#include <array>
#include <functional>
#include <vector>

struct sqlite3;

namespace dbtests
{

/// SQL of a small library. Its columns have no types, so that every value keeps its storage class. A table is left
/// out when its text is empty.
struct LibrarySql {
    QString metadata = "create table Z_METADATA (Z_VERSION, Z_UUID);"
                       "insert into Z_METADATA values (1, 'LIBRARY-UUID');";
    QString entities = "create table Z_PRIMARYKEY (Z_ENT, Z_NAME, Z_SUPER, Z_MAX);"
                       "insert into Z_PRIMARYKEY values (3, 'Asset', 0, 0), (25, 'GenericAlbum', 0, 0),"
                       "(26, 'Album', 25, 0), (40, 'Memory', 0, 0);";
    QString albums = "create table ZGENERICALBUM (Z_PK, Z_ENT, ZTITLE, ZKIND, ZUUID, ZTRASHEDSTATE);";
    QString assets = assetTable("ZASSET");
    QString attributes =
        "create table ZADDITIONALASSETATTRIBUTES (Z_PK, ZORIGINALFILESIZE, ZCAMERACAPTUREDEVICE, ZASSET);";
    QString rows; ///< everything else, run last

    QString all() const { return metadata + entities + albums + assets + attributes + rows; }

    /// An asset table of this name with every column that the library can read.
    static QString assetTable(const QString &name);
    /// Only the columns that every release has, and `more`.
    static QString plainAssetTable(const QString &name, const QStringList &more = {});

    /// Entities (number, name, super, max) instead of those above.
    void setEntities(const QString &values);
};

/// "insert into TABLE (...) values (...);"
QString insertInto(const QString &table, const testkit::ColumnValues &values);

/// The same for an asset that is accepted: "DCIM/100APPLE/IMG_0001.JPG" with the key 1, changed by `values`.
QString insertAsset(const testkit::ColumnValues &values, const QString &table = "ZASSET");

/// Lines as LogRecorder shows them.
inline QString progress(const QString &message)
{
    return "PHOTOLIB 1 " + message;
}
inline QString error(const QString &message)
{
    return "PHOTOLIB 2 " + message;
}
inline const QString parsed = progress("Parser_Ath_camera_DB success");

/// Opens made-up libraries on a FakeDevice.
class LibraryTest : public ::testing::Test
{
protected:
    LibraryTest();
    ~LibraryTest() override;

    /// Puts the library that `sql` describes on the device. open() does it unless it was done before.
    void putOnDevice();
    void putOnDevice(testkit::LibraryBuilder &builder);

    /// Opens the library, which must load; `lines` are what it must log between the start of the parse and its end.
    Photos_DB &open(const QStringList &lines = {parsed});
    /// Opens it, whatever comes of it; the test looks at the log.
    Photos_DB &openAnyhow();
    void close();

    /// The object that was opened, also while its constructor runs.
    PhotosDbProbe probe();

    /// Has `action` called when a statement whose text contains `part` gives its `row`-th row (from 1).
    void atRow(const QString &part, int row, std::function<void(sqlite3 *)> action);
    /// At that row: sets the stop flag, or makes the next step of the statement fail.
    void stopAtRow(const QString &part, int row);
    void failAfterRow(const QString &part, int row);

    LibrarySql sql;
    testkit::FakeDevice device;
    testkit::LogRecorder log;
    QList<QByteArray> statements;                                    ///< prepared so far
    std::function<void(const testkit::Operation &)> beforeOperation; ///< on every operation
    std::function<void(sqlite3 *connection)> prepareConnection;      ///< on the connection that the library gets

private:
    struct RowWatch {
        QByteArray part;
        int row;
        std::function<void(sqlite3 *)> action;
        int seen = 0;
    };
    static int traceRow(unsigned event, void *test, void *statement, void *);
    int openConnection(const QString &path, sqlite3 **db);

    QTemporaryDir folder;
    bool isOnDevice = false;
    std::vector<RowWatch> watches;
    alignas(Photos_DB) std::array<unsigned char, sizeof(Photos_DB)> storage;
    Photos_DB *opened = nullptr;
};

} // namespace dbtests

#endif
