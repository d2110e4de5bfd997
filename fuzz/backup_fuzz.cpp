// A part of a computer backup, behind one byte that says which: 0 its Manifest.db, 1 the same inside an encrypted
// backup, 2 the Manifest.plist of an encrypted one, 3 its key bag, 4 what the manifest notes of one file, 5 Info.plist
// and Status.plist. The rest of the backup is sound.

#include "devicehost/backup/key_bag.h"
#include "devicehost/backup/property_list.h"
#include "devicehost/device_host.h"
#include "devicehost/resolve_device.h"
#include "fuzz/require.h"
#include "photolib/host/vdev.h"
#include "testing/backup_builder.h"
#include "testing/backup_plists.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <sqlite3.h>

#include <cstdint>

namespace
{

constexpr const char *password = "fuzz";
constexpr const char *names[] = {
    "/DCIM/100APPLE/IMG_0001.JPG", "/PhotoData/Photos.sqlite", "/../secret", "/LINK", "/", "/DCIM"};
const QByteArray photo = "a photo";
const QByteArray forbidden = "this lies outside of the backup";

/// Rounds of key derivation that a run has time for.
constexpr std::uint64_t mostRounds = 10'000;

enum Part { PlainManifest, LockedManifest, ManifestPlist, Bag, Record, Info, PartCount };

void write(const QString &path, const QByteArray &content)
{
    QFile file(path);
    fuzz::require(file.open(QIODevice::WriteOnly | QIODevice::Unbuffered) && file.write(content) == content.size(),
                  "the place for temporary files can be written to");
}

class Place
{
public:
    Place()
    {
        write(folder.filePath(QStringLiteral("secret")), forbidden);
        const QString stored = testkit::BackupBuilder::storedName("/LINK");
        for (const bool locked : {false, true}) {
            const testkit::BackupBuilder builder = made(locked);
            (locked ? lockedManifest : plainManifest) = builder.plainManifest();
            const QString link = path(locked) + QLatin1Char('/') + stored;
            QFile::remove(link);
            QFile::link(folder.filePath(QStringLiteral("secret")), link);
        }
        lockedList = testkit::manifestPlist(bag.bytes(), wrappedManifestKey());
    }

    QByteArray wrappedManifestKey() const { return testkit::BackupKeyBag::wrapped(manifestKey, 4); }

    QString path(bool locked) const
    {
        return folder.filePath(locked ? QStringLiteral("locked") : QStringLiteral("plain"));
    }

    void put(bool locked, const char *name, const QByteArray &content) const
    {
        write(path(locked) + QLatin1Char('/') + QLatin1String(name), content);
    }

    void putLockedManifest(const QByteArray &database) const
    {
        put(true, "Manifest.db", testkit::BackupKeyBag::encrypted(manifestKey, database));
    }

    /// The manifest of the encrypted backup with this note of its photo.
    QByteArray manifestWith(const QByteArray &record) const
    {
        sqlite3 *db = nullptr;
        sqlite3_open(":memory:", &db);
        QByteArray database = lockedManifest;
        sqlite3_deserialize(db, "main", reinterpret_cast<unsigned char *>(database.data()), database.size(),
                            database.size(), 0);
        sqlite3_stmt *update = nullptr;
        sqlite3_prepare_v2(db, "UPDATE Files SET file = zeroblob(0)", -1, &update, nullptr);
        sqlite3_step(update); // makes room
        sqlite3_finalize(update);
        sqlite3_prepare_v2(db, "UPDATE Files SET file = ? WHERE relativePath LIKE '%.JPG'", -1, &update, nullptr);
        sqlite3_bind_blob(update, 1, record.constData(), record.size(), SQLITE_STATIC);
        sqlite3_step(update);
        sqlite3_finalize(update);
        sqlite3_close(db);
        return database;
    }

    const testkit::BackupKeyBag bag{password, {}};
    QByteArray plainManifest;
    QByteArray lockedManifest;
    QByteArray lockedList;

private:
    testkit::BackupBuilder made(bool locked) const
    {
        testkit::BackupOptions options;
        options.password = locked ? password : "";
        testkit::BackupBuilder builder(path(locked), options);
        builder.addFile("/DCIM/100APPLE/IMG_0001.JPG", photo);
        builder.addFile("/PhotoData/Photos.sqlite", QByteArray(100, 'd'));
        builder.addFile("/LINK", "link");
        builder.write();
        return builder;
    }

    const QByteArray manifestKey = testkit::madeUpKey("manifest");
    QTemporaryDir folder;
};

void readFiles(const devicehost::DeviceHost &host, const QString &name, Part part)
{
    VDev *const device = vDevOpen(VDevDevice, name.toUtf8().constData());
    for (const char *file : names) {
        VFile *const opened = device == nullptr ? nullptr : vFileOpen(device, file, 0);
        QByteArray buffer(256, '\0');
        const int count = vFileRead(opened, buffer.data(), buffer.size());
        const QByteArray content = buffer.left(qMax(0, count));
        fuzz::require(!content.contains("outside"), "nothing outside of the backup is read");
        fuzz::require(vFileSeek(opened, 3, 0) != 3 || vFileRead(opened, buffer.data(), 2) <= 0 ||
                          content.mid(3, 2).startsWith(buffer.left(1)),
                      "a place reads the same, from wherever");
        vFileClose(opened);
    }
    vDevClose(device);
    fuzz::require(part != Info || device != nullptr, "what describes a backup does not keep it from being opened");
    fuzz::require(device != nullptr || !host.failure().isEmpty(), "a failure has a reason");
}

void runBackup(const QString &path, Part part)
{
    const devicehost::ResolvedDevice resolved = devicehost::resolveDevice(path);
    fuzz::require(!resolved.message.contains(QLatin1Char('\n')), "a message is one line");
    if (resolved.status != devicehost::DeviceStatus::Found)
        return;
    devicehost::DeviceHost host(resolved.devicePath);
    if (host.needsPassword()) {
        const devicehost::UnlockResult result = host.unlock(password);
        fuzz::require(result.message.isEmpty() == (result.status == devicehost::Unlocking::Unlocked),
                      "what goes wrong has a reason");
        if (result.status != devicehost::Unlocking::Unlocked)
            return;
    }
    readFiles(host, resolved.devicePath, part);
}

bool takesTooLong(const QByteArray &list)
{
    const auto parsed = devicehost::PropertyList::parse(list);
    const auto bag =
        devicehost::KeyBag::parse(parsed ? parsed->data("BackupKeyBag").value_or(QByteArray()) : QByteArray());
    return bag && bag->allRounds() > mostRounds;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    static const Place place;
    if (size == 0)
        return 0;
    const auto part = static_cast<Part>(data[0] % PartCount);
    const QByteArray content(reinterpret_cast<const char *>(data + 1), static_cast<int>(size - 1));
    const bool locked = part != PlainManifest;
    QByteArray list = locked ? place.lockedList : testkit::manifestPlist({}, {});
    if (part == ManifestPlist)
        list = content;
    else if (part == Bag)
        list = testkit::manifestPlist(content, place.wrappedManifestKey());
    if (takesTooLong(list))
        return 0;
    place.put(locked, "Manifest.plist", list);
    if (part == PlainManifest)
        place.put(false, "Manifest.db", content);
    else
        place.putLockedManifest(part == LockedManifest ? content
                                : part == Record       ? place.manifestWith(content)
                                                       : place.lockedManifest);
    for (const char *name : {"Info.plist", "Status.plist"})
        place.put(locked, name, part == Info ? content : QByteArray());
    runBackup(place.path(locked), part);
    return 0;
}
