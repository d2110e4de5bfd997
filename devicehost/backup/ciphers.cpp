#include "devicehost/backup/ciphers.h"

#include <openssl/crypto.h>
#include <openssl/evp.h>

#include <algorithm>
#include <climits>

namespace devicehost
{

void wipe(void *bytes, std::size_t size) noexcept
{
    if (size > 0)
        OPENSSL_cleanse(bytes, size);
}

void wipe(QByteArray *bytes)
{
    if (!bytes->isEmpty()) // else data() would allocate
        wipe(bytes->data(), static_cast<std::size_t>(bytes->size()));
    bytes->clear();
}

SecretBytes derivedKey(Digest digest, const unsigned char *password, std::size_t size, const QByteArray &salt,
                       std::uint32_t rounds)
{
    if (size > INT_MAX || rounds == 0 || rounds > INT_MAX)
        return {};
    SecretBytes key(keyBytes);
    const bool derived = PKCS5_PBKDF2_HMAC(reinterpret_cast<const char *>(password), static_cast<int>(size),
                                           reinterpret_cast<const unsigned char *>(salt.constData()), salt.size(),
                                           static_cast<int>(rounds), digest == Digest::Sha1 ? EVP_sha1() : EVP_sha256(),
                                           static_cast<int>(keyBytes), key.data()) == 1;
    return derived ? std::move(key) : SecretBytes();
}

void CbcDecryptor::Free::operator()(evp_cipher_ctx_st *context) const
{
    EVP_CIPHER_CTX_free(context); // wipes the key schedule
}

SecretBytes unwrappedKey(const SecretBytes &wrappingKey, const QByteArray &wrapped)
{
    if (wrappingKey.size() != keyBytes || static_cast<std::size_t>(wrapped.size()) != wrappedKeyBytes)
        return {};
    EVP_CIPHER_CTX *const context = EVP_CIPHER_CTX_new();
    SecretBytes key(wrappedKeyBytes); // the cipher may use more room than the key takes
    int count = 0;
    bool done = false;
    if (context != nullptr) {
        EVP_CIPHER_CTX_set_flags(context, EVP_CIPHER_CTX_FLAG_WRAP_ALLOW);
        done = EVP_DecryptInit_ex(context, EVP_aes_256_wrap(), nullptr, wrappingKey.data(), nullptr) == 1 &&
               EVP_DecryptUpdate(context, key.data(), &count,
                                 reinterpret_cast<const unsigned char *>(wrapped.constData()), wrapped.size()) == 1 &&
               count == static_cast<int>(keyBytes);
    }
    EVP_CIPHER_CTX_free(context);
    if (!done)
        return {};
    key.truncate(keyBytes);
    return key;
}

CbcDecryptor::CbcDecryptor(const SecretBytes &key) : context(EVP_CIPHER_CTX_new())
{
    const bool ready = context != nullptr && key.size() == keyBytes &&
                       EVP_DecryptInit_ex(context.get(), EVP_aes_256_cbc(), nullptr, key.data(), nullptr) == 1 &&
                       EVP_CIPHER_CTX_set_padding(context.get(), 0) == 1;
    if (!ready)
        context.reset();
}

CbcDecryptor::~CbcDecryptor() = default;

bool CbcDecryptor::decrypt(const CipherBlock &before, unsigned char *bytes, std::size_t size)
{
    constexpr std::size_t mostAtOnce = 1 << 24; // a multiple of the block that an int holds
    if (context == nullptr || size % blockBytes != 0 ||
        EVP_DecryptInit_ex(context.get(), nullptr, nullptr, nullptr, before.data()) != 1)
        return false;
    while (size > 0) {
        const std::size_t part = std::min(size, mostAtOnce);
        int count = 0;
        if (EVP_DecryptUpdate(context.get(), bytes, &count, bytes, static_cast<int>(part)) != 1 ||
            static_cast<std::size_t>(count) != part)
            return false;
        bytes += part;
        size -= part;
    }
    return true;
}

} // namespace devicehost
