#include "fuzz/hostile_value.h"

#include <sqlite3.h>

#include <iterator>
#include <limits>

namespace fuzz
{

namespace
{

constexpr const char *words[] = {
    "GenericAlbum",
    "GenericAsset",
    "Asset",
    "Album",
    "Memory",
    "WallpaperAsset",
    "Z_METADATA",
    "Z_PRIMARYKEY",
    "ZGENERICALBUM",
    "ZGENERICASSET",
    "ZASSET",
    "ZADDITIONALASSETATTRIBUTES",
    "ZDETECTEDFACE",
    "ZMEMORY",
    "sqlite_master",
    "Z_26ASSETS",
    "Z_26ALBUMS",
    "Z_3ASSETS",
    "Z_3ALBUMS",
    "DCIM/100APPLE",
    "DCIM/",
    "PhotoData/PhotoCloudSharingData/1",
    "PhotoData/CPLAssets/group1",
    "PhotoStreamsData/1",
    "PhotoData/Sync/1",
    "Photos/1",
    "..",
    "../..",
    "../../../secret",
    "..\\..\\secret",
    "/",
    "/secret",
    "LINK.JPG",
    "IMG_0001.JPG",
    "IMG_0002.JPG",
    "IMG_0003.MOV",
    "a.gif",
    "%1%2%3",
    "%2%1%99",
    "%1$n%s%s",
    "public.jpeg",
    "com.compuserve.gif",
    "0",
    "-1",
    "1550",
    "2147483648",
    "9223372036854775808",
    "1e999",
    "nan",
    " ",
    "\xEF\xBB\xBF",
    "\xC3\xA4\xE2\x82\xAC\xF0\x9F\x98\x80",
    "\xED\xA0\x80\xFF\xFE\xC0\x80",
    "' or 1 or '",
    "\"0\"",
    "\n",
};

constexpr std::int64_t edges[] = {
    -1,
    16,
    52,
    1550,
    2147483647,
    -2147483648LL,
    4294967295LL,
    4294967296LL,
    9223372036854775LL,
    9223372036854776LL,
    std::numeric_limits<std::int64_t>::max(),
    std::numeric_limits<std::int64_t>::min(),
};

void bindText(sqlite3_stmt *statement, int index, const QByteArray &text)
{
    sqlite3_bind_text(statement, index, text.constData(), text.size(), SQLITE_TRANSIENT);
}

void bindPlain(sqlite3_stmt *statement, int index, char kind, int row)
{
    const QByteArray number = QByteArray::number(row + 1);
    switch (kind) {
    case 't':
        return bindText(statement, index, "Title " + number);
    case 'f':
        return bindText(statement, index, "IMG_000" + number + ".JPG");
    case 'd':
        return bindText(statement, index, "DCIM/100APPLE");
    case 'u':
        return bindText(statement, index, "B0000000-0000-4000-8000-00000000000" + number);
    case '0':
    case '1':
        sqlite3_bind_int(statement, index, kind - '0');
        return;
    case 's':
        sqlite3_bind_double(statement, index, 600000000.25 + row);
        return;
    default:
        sqlite3_bind_int(statement, index, row + 1);
    }
}

// As UTF-8 or as UTF-16, whichever the database holds: SQLite converts the one, and takes the other as it stands.
void bindAnyText(sqlite3_stmt *statement, int index, ByteReader *in)
{
    const auto encoding = static_cast<unsigned char>(in->flag() ? SQLITE_UTF16LE : SQLITE_UTF8);
    const QByteArray text = in->text();
    const auto size = static_cast<sqlite3_uint64>(text.size());
    sqlite3_bind_text64(statement, index, text.constData(), size, SQLITE_TRANSIENT, encoding);
}

void bindAnyBlob(sqlite3_stmt *statement, int index, ByteReader *in)
{
    if (in->seldom(4)) {
        sqlite3_bind_zeroblob(statement, index, in->choice(65536));
        return;
    }
    const QByteArray bytes = in->text();
    sqlite3_bind_blob(statement, index, bytes.constData(), bytes.size(), SQLITE_TRANSIENT);
}

// A known word many times over: texts that are longer than any real one.
void bindLongText(sqlite3_stmt *statement, int index, ByteReader *in)
{
    const QByteArray word = knownWord(in);
    bindText(statement, index, word.repeated(in->choice(4096)));
}

} // namespace

QByteArray knownWord(ByteReader *in)
{
    return words[in->choice(static_cast<int>(std::size(words)))];
}

void bindValue(sqlite3_stmt *statement, int index, char kind, int row, bool plain, ByteReader *in)
{
    switch (plain ? 0 : in->choice(13)) {
    case 4:
        return; // NULL
    case 5:
        sqlite3_bind_int(statement, index, in->choice(32));
        return;
    case 6:
        sqlite3_bind_int64(statement, index, edges[in->choice(static_cast<int>(std::size(edges)))]);
        return;
    case 7:
        sqlite3_bind_int64(statement, index, in->int64());
        return;
    case 8:
        sqlite3_bind_double(statement, index, in->real());
        return;
    case 9:
        return bindText(statement, index, knownWord(in));
    case 10:
        return bindAnyText(statement, index, in);
    case 11:
        return bindAnyBlob(statement, index, in);
    case 12:
        return bindLongText(statement, index, in);
    default:
        return bindPlain(statement, index, kind, row);
    }
}

} // namespace fuzz
