#include "devicehost/backup/key_bag.h"

#include "devicehost/backup/ciphers.h"

#include <QtEndian>

#include <algorithm>

namespace devicehost
{

namespace
{

constexpr int tagBytes = 4;
constexpr int lengthBytes = 4;
constexpr int classBytes = 4;

constexpr std::uint32_t wrappedWithDeviceKey = 1; ///< which never leaves the device
constexpr std::uint32_t wrappedWithPassword = 2;
constexpr std::uint32_t symmetricKey = 0;

/// Those of devices take less than 2 KiB.
constexpr int largestBag = 1 << 16;

/// Devices have about a dozen.
constexpr std::size_t mostClasses = 64;

std::optional<std::uint32_t> number(const QByteArray &value)
{
    if (value.size() != 4)
        return std::nullopt;
    return qFromBigEndian<std::uint32_t>(value.constData());
}

bool setNumber(const QByteArray &value, std::uint32_t *target)
{
    const auto found = number(value);
    *target = found.value_or(0);
    return found.has_value();
}

} // namespace

bool KeyBag::ClassKey::opensWithPassword() const
{
    return number && (wrap & wrappedWithPassword) != 0 && (wrap & wrappedWithDeviceKey) == 0 && type == symmetricKey &&
           static_cast<std::size_t>(wrapped.size()) == wrappedKeyBytes;
}

std::optional<KeyBag> KeyBag::parse(const QByteArray &bytes)
{
    KeyBag bag;
    if (bytes.size() > largestBag)
        return std::nullopt;
    int at = 0;
    while (at < bytes.size()) {
        if (bytes.size() - at < tagBytes + lengthBytes)
            return std::nullopt;
        const QByteArray tag = bytes.mid(at, tagBytes);
        const auto length = qFromBigEndian<std::uint32_t>(bytes.constData() + at + tagBytes);
        at += tagBytes + lengthBytes;
        if (length > static_cast<std::uint32_t>(bytes.size() - at))
            return std::nullopt;
        if (!bag.take(tag, bytes.mid(at, static_cast<int>(length))))
            return std::nullopt;
        at += static_cast<int>(length);
    }
    const bool usable = std::any_of(bag.wrappedKeys.begin(), bag.wrappedKeys.end(),
                                    [](const ClassKey &key) { return key.opensWithPassword(); });
    if (!usable || bag.salt.isEmpty() || bag.rounds == 0 || bag.innerSalt.isEmpty() != (bag.innerRounds == 0))
        return std::nullopt;
    return bag;
}

/// The first UUID is the bag's own; from the next one on each begins a class.
bool KeyBag::take(const QByteArray &tag, const QByteArray &value)
{
    if (tag == "SALT")
        salt = value;
    else if (tag == "ITER")
        return setNumber(value, &rounds);
    else if (tag == "DPSL")
        innerSalt = value;
    else if (tag == "DPIC")
        return setNumber(value, &innerRounds);
    else if (tag == "UUID" && hasUuid)
        wrappedKeys.emplace_back();
    else if (tag == "UUID")
        hasUuid = true;
    else if (wrappedKeys.empty())
        return true; // of the bag as a whole: its version, its kind, checks
    else if (tag == "CLAS")
        wrappedKeys.back().number = number(value);
    else if (tag == "WRAP")
        return setNumber(value, &wrappedKeys.back().wrap);
    else if (tag == "KTYP")
        return setNumber(value, &wrappedKeys.back().type);
    else if (tag == "WPKY")
        wrappedKeys.back().wrapped = value;
    return wrappedKeys.size() <= mostClasses;
}

KeyBag::Unlocking KeyBag::unlock(const QByteArray &password)
{
    if (allRounds() > mostDerivationRounds)
        return Unlocking::TooManyRounds;
    const auto *const text = reinterpret_cast<const unsigned char *>(password.constData());
    const auto length = static_cast<std::size_t>(password.size());
    SecretBytes key;
    if (innerRounds == 0) {
        key = derivedKey(Digest::Sha1, text, length, salt, rounds);
    } else {
        const SecretBytes inner = derivedKey(Digest::Sha256, text, length, innerSalt, innerRounds);
        if (!inner.isEmpty())
            key = derivedKey(Digest::Sha1, inner.data(), inner.size(), salt, rounds);
    }
    if (key.isEmpty())
        return Unlocking::Failed;
    for (const ClassKey &wrapped : wrappedKeys) {
        if (!wrapped.opensWithPassword())
            continue;
        SecretBytes opened = unwrappedKey(key, wrapped.wrapped);
        if (!opened.isEmpty())
            keys[*wrapped.number] = std::move(opened);
    }
    // A single damaged key may be among sound ones; a wrong password opens none.
    return keys.empty() ? Unlocking::WrongPassword : Unlocking::Unlocked;
}

SecretBytes KeyBag::fileKey(const QByteArray &wrapped) const
{
    if (wrapped.size() < classBytes)
        return {};
    return fileKey(qFromLittleEndian<std::uint32_t>(wrapped.constData()), wrapped);
}

SecretBytes KeyBag::fileKey(std::uint32_t protectionClass, const QByteArray &wrapped) const
{
    const auto key = keys.find(protectionClass);
    return key == keys.end() ? SecretBytes() : unwrappedKey(key->second, wrapped.mid(classBytes));
}

} // namespace devicehost
