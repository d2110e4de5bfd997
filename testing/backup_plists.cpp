#include "testing/backup_plists.h"

#include <plist/plist.h>

#include <cstdlib>
#include <memory>

namespace testkit
{

namespace
{

struct Free {
    void operator()(void *list) const { plist_free(list); }
};
using List = std::unique_ptr<void, Free>;

plist_t dataNode(const QByteArray &bytes)
{
    return plist_new_data(bytes.constData(), static_cast<std::uint64_t>(bytes.size()));
}

QByteArray written(const List &list, void (*write)(plist_t, char **, std::uint32_t *))
{
    char *text = nullptr;
    std::uint32_t size = 0;
    write(list.get(), &text, &size);
    const QByteArray bytes(text, static_cast<int>(size));
    std::free(text);
    return bytes;
}

} // namespace

QByteArray fileRecordPlist(qint64 size, std::uint32_t protectionClass, const QByteArray &wrappedKey)
{
    plist_t file = plist_new_dict();
    plist_dict_set_item(file, "LastModified", plist_new_uint(1680000000));
    plist_dict_set_item(file, "Mode", plist_new_uint(0100644));
    plist_dict_set_item(file, "Size", plist_new_uint(static_cast<std::uint64_t>(size)));
    plist_dict_set_item(file, "ProtectionClass", plist_new_uint(protectionClass));
    plist_t objects = plist_new_array();
    plist_array_append_item(objects, plist_new_string("$null"));
    plist_array_append_item(objects, file);
    if (!wrappedKey.isEmpty()) {
        plist_dict_set_item(file, "EncryptionKey", plist_new_uid(2));
        plist_t key = plist_new_dict();
        plist_dict_set_item(key, "NS.data", dataNode(wrappedKey));
        plist_array_append_item(objects, key);
    }
    const List archive(plist_new_dict());
    plist_dict_set_item(archive.get(), "$version", plist_new_uint(100000));
    plist_dict_set_item(archive.get(), "$archiver", plist_new_string("NSKeyedArchiver"));
    plist_t top = plist_new_dict();
    plist_dict_set_item(top, "root", plist_new_uid(1));
    plist_dict_set_item(archive.get(), "$top", top);
    plist_dict_set_item(archive.get(), "$objects", objects);
    return written(archive, &plist_to_bin);
}

QByteArray manifestPlist(const QByteArray &keyBag, const QByteArray &manifestKey)
{
    const List list(plist_new_dict());
    plist_dict_set_item(list.get(), "IsEncrypted", plist_new_bool(keyBag.isEmpty() ? 0 : 1));
    plist_dict_set_item(list.get(), "Version", plist_new_string("10.0"));
    plist_t lockdown = plist_new_dict();
    plist_dict_set_item(lockdown, "ProductVersion", plist_new_string("16.3"));
    plist_dict_set_item(list.get(), "Lockdown", lockdown);
    if (!keyBag.isEmpty()) {
        plist_dict_set_item(list.get(), "BackupKeyBag", dataNode(keyBag));
        plist_dict_set_item(list.get(), "ManifestKey", dataNode(manifestKey));
    }
    return written(list, &plist_to_bin);
}

QByteArray infoPlist(const QString &deviceName)
{
    constexpr std::int32_t backupTime = 702066600; // 2023-04-01 18:30 UTC, in seconds since 2001
    const List list(plist_new_dict());
    plist_dict_set_item(list.get(), "Device Name", plist_new_string(deviceName.toUtf8().constData()));
    plist_t applications = plist_new_array();
    plist_array_append_item(applications, plist_new_string("org.example.app"));
    plist_dict_set_item(list.get(), "Installed Applications", applications);
    plist_dict_set_item(list.get(), "Last Backup Date", plist_new_date(backupTime, 0));
    plist_dict_set_item(list.get(), "Product Type", plist_new_string("iPhone10,4"));
    plist_dict_set_item(list.get(), "Product Version", plist_new_string("16.3"));
    plist_dict_set_item(list.get(), "Target Identifier", plist_new_string("0123456789abcdef"));
    return written(list, &plist_to_xml);
}

QByteArray statusPlist(const QByteArray &snapshotState)
{
    const List list(plist_new_dict());
    plist_dict_set_item(list.get(), "SnapshotState", plist_new_string(snapshotState.constData()));
    plist_dict_set_item(list.get(), "IsFullBackup", plist_new_bool(1));
    return written(list, &plist_to_bin);
}

} // namespace testkit
