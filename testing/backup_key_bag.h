#ifndef TESTING_BACKUP_KEY_BAG_H
#define TESTING_BACKUP_KEY_BAG_H

#include <QByteArray>

#include <cstdint>

namespace testkit
{

/// Rounds of key derivation: of the second step, and of the first, 0 for backups that had one step only.
struct BackupRounds {
    std::uint32_t outer = 3;
    std::uint32_t inner = 5;
};

/// The keys of an encrypted backup, made up, the same on every run. Errors end the program.
class BackupKeyBag
{
public:
    BackupKeyBag(const QByteArray &password, const BackupRounds &rounds);

    /// As Manifest.plist holds it.
    const QByteArray &bytes() const { return bag; }

    /// A key for one file or for the manifest, wrapped with the key of a class (1 to 11); with the class in front.
    static QByteArray wrapped(const QByteArray &key, std::uint32_t protectionClass);

    /// AES-256-CBC with an initial vector of zeros, padded to the next block.
    static QByteArray encrypted(const QByteArray &key, const QByteArray &content);

private:
    QByteArray bag;
};

/// 32 bytes that follow from the name.
QByteArray madeUpKey(const QByteArray &name);

} // namespace testkit

#endif
