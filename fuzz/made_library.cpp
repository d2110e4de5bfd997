#include "fuzz/made_library.h"

#include "fuzz/hostile_value.h"
#include "fuzz/made_database.h"

#include <QList>

#include <iterator>

namespace fuzz
{

namespace
{

// Entity numbers as a recent release has them.
struct Entities {
    int album = 26;
    int asset = 3;
    int memory = 48;
};

struct Table {
    QByteArray name;
    const char *columns; ///< NAME:KIND words, see MadeDatabase::addRow()
};

constexpr char assetColumns[] =
    "Z_PK:k Z_ENT:1 ZFILENAME:f ZDIRECTORY:d ZUUID:u ZWIDTH:k ZHEIGHT:k ZKIND:0 ZKINDSUBTYPE:0 ZMOMENT:1 "
    "ZUNIFORMTYPEIDENTIFIER:t ZAVALANCHEUUID:u ZAVALANCHEPICKTYPE:0 ZVISIBILITYSTATE:0 ZFACEAREAPOINTS:0 ZFAVORITE:1 "
    "ZTHUMBNAILINDEX:k ZORIENTATION:1 ZTRASHEDSTATE:0 ZTRASHEDDATE:s ZDATECREATED:s ZADDEDDATE:s ZMODIFICATIONDATE:s "
    "ZSORTTOKEN:s ZDURATION:0 ZLATITUDE:1 ZLONGITUDE:1 ZLOCALRESOURCESSTATE:0 ZCUSTOMRENDEREDVALUE:0 "
    "ZHASADJUSTMENTS:0 ZHIDDEN:0 ZCLOUDLOCALSTATE:0 ZIMPORTSESSION:0 ZDUPLICATEASSETVISIBILITYSTATE:0 "
    "ZPACKEDBADGEATTRIBUTES:0 ZDEPTHTYPE:0 ZDUPLICATEMETADATAMATCHINGALBUM:0 ZDUPLICATEPERCEPTUALMATCHINGALBUM:0";

const char *typeOf(char kind)
{
    switch (kind) {
    case 't':
    case 'f':
    case 'd':
    case 'u':
        return " VARCHAR";
    case 's':
        return " TIMESTAMP";
    default:
        return " INTEGER";
    }
}

QByteArray quoted(const QByteArray &name)
{
    return '"' + QByteArray(name).replace('"', "\"\"") + '"';
}

class Maker
{
public:
    explicit Maker(ByteReader *reader) : in(reader) {}

    QByteArray make();

private:
    void chooseStorage();
    void chooseEntities();
    void addEntityRows();
    void addTables();
    void addTable(const Table &table);
    QByteArray declaration(const QByteArray &column);
    QByteArray createTable(const QByteArray &name, const QByteArray &columns);
    void change();
    QByteArray anyTable() { return names.value(in->choice(names.size()), "ZASSET"); }
    QByteArray anyExpression();
    void forgeSchema();
    QByteArray damaged(QByteArray file);

    ByteReader *in;
    MadeDatabase database;
    Entities entities;
    bool genericAsset = false;
    QList<QByteArray> names;
};

void Maker::chooseStorage()
{
    constexpr const char *encodings[] = {"UTF-8", "UTF-16le", "UTF-16be"};
    constexpr const char *pageSizes[] = {"512", "1024", "4096", "65536"};
    database.run(QByteArray("PRAGMA encoding='") + encodings[in->choice(3)] + "'; PRAGMA page_size=" +
                 pageSizes[in->choice(4)] + "; PRAGMA auto_vacuum=" + QByteArray::number(in->choice(3)));
}

void Maker::chooseEntities()
{
    genericAsset = in->flag();
    if (in->choice(4) != 3)
        return;
    entities.album = in->choice(64);
    entities.asset = in->flag() ? in->int32() : in->choice(64);
    entities.memory = in->flag() ? in->int32() : in->choice(64);
}

void Maker::addEntityRows()
{
    const auto row = [&](const char *name, int number, int super) {
        const QByteArray shown = in->seldom(16) ? knownWord(in) : QByteArray(name);
        const int max = in->seldom(8) ? in->int32() : 100;
        if (in->seldom(16))
            return;
        database.run("insert into Z_PRIMARYKEY values (" + QByteArray::number(number) + ", '" +
                     QByteArray(shown).replace('\'', "''") + "', " + QByteArray::number(super) + ", " +
                     QByteArray::number(max) + ")");
    };
    row("GenericAlbum", entities.album - 1, 0);
    row("Album", entities.album, entities.album - 1);
    row(genericAsset ? "GenericAsset" : "Asset", entities.asset, 0);
    row("WallpaperAsset", entities.asset + 1, entities.asset);
    row("Memory", entities.memory, 0);
}

void Maker::addTables()
{
    const QByteArray album = QByteArray::number(entities.album);
    const QByteArray asset = QByteArray::number(entities.asset);
    const QByteArray memory = QByteArray::number(entities.memory);
    const QByteArray members = "Z_" + album + "ALBUMS:k Z_" + asset + "ASSETS:k Z_FOK_" + asset + "ASSETS:k";
    const QByteArray curated =
        "Z_" + asset + "EXTENDEDCURATEDASSETS:k Z_" + memory + "MEMORIESBEINGEXTENDEDCURATEDASSETS:k";
    const Table tables[] = {
        {"Z_METADATA", "Z_VERSION:1 Z_UUID:u Z_PLIST:t"},
        {"Z_PRIMARYKEY", "Z_ENT:k Z_NAME:t Z_SUPER:0 Z_MAX:k"},
        {"ZGENERICALBUM", "Z_PK:k Z_ENT:1 ZTITLE:t ZKIND:k ZUUID:u ZTRASHEDSTATE:0"},
        {genericAsset ? "ZGENERICASSET" : "ZASSET", assetColumns},
        {"ZADDITIONALASSETATTRIBUTES", "Z_PK:k ZASSET:k ZORIGINALFILESIZE:k ZCAMERACAPTUREDEVICE:1"},
        {"Z_" + album + "ASSETS", members.constData()},
        {"ZDETECTEDFACE", "Z_PK:k ZASSET:k ZFACEGROUP:1 ZFACEGROUPBEINGKEYFACE:1 ZFACECROP:1"},
        {"ZMEMORY", "Z_PK:k ZFAVORITE:0 ZKEYASSET:k ZSUBTITLE:t ZTITLE:t"},
        {"Z_" + asset + "MEMORIESBEINGEXTENDEDCURATEDASSETS", curated.constData()},
    };
    for (const Table &table : tables)
        addTable(table);
}

// Text that mentions a column counts as having it, so a mention alone must do no harm either.
QByteArray Maker::declaration(const QByteArray &column)
{
    const QByteArray name = column.left(column.indexOf(':'));
    const bool isKey = name == "Z_PK";
    switch (in->choice(16)) {
    case 11:
        return QByteArray();
    case 12:
        return "/* " + name + " */";
    case 13:
        return name + ' ' + quoted(in->text());
    case 14:
        return name + " AS (" + anyExpression() + ")";
    case 15:
        return name + " UNIQUE DEFAULT 1 COLLATE NOCASE";
    default:
        return name + (isKey ? " INTEGER PRIMARY KEY" : typeOf(column.back()));
    }
}

QByteArray Maker::createTable(const QByteArray &name, const QByteArray &columns)
{
    switch (in->choice(16)) {
    case 11:
        return QByteArray();
    case 12:
        return "CREATE VIEW " + name + " AS SELECT * FROM " + anyTable();
    case 13:
        return "CREATE TABLE " + name + " (" + columns + ") WITHOUT ROWID";
    case 14:
        return "CREATE VIRTUAL TABLE " + name + " USING " + (in->flag() ? "rtree" : "fts5") + "(" + columns + ")";
    case 15:
        return "CREATE TABLE " + name + " (" + columns + ", CHECK (" + anyExpression() + "))";
    default:
        return "CREATE TABLE " + name + " (" + columns + ")";
    }
}

void Maker::addTable(const Table &table)
{
    const QList<QByteArray> words = QByteArray(table.columns).split(' ');
    const bool ordinary = in->choice(4) != 3;
    ByteReader none(nullptr, 0);
    ByteReader *const reader = in;
    if (ordinary)
        in = &none; // and no byte is spent on the choices
    QByteArray columns;
    for (const QByteArray &word : words) {
        const QByteArray text = declaration(word);
        columns += (columns.isEmpty() || text.isEmpty() || text.startsWith('/') ? "" : ", ") + text;
    }
    const QByteArray statement = createTable(table.name, columns);
    in = reader;
    database.run(statement);
    names.append(table.name);
    if (table.name == "Z_PRIMARYKEY")
        return addEntityRows();
    const int rows = (2 + in->choice(9)) % 9;
    for (int row = 0; row < rows; ++row)
        database.addRow(table.name, words, row, in);
}

QByteArray Maker::anyExpression()
{
    switch (in->choice(6)) {
    case 0:
        return "1";
    case 1:
        return "hex(zeroblob(" + QByteArray::number(in->int32()) + "))";
    case 2:
        return "abs(-9223372036854775808)";
    case 3:
        return "(WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n) SELECT count(*) FROM n)";
    case 4:
        return '\'' + knownWord(in).replace('\'', "''") + '\'';
    default:
        return in->text();
    }
}

// The text of a table says one thing, its pages hold another.
void Maker::forgeSchema()
{
    constexpr const char *what[] = {"sql = replace(sql, 'INTEGER', 'TEXT')",
                                    "rootpage = rootpage + 1",
                                    "rootpage = 1",
                                    "sql = sql || ' '",
                                    "type = 'index'",
                                    "name = tbl_name || '1'"};
    QByteArray change = what[in->choice(static_cast<int>(std::size(what)))];
    if (in->seldom(3))
        change = "sql = 'CREATE TABLE " + anyTable() + " (" + in->text().replace('\'', "''") + ")'";
    database.run("PRAGMA writable_schema=ON; UPDATE sqlite_master SET " + change + " WHERE name='" + anyTable() + "'");
}

void Maker::change()
{
    const QByteArray table = anyTable();
    switch (in->choice(8)) {
    case 0: // many rows
        database.run("INSERT OR IGNORE INTO " + table + " SELECT * FROM " + table + " JOIN (SELECT 1 UNION SELECT 2)");
        break;
    case 1:
        database.run("WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n LIMIT " +
                     QByteArray::number(in->choice(500)) + ") INSERT OR IGNORE INTO " + table +
                     "(rowid) SELECT i + 100 FROM n");
        break;
    case 2:
        database.run("CREATE INDEX " + quoted(in->text()) + " ON " + table + "(" + anyExpression() + ")");
        break;
    case 3:
        database.run("CREATE TRIGGER " + quoted(in->text()) + " AFTER INSERT ON " + table + " BEGIN SELECT " +
                     anyExpression() + "; END");
        break;
    case 4:
        database.run("ALTER TABLE " + table + " RENAME TO " + quoted(in->flag() ? knownWord(in) : in->text()));
        break;
    case 5:
        database.run("UPDATE " + table + " SET rowid = " + QByteArray::number(static_cast<qint64>(in->int64())) +
                     " WHERE rowid = " + QByteArray::number(1 + in->choice(8)));
        break;
    case 6:
        forgeSchema();
        break;
    default:
        database.run(in->text());
    }
}

QByteArray Maker::damaged(QByteArray file)
{
    const int count = in->choice(4) == 3 ? in->choice(16) : 0;
    for (int i = 0; i < count && !file.isEmpty(); ++i) {
        const auto at = static_cast<int>(static_cast<std::uint32_t>(in->int32()) %
                                         static_cast<std::uint32_t>(in->flag() ? qMin(file.size(), 128) : file.size()));
        file[at] = static_cast<char>(in->byte());
    }
    return file;
}

QByteArray Maker::make()
{
    constexpr int mostChanges = 12;
    chooseStorage();
    chooseEntities();
    database.run("BEGIN");
    addTables();
    for (int changes = in->choice(mostChanges); changes > 0; --changes)
        change();
    database.run("COMMIT");
    return damaged(database.file());
}

} // namespace

QByteArray madeLibrary(ByteReader *in)
{
    return Maker(in).make();
}

} // namespace fuzz
