#ifndef DEVICEHOST_BACKUP_KEY_BAG_H
#define DEVICEHOST_BACKUP_KEY_BAG_H

#include "devicehost/backup/secret_bytes.h"

#include <QByteArray>

#include <cstdint>
#include <map>
#include <optional>
#include <vector>

namespace devicehost
{

/// Rounds of key derivation that a key bag may ask for in all, five times what devices ask for (10,010,000). More
/// would only keep the processor busy: a forged bag could ask for hours.
constexpr std::uint64_t mostDerivationRounds = 50'000'000;

/// The keys of an encrypted backup, one for each protection class, wrapped with a key that follows from the password.
class KeyBag
{
public:
    enum class Unlocking {
        Unlocked,
        WrongPassword,
        TooManyRounds, ///< see mostDerivationRounds; nothing was derived
        Failed,        ///< the derivation itself: no memory
    };

    /// `bytes` are a sequence of entries: a tag of four letters, a length of four bytes big-endian, a value. Nothing
    /// when they are damaged, or hold no class key that a password opens.
    static std::optional<KeyBag> parse(const QByteArray &bytes);

    /// What unlock() costs: rounds of key derivation in all.
    std::uint64_t allRounds() const { return std::uint64_t{rounds} + innerRounds; }

    /// Takes the seconds that devices mean it to take. The password is not kept.
    Unlocking unlock(const QByteArray &password);

    /// The key of the class that `wrapped` names in its first four bytes (little-endian) unwraps the rest. Empty when
    /// there is no such class, it is not unlocked, or the key is damaged.
    SecretBytes fileKey(const QByteArray &wrapped) const;

    /// The same, for a class that is named elsewhere.
    SecretBytes fileKey(std::uint32_t protectionClass, const QByteArray &wrapped) const;

private:
    struct ClassKey {
        std::optional<std::uint32_t> number;
        std::uint32_t wrap = 0;
        std::uint32_t type = 0;
        QByteArray wrapped;
        bool opensWithPassword() const;
    };

    KeyBag() = default;
    bool take(const QByteArray &tag, const QByteArray &value);

    bool hasUuid = false;
    QByteArray salt;
    QByteArray innerSalt; ///< of the first derivation; empty in bags that have one only
    std::uint32_t rounds = 0;
    std::uint32_t innerRounds = 0;
    std::vector<ClassKey> wrappedKeys;
    std::map<std::uint32_t, SecretBytes> keys;
};

} // namespace devicehost

#endif
