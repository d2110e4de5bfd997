#include "devicehost/backup/backup.h"

#include "devicehost/backup/ciphers.h"
#include "devicehost/backup/encrypted_file.h"
#include "devicehost/backup/small_file.h"
#include "devicehost/vdev/posix_file.h"

#include <sys/stat.h>

#include <cerrno>
#include <cstdio>
#include <utility>

namespace devicehost
{

namespace
{

constexpr const char *manifestName = "Manifest.db";

/// What SQLite keeps beside a database that is being written, or whose writing was broken off.
constexpr const char *unfinishedNames[] = {"Manifest.db-wal", "Manifest.db-journal"};

/// As the manifest names files: no slash in front, one between two components. Nothing for a name that climbs.
std::optional<QByteArray> tidied(const char *path)
{
    QByteArray name;
    for (const QByteArray &part : QByteArray::fromRawData(path, static_cast<int>(qstrlen(path))).split('/')) {
        if (part == "..")
            return std::nullopt;
        if (!part.isEmpty() && part != ".")
            name += name.isEmpty() ? part : '/' + part;
    }
    return name;
}

/// Where the file lies: "ab/ab01...".
QByteArray storedName(const Manifest::Entry &entry)
{
    const QByteArray id =
        QByteArray(reinterpret_cast<const char *>(entry.id.data()), static_cast<int>(entry.id.size())).toHex();
    return id.left(2) + '/' + id;
}

VError damaged(const QString &what)
{
    return {EBADMSG, what};
}

VError incomplete(const QByteArray &name, const QString &what)
{
    return {ENODATA, QStringLiteral("the backup is incomplete: its file %1 %2").arg(QString::fromLatin1(name), what)};
}

VError tooLong(const QByteArray &name, qint64 size)
{
    return damaged(
        QStringLiteral("the backup is damaged: its file %1 holds more than the %2 bytes that its Manifest.db "
                       "tells of")
            .arg(QString::fromLatin1(name))
            .arg(size));
}

/// Why an entry is no file that can be opened; code 0 for one that is.
VError faultOf(const Manifest::Entry &entry)
{
    switch (entry.kind) {
    case Manifest::Kind::File:
        return {};
    case Manifest::Kind::Folder:
        return errnoError(EISDIR);
    case Manifest::Kind::Link:
        return {EINVAL, QStringLiteral("it is a symbolic link")};
    case Manifest::Kind::Other:
        break;
    }
    return {EINVAL, QStringLiteral("it is no regular file")};
}

qint64 sizeOf(const UniqueFd &file)
{
    struct stat info = {};
    return ::fstat(file.get(), &info) == 0 ? info.st_size : -1;
}

} // namespace

bool Backup::FileState::operator==(const FileState &other) const
{
    return device == other.device && node == other.node && size == other.size && seconds == other.seconds &&
           nanoseconds == other.nanoseconds;
}

std::shared_ptr<Backup> Backup::open(const char *root, const QByteArray *password, VError *error)
{
    PathTree tree = PathTree::below(root, error, Links::Refused);
    if (!tree.valid())
        return nullptr;
    std::shared_ptr<Backup> backup(new Backup(std::move(tree)));
    if (!backup->facts.read(backup->tree, error))
        return nullptr;
    if (backup->facts.encrypted && !backup->unlock(password, error))
        return nullptr;
    return backup->readManifest(error) ? backup : nullptr;
}

bool Backup::unlock(const QByteArray *password, VError *error)
{
    keys = KeyBag::parse(facts.keyBag);
    if (!keys) {
        *error = damaged(QStringLiteral("the key bag in the backup's Manifest.plist is missing or damaged"));
        return false;
    }
    if (password == nullptr) {
        *error = {ENOKEY, QStringLiteral("the backup is encrypted and its password was not given")};
        return false;
    }
    switch (keys->unlock(*password)) {
    case KeyBag::Unlocking::Unlocked:
        return true;
    case KeyBag::Unlocking::WrongPassword:
        *error = {EKEYREJECTED, QStringLiteral("the password is wrong")};
        break;
    case KeyBag::Unlocking::TooManyRounds:
        *error =
            damaged(QStringLiteral("the key bag in the backup's Manifest.plist asks for more than %1 rounds of key "
                                   "derivation")
                        .arg(mostDerivationRounds));
        break;
    case KeyBag::Unlocking::Failed:
        *error = {ENOMEM, QStringLiteral("the key cannot be derived from the password")};
        break;
    }
    return false;
}

bool Backup::isAtRest(const PathTree &tree, VError *error)
{
    for (const char *name : unfinishedNames) {
        VError reason;
        const UniqueFd file = tree.openForReading(name, &reason);
        if (file ? sizeOf(file) == 0 : isAbsence(reason))
            continue;
        *error = {EBUSY,
                  QStringLiteral("the backup is being written, or was not finished: there is a %1 beside its "
                                 "Manifest.db")
                      .arg(QLatin1String(name)),
                  QStringLiteral("wait until the backup is finished, or make a new one")};
        return false;
    }
    return true;
}

bool Backup::readManifest(VError *error)
{
    if (!isAtRest(tree, error))
        return false;
    const std::optional<FileState> state = manifestState(tree, error);
    SecretBytes bytes = state ? readWholeFile(tree, manifestName, largestManifest, error) : SecretBytes();
    if (error->code != 0) {
        error->text = QStringLiteral("the backup's Manifest.db cannot be read: ") + error->text;
        return false;
    }
    stateAtOpening = *state;
    if (keys && !facts.manifestKey.isEmpty()) { // the first encrypted backups left the list as it was
        const SecretBytes key = keys->fileKey(facts.manifestKey);
        bytes.truncate(bytes.size() / blockBytes * blockBytes);
        if (key.isEmpty() || !CbcDecryptor(key).decrypt({}, bytes.data(), bytes.size())) {
            *error = damaged(QStringLiteral("the ManifestKey in the backup's Manifest.plist is damaged"));
            return false;
        }
    }
    manifest = Manifest::open(std::move(bytes), error);
    return manifest != nullptr;
}

std::optional<Backup::FileState> Backup::manifestState(const PathTree &tree, VError *error)
{
    *error = {};
    const UniqueFd file = tree.openForReading(manifestName, error);
    struct stat info = {};
    if (!file)
        return std::nullopt;
    if (::fstat(file.get(), &info) != 0) {
        *error = errnoError(errno);
        return std::nullopt;
    }
    return FileState{info.st_dev, info.st_ino, info.st_size, info.st_mtim.tv_sec, info.st_mtim.tv_nsec};
}

bool Backup::isCurrent(const char *root, VError *error) const
{
    const PathTree now = PathTree::below(root, error, Links::Refused);
    const std::optional<FileState> state = now.valid() ? manifestState(now, error) : std::nullopt;
    if (!state)
        return false;
    if (*state == stateAtOpening)
        return isAtRest(now, error);
    *error = {ESTALE, QStringLiteral("the backup was changed after it had been opened")};
    return false;
}

std::unique_ptr<VFile> Backup::openFile(const char *path, VError *error) const
{
    const std::optional<QByteArray> name = tidied(path);
    if (!name) {
        *error = {EXDEV, QStringLiteral("the name leads out of the device's folder")};
        return nullptr;
    }
    const Manifest::Entry *const entry = manifest->find(*name);
    if (entry == nullptr) {
        *error = name->isEmpty() ? errnoError(EISDIR) : VError{ENOENT, QStringLiteral("the backup holds no such file")};
        return nullptr;
    }
    *error = faultOf(*entry);
    if (error->code != 0)
        return nullptr;
    return openStored(*entry, error);
}

std::unique_ptr<VFile> Backup::openStored(const Manifest::Entry &entry, VError *error) const
{
    const QByteArray name = storedName(entry);
    UniqueFd file = tree.openForReading(name.constData(), error);
    if (!file) {
        if (isAbsence(*error))
            *error = incomplete(name, QStringLiteral("is missing"));
        return nullptr;
    }
    const std::optional<FileRecord> record = manifest->record(entry);
    if (!keys)
        return openPlain(name, std::move(file), record, error);
    if (!record) {
        *error = damaged(QStringLiteral("its entry in the backup's Manifest.db is damaged"));
        return nullptr;
    }
    return openEncrypted(name, std::move(file), *record, error);
}

std::unique_ptr<VFile> Backup::openPlain(const QByteArray &name, UniqueFd file, const std::optional<FileRecord> &record,
                                         VError *error)
{
    const qint64 stored = sizeOf(file);
    if (record && stored >= 0 && stored < record->size) {
        *error = incomplete(name, QStringLiteral("holds %1 of %2 bytes").arg(stored).arg(record->size));
        return nullptr;
    }
    if (record && stored > record->size) {
        *error = tooLong(name, record->size);
        return nullptr;
    }
    return std::make_unique<PosixFile>(std::move(file)); // without a record nothing tells how long it should be
}

std::unique_ptr<VFile> Backup::openEncrypted(const QByteArray &name, UniqueFd file, const FileRecord &record,
                                             VError *error) const
{
    const qint64 stored = sizeOf(file);
    const qint64 needed = EncryptedFile::encryptedSize(record.size);
    if (needed < 0 || stored < needed) {
        *error = incomplete(name, QStringLiteral("is too short for %1 bytes").arg(record.size));
        return nullptr;
    }
    constexpr qint64 block = blockBytes;
    const bool isPaddedByABlock = record.size % block == 0 && stored - needed == block;
    if (stored != needed && !isPaddedByABlock) {
        *error = tooLong(name, record.size);
        return nullptr;
    }
    if (record.size == 0)
        return std::make_unique<EncryptedFile>(std::move(file), SecretBytes(), 0);
    const SecretBytes key = keys->fileKey(record.protectionClass, record.wrappedKey);
    if (key.isEmpty()) {
        *error = damaged(QStringLiteral("its key in the backup's Manifest.db is missing or damaged"));
        return nullptr;
    }
    return std::make_unique<EncryptedFile>(std::move(file), key, record.size);
}

} // namespace devicehost
