#include "devicehost/backup/backup_facts.h"

#include "devicehost/backup/property_list.h"
#include "devicehost/backup/small_file.h"

#include <QStringList>

#include <cerrno>
#include <optional>

namespace devicehost
{

namespace
{

/// Of Manifest.plist and Info.plist, which list the installed applications, the latter with their icons.
constexpr qint64 largestList = 64LL << 20;

std::optional<PropertyList> readList(const PathTree &tree, const char *name, VError *error)
{
    const SecretBytes bytes = readWholeFile(tree, name, largestList, error);
    if (error->code != 0) {
        error->text = QStringLiteral("the backup's %1 cannot be read: %2").arg(QString::fromLatin1(name), error->text);
        return std::nullopt;
    }
    const auto list =
        PropertyList::parse(QByteArray(reinterpret_cast<const char *>(bytes.data()), static_cast<int>(bytes.size())));
    if (!list)
        *error = {EBADMSG, QStringLiteral("the backup's %1 is damaged").arg(QString::fromLatin1(name))};
    return list;
}

} // namespace

bool BackupFacts::read(const PathTree &tree, VError *error)
{
    const auto list = readList(tree, "Manifest.plist", error);
    if (!list)
        return false;
    const std::optional<bool> flag = list->flag("IsEncrypted");
    if (!flag) { // taken for false, the files of an encrypted backup would pass for pictures
        *error = {EBADMSG, QStringLiteral("the backup's Manifest.plist does not say whether it is encrypted")};
        return false;
    }
    encrypted = *flag;
    if (encrypted) {
        keyBag = list->data("BackupKeyBag").value_or(QByteArray());
        manifestKey = list->data("ManifestKey").value_or(QByteArray());
    }
    readInfo(tree);
    return true;
}

void BackupFacts::readInfo(const PathTree &tree)
{
    VError ignored;
    if (const auto info = readList(tree, "Info.plist", &ignored)) {
        deviceName = info->text("Device Name").value_or(QString());
        productType = info->text("Product Type").value_or(QString());
        productVersion = info->text("Product Version").value_or(QString());
        identifier = info->text("Target Identifier").value_or(QString());
        lastBackup = info->date("Last Backup Date").value_or(QDateTime());
    }
    if (const auto status = readList(tree, "Status.plist", &ignored))
        finished = status->text("SnapshotState").value_or(QStringLiteral("finished")) == QStringLiteral("finished");
}

QString BackupFacts::description() const
{
    QStringList parts = {deviceName.isEmpty() ? QStringLiteral("a device without a name") : deviceName};
    if (!productType.isEmpty())
        parts += productType;
    if (!productVersion.isEmpty())
        parts += QStringLiteral("iOS ") + productVersion;
    if (lastBackup.isValid())
        parts += lastBackup.toUTC().toString(QStringLiteral("yyyy-MM-dd HH:mm")) + QStringLiteral(" UTC");
    parts += encrypted ? QStringLiteral("encrypted") : QStringLiteral("not encrypted");
    if (!finished)
        parts += QStringLiteral("interrupted before its end");
    return parts.join(QStringLiteral(", "));
}

} // namespace devicehost
