#include "testing/backup_builder.h"

#include "testing/backup_plists.h"

#include <QCryptographicHash>
#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>

#include <sqlite3.h>

#include <utility>

namespace testkit
{

namespace
{

constexpr const char *schema = "CREATE TABLE Files (fileID TEXT PRIMARY KEY, domain TEXT, relativePath TEXT, "
                               "flags INTEGER, file BLOB);"
                               "CREATE INDEX FilesDomainIdx ON Files(domain);"
                               "CREATE INDEX FilesRelativePathIdx ON Files(relativePath);"
                               "CREATE INDEX FilesFlagsIdx ON Files(flags);"
                               "CREATE TABLE Properties (key TEXT PRIMARY KEY, value BLOB);"
                               "BEGIN;";

constexpr std::uint32_t manifestClass = 4;

QByteArray idOf(const QByteArray &domain, const QByteArray &path)
{
    return QCryptographicHash::hash(domain + '-' + path, QCryptographicHash::Sha1).toHex();
}

/// The device's paths have one slash in front.
QByteArray mediaPath(const QByteArray &path)
{
    return "Media" + path;
}

void bindText(sqlite3_stmt *statement, int index, const QByteArray &text)
{
    sqlite3_bind_text(statement, index, text.constData(), text.size(), SQLITE_TRANSIENT);
}

} // namespace

BackupBuilder::BackupBuilder(const QString &where, const BackupOptions &wanted)
    : folder(where), options(wanted), keys(wanted.password, wanted.rounds)
{
    QDir().mkpath(folder);
    add({{}, 2, fileRecordPlist(0, 0, {})});
}

QString BackupBuilder::storedName(const QByteArray &path)
{
    const QByteArray id = idOf("CameraRollDomain", mediaPath(path));
    return QString::fromLatin1(id.left(2) + '/' + id);
}

void BackupBuilder::put(const QString &name, const QByteArray &content) const
{
    const QString path = folder + QLatin1Char('/') + name;
    QDir().mkpath(QFileInfo(path).path());
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
        qFatal("%s: %s", qPrintable(path), qPrintable(file.errorString()));
}

void BackupBuilder::add(Entry entry)
{
    const auto place = places.constFind(entry.path);
    if (place != places.constEnd()) {
        entries[static_cast<std::size_t>(*place)] = std::move(entry);
        return;
    }
    places.insert(entry.path, static_cast<int>(entries.size()));
    entries.push_back(std::move(entry));
}

void BackupBuilder::addFile(const QByteArray &path, const QByteArray &content)
{
    if (options.password.isEmpty()) {
        put(storedName(path), content);
        add({path, 1, fileRecordPlist(content.size(), 3, {})});
        return;
    }
    // Several classes, so that a mix-up shows.
    const std::uint32_t protectionClass = 1 + static_cast<std::uint32_t>(path.size()) % 4;
    const QByteArray key = madeUpKey(path);
    put(storedName(path), BackupKeyBag::encrypted(key, content));
    add({path, 1, fileRecordPlist(content.size(), protectionClass, BackupKeyBag::wrapped(key, protectionClass))});
}

void BackupBuilder::addFolder(const QByteArray &path)
{
    add({path, 2, fileRecordPlist(0, 0, {})});
}

void BackupBuilder::addLink(const QByteArray &path)
{
    add({path, 4, fileRecordPlist(0, 0, {})});
}

void BackupBuilder::addTree(const QString &deviceFolder)
{
    QDirIterator entry(deviceFolder, QDir::Dirs | QDir::Files | QDir::Hidden | QDir::NoDotAndDotDot,
                       QDirIterator::Subdirectories);
    while (entry.hasNext()) {
        QFile file(entry.next());
        const QByteArray path = file.fileName().mid(deviceFolder.size()).toUtf8();
        if (entry.fileInfo().isDir()) {
            addFolder(path);
            continue;
        }
        if (!file.open(QIODevice::ReadOnly))
            qFatal("%s: %s", qPrintable(file.fileName()), qPrintable(file.errorString()));
        addFile(path, file.readAll());
    }
}

QByteArray BackupBuilder::manifestDatabase() const
{
    sqlite3 *db = nullptr;
    sqlite3_stmt *insert = nullptr;
    const QByteArray pageSize = "PRAGMA page_size = " + QByteArray::number(options.pageSize);
    const bool made =
        sqlite3_open(":memory:", &db) == SQLITE_OK &&
        sqlite3_exec(db, pageSize.constData(), nullptr, nullptr, nullptr) == SQLITE_OK &&
        sqlite3_exec(db, schema, nullptr, nullptr, nullptr) == SQLITE_OK &&
        sqlite3_prepare_v2(db, "INSERT INTO Files VALUES (?, ?, ?, ?, ?)", -1, &insert, nullptr) == SQLITE_OK;
    if (!made)
        qFatal("the test backup cannot be made: %s", sqlite3_errmsg(db));
    const auto add = [&](const QByteArray &domain, const QByteArray &path, int flags, const QByteArray &record) {
        bindText(insert, 1, idOf(domain, path));
        bindText(insert, 2, domain);
        bindText(insert, 3, path);
        sqlite3_bind_int(insert, 4, flags);
        sqlite3_bind_blob(insert, 5, record.constData(), record.size(), SQLITE_TRANSIENT);
        if (sqlite3_step(insert) != SQLITE_DONE)
            qFatal("the test backup cannot be made: %s", sqlite3_errmsg(db));
        sqlite3_reset(insert);
    };
    add("HomeDomain", "Library/Preferences/a.plist", 1, fileRecordPlist(10, 3, {})); // other domains are there, too
    add("MediaDomain", "Media/DCIM/other", 1, fileRecordPlist(10, 3, {}));
    for (const Entry &entry : entries)
        add("CameraRollDomain", mediaPath(entry.path), entry.flags, entry.record);
    sqlite3_finalize(insert);
    sqlite3_exec(db, "COMMIT", nullptr, nullptr, nullptr);
    sqlite3_int64 size = 0;
    unsigned char *const bytes = sqlite3_serialize(db, "main", &size, 0);
    const QByteArray database(reinterpret_cast<const char *>(bytes), static_cast<int>(size));
    sqlite3_free(bytes);
    sqlite3_close(db);
    return database;
}

void BackupBuilder::write()
{
    manifest = manifestDatabase();
    const bool encrypted = !options.password.isEmpty();
    const QByteArray key = madeUpKey("manifest");
    put(QStringLiteral("Manifest.db"), encrypted ? BackupKeyBag::encrypted(key, manifest) : manifest);
    put(QStringLiteral("Manifest.plist"),
        encrypted ? manifestPlist(keys.bytes(), BackupKeyBag::wrapped(key, manifestClass)) : manifestPlist({}, {}));
    put(QStringLiteral("Info.plist"), infoPlist(options.deviceName));
    put(QStringLiteral("Status.plist"), statusPlist(options.snapshotState));
}

} // namespace testkit
