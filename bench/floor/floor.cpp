// floor DEVICE_FOLDER WORK_FOLDER: the least that reading a library can cost, to measure the library against.
//
// Copies the three files of the database, steps the statements that the library steps for an iOS 15 database on a
// connection with the settings of devicehost, touches every column, and keeps nothing. Shares no code with the library.
// Prints seconds of processor time and of the clock, copying and reading apart.

#include <fcntl.h>
#include <sqlite3.h>
#include <sys/stat.h>
#include <time.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <memory>
#include <set>
#include <string>

namespace
{

constexpr std::size_t blockBytes = 4U << 20U;

double now(clockid_t clock)
{
    timespec time = {};
    clock_gettime(clock, &time);
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) * 1e-9;
}

[[noreturn]] void fail(const std::string &what)
{
    std::perror(what.c_str());
    std::exit(1);
}

void copyFile(const std::string &from, const std::string &to, char *block, bool required)
{
    const int source = open(from.c_str(), O_RDONLY | O_CLOEXEC);
    if (source < 0) {
        if (required)
            fail(from);
        return;
    }
    const int target = open(to.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0600);
    if (target < 0)
        fail(to);
    for (;;) {
        const ssize_t count = read(source, block, blockBytes);
        if (count <= 0)
            break;
        if (write(target, block, static_cast<std::size_t>(count)) != count)
            fail(to);
    }
    close(source);
    close(target);
}

long long touched = 0; // printed at the end, so that no column is left out

void touch(sqlite3_stmt *statement, int column)
{
    switch (sqlite3_column_type(statement, column)) {
    case SQLITE_INTEGER:
        touched += sqlite3_column_int64(statement, column);
        break;
    case SQLITE_FLOAT:
        touched += sqlite3_column_double(statement, column) > 0.0 ? 1 : 0;
        break;
    case SQLITE_TEXT:
        touched += *sqlite3_column_text(statement, column) + sqlite3_column_bytes(statement, column);
        break;
    case SQLITE_BLOB:
        touched += sqlite3_column_bytes(statement, column);
        break;
    default:
        break;
    }
}

template <typename OnRow>
void step(sqlite3 *db, const std::string &sql, const OnRow &onRow)
{
    sqlite3_stmt *statement = nullptr;
    if (sqlite3_prepare_v2(db, sql.c_str(), -1, &statement, nullptr) != SQLITE_OK) {
        std::fprintf(stderr, "floor: %s: %s\n", sqlite3_errmsg(db), sql.c_str());
        std::exit(1);
    }
    while (sqlite3_step(statement) == SQLITE_ROW) {
        const int columns = sqlite3_column_count(statement);
        for (int column = 0; column < columns; ++column)
            touch(statement, column);
        onRow(statement);
    }
    sqlite3_finalize(statement);
}

void step(sqlite3 *db, const std::string &sql)
{
    step(db, sql, [](sqlite3_stmt *) {});
}

sqlite3 *openDatabase(const std::string &path)
{
    sqlite3 *db = nullptr;
    if (sqlite3_open_v2(path.c_str(), &db, SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX, nullptr) != SQLITE_OK)
        fail(path);
    for (const int option : {SQLITE_DBCONFIG_DEFENSIVE, SQLITE_DBCONFIG_DQS_DML, SQLITE_DBCONFIG_NO_CKPT_ON_CLOSE})
        sqlite3_db_config(db, option, 1, nullptr);
    for (const int option : {SQLITE_DBCONFIG_TRUSTED_SCHEMA, SQLITE_DBCONFIG_ENABLE_LOAD_EXTENSION,
                             SQLITE_DBCONFIG_DQS_DDL, SQLITE_DBCONFIG_ENABLE_TRIGGER, SQLITE_DBCONFIG_ENABLE_VIEW})
        sqlite3_db_config(db, option, 0, nullptr);
    sqlite3_exec(db, "PRAGMA mmap_size=0; PRAGMA cell_size_check=ON; PRAGMA locking_mode=EXCLUSIVE;", nullptr, nullptr,
                 nullptr);
    return db;
}

const char assetStatement[] =
    "select A.Z_PK, A.Z_ENT, A.ZFILENAME, A.ZDIRECTORY, A.ZUUID, A.ZWIDTH, A.ZHEIGHT, A.ZKIND, A.ZKINDSUBTYPE, "
    "A.ZMOMENT, A.ZUNIFORMTYPEIDENTIFIER, A.ZAVALANCHEUUID, A.ZAVALANCHEPICKTYPE, A.ZVISIBILITYSTATE, "
    "A.ZFACEAREAPOINTS, A.ZFAVORITE, A.ZTHUMBNAILINDEX, A.ZORIENTATION, A.ZTRASHEDSTATE, A.ZTRASHEDDATE, "
    "A.ZDATECREATED, A.ZADDEDDATE, A.ZMODIFICATIONDATE, A.ZSORTTOKEN, A.ZDURATION, A.ZLATITUDE, A.ZLONGITUDE, "
    "T.ZORIGINALFILESIZE, \"0\", \"0\", T.ZCAMERACAPTUREDEVICE, A.ZHASADJUSTMENTS, A.ZHIDDEN, A.ZCLOUDLOCALSTATE, "
    "A.ZIMPORTSESSION, \"0\", A.ZPACKEDBADGEATTRIBUTES, A.ZDEPTHTYPE, \"0\", \"0\" from ZASSET as A left join "
    "ZADDITIONALASSETATTRIBUTES as T on A.Z_PK = T.Z_PK order by A.ZMODIFICATIONDATE ASC";

void readDatabase(sqlite3 *db)
{
    step(db, "select Z_VERSION, Z_UUID from Z_METADATA");
    step(db, "select Z_ENT, Z_NAME , Z_SUPER , Z_MAX from Z_PRIMARYKEY");
    step(db, "select Z_PK, Z_ENT, ZTITLE, ZKIND, ZUUID, ZTRASHEDSTATE from ZGENERICALBUM");
    step(db, assetStatement);
    step(db, "SELECT tbl_name FROM sqlite_master where type = 'table'");
    step(db, "select * from Z_27ASSETS");
    std::set<long long> groups;
    step(db, "select ZFACEGROUP from ZDETECTEDFACE where zfacecrop is not null",
         [&](sqlite3_stmt *statement) { groups.insert(sqlite3_column_int64(statement, 0)); });
    std::string list;
    for (const long long group : groups)
        list += (list.empty() ? "" : ",") + std::to_string(group);
    if (!list.empty())
        step(db,
             "select ZASSET, ZFACEGROUP, ZFACEGROUPBEINGKEYFACE from ZDETECTEDFACE where ZFACEGROUP in (" + list + ")");
    step(db, "select G.Z_PK, G.ZFAVORITE, G.ZKEYASSET, G.ZSUBTITLE, G.ZTITLE, A.Z_3EXTENDEDCURATEDASSETS from ZMEMORY "
             "as G left join Z_3MEMORIESBEINGEXTENDEDCURATEDASSETS as A on G.Z_PK = "
             "A.Z_42MEMORIESBEINGEXTENDEDCURATEDASSETS order by G.Z_PK ASC");
}

} // namespace

int main(int argc, char **argv)
{
    if (argc != 3) {
        std::fputs("usage: floor DEVICE_FOLDER WORK_FOLDER\n", stderr);
        return 2;
    }
    const std::string device = argv[1];
    const std::string copy = std::string(argv[2]) + "/floor.sqlite";
    const double cpuAtStart = now(CLOCK_PROCESS_CPUTIME_ID);
    const double wallAtStart = now(CLOCK_MONOTONIC);
    {
        const std::unique_ptr<char[]> block(new char[blockBytes]);
        for (const char *const suffix : {"", "-wal", "-shm"})
            copyFile(device + "/PhotoData/Photos.sqlite" + suffix, copy + suffix, block.get(), *suffix == '\0');
    }
    const double cpuWhenCopied = now(CLOCK_PROCESS_CPUTIME_ID);
    const double wallWhenCopied = now(CLOCK_MONOTONIC);
    sqlite3 *const db = openDatabase(copy);
    readDatabase(db);
    sqlite3_close(db);
    const double cpuAtEnd = now(CLOCK_PROCESS_CPUTIME_ID);
    const double wallAtEnd = now(CLOCK_MONOTONIC);
    for (const char *const suffix : {"", "-wal", "-shm"})
        unlink((copy + suffix).c_str());
    std::printf("{\"copy\": %.6f, \"tables\": %.6f, \"wallCopy\": %.6f, \"wallTables\": %.6f, \"touched\": %lld}\n",
                cpuWhenCopied - cpuAtStart, cpuAtEnd - cpuWhenCopied, wallWhenCopied - wallAtStart,
                wallAtEnd - wallWhenCopied, touched);
    return 0;
}
