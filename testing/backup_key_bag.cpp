#include "testing/backup_key_bag.h"

#include <QCryptographicHash>
#include <QtEndian>

#include <openssl/evp.h>

namespace testkit
{

namespace
{

constexpr std::uint32_t withPassword = 2;
constexpr std::uint32_t withDeviceKeyToo = 3;

void require(bool condition, const char *what)
{
    if (!condition)
        qFatal("the test backup cannot be made: %s", what);
}

const unsigned char *raw(const QByteArray &bytes)
{
    return reinterpret_cast<const unsigned char *>(bytes.constData());
}

unsigned char *raw(QByteArray *bytes)
{
    return reinterpret_cast<unsigned char *>(bytes->data());
}

QByteArray bigEndian(std::uint32_t number)
{
    QByteArray bytes(4, '\0');
    qToBigEndian(number, bytes.data());
    return bytes;
}

QByteArray entry(const char *tag, const QByteArray &value)
{
    return tag + bigEndian(static_cast<std::uint32_t>(value.size())) + value;
}

QByteArray derived(const QByteArray &password, const QByteArray &salt, std::uint32_t rounds, const EVP_MD *digest)
{
    QByteArray key(32, '\0');
    require(PKCS5_PBKDF2_HMAC(password.constData(), password.size(), raw(salt), salt.size(), static_cast<int>(rounds),
                              digest, key.size(), raw(&key)) == 1,
            "PBKDF2");
    return key;
}

QByteArray run(const EVP_CIPHER *cipher, const QByteArray &key, const unsigned char *vector, const QByteArray &content)
{
    EVP_CIPHER_CTX *const context = EVP_CIPHER_CTX_new();
    EVP_CIPHER_CTX_set_flags(context, EVP_CIPHER_CTX_FLAG_WRAP_ALLOW);
    QByteArray out(content.size() + 32, '\0');
    int count = 0;
    int last = 0;
    require(EVP_EncryptInit_ex(context, cipher, nullptr, raw(key), vector) == 1 &&
                EVP_EncryptUpdate(context, raw(&out), &count, raw(content), content.size()) == 1 &&
                EVP_EncryptFinal_ex(context, raw(&out) + count, &last) == 1,
            "encryption");
    EVP_CIPHER_CTX_free(context);
    return out.left(count + last);
}

QByteArray classKey(std::uint32_t protectionClass)
{
    return madeUpKey("class " + QByteArray::number(protectionClass));
}

} // namespace

QByteArray madeUpKey(const QByteArray &name)
{
    return QCryptographicHash::hash("key of " + name, QCryptographicHash::Sha256);
}

BackupKeyBag::BackupKeyBag(const QByteArray &password, const BackupRounds &rounds)
{
    const QByteArray salt = madeUpKey("salt").left(20);
    const QByteArray innerSalt = madeUpKey("inner salt").left(20);
    const QByteArray inner = rounds.inner == 0 ? password : derived(password, innerSalt, rounds.inner, EVP_sha256());
    const QByteArray key = derived(inner, salt, rounds.outer, EVP_sha1());
    bag = entry("VERS", bigEndian(5)) + entry("TYPE", bigEndian(1)) + entry("UUID", madeUpKey("bag").left(16)) +
          entry("HMCK", QByteArray(40, 'h')) + entry("WRAP", bigEndian(1)) + entry("SALT", salt) +
          entry("ITER", bigEndian(rounds.outer));
    if (rounds.inner != 0)
        bag += entry("DPWT", bigEndian(0)) + entry("DPIC", bigEndian(rounds.inner)) + entry("DPSL", innerSalt);
    for (std::uint32_t number = 1; number <= 11; ++number) {
        const bool stays = number == 11; // a class whose files no other computer can read
        bag += entry("UUID", classKey(number).left(16)) + entry("CLAS", bigEndian(number)) +
               entry("WRAP", bigEndian(stays ? withDeviceKeyToo : withPassword)) + entry("KTYP", bigEndian(0)) +
               entry("WPKY", run(EVP_aes_256_wrap(), stays ? madeUpKey("device") : key, nullptr, classKey(number)));
    }
}

QByteArray BackupKeyBag::wrapped(const QByteArray &key, std::uint32_t protectionClass)
{
    QByteArray number(4, '\0');
    qToLittleEndian(protectionClass, number.data());
    return number + run(EVP_aes_256_wrap(), classKey(protectionClass), nullptr, key);
}

QByteArray BackupKeyBag::encrypted(const QByteArray &key, const QByteArray &content)
{
    const QByteArray vector(16, '\0');
    return run(EVP_aes_256_cbc(), key, raw(vector), content);
}

} // namespace testkit
