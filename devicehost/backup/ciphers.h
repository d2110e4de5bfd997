#ifndef DEVICEHOST_BACKUP_CIPHERS_H
#define DEVICEHOST_BACKUP_CIPHERS_H

#include "devicehost/backup/secret_bytes.h"

#include <QByteArray>

#include <array>
#include <cstdint>
#include <memory>

struct evp_cipher_ctx_st;

namespace devicehost
{

constexpr std::size_t keyBytes = 32;        ///< of AES-256
constexpr std::size_t wrappedKeyBytes = 40; ///< such a key, wrapped (RFC 3394)
constexpr std::size_t blockBytes = 16;      ///< of AES

enum class Digest { Sha1, Sha256 };

/// PBKDF2 (RFC 8018) with HMAC: a key of keyBytes. Empty on failure. `rounds` is what it costs: the caller bounds it.
SecretBytes derivedKey(Digest digest, const unsigned char *password, std::size_t size, const QByteArray &salt,
                       std::uint32_t rounds);

/// The key inside `wrapped`. Empty when `wrapped` is not keyBytes long inside, or was not wrapped with `wrappingKey`:
/// the format has a check of its own.
SecretBytes unwrappedKey(const SecretBytes &wrappingKey, const QByteArray &wrapped);

using CipherBlock = std::array<unsigned char, blockBytes>;

/// AES-256 in CBC mode. One thread at a time.
class CbcDecryptor
{
public:
    /// `key` has keyBytes and is not needed afterwards.
    explicit CbcDecryptor(const SecretBytes &key);
    ~CbcDecryptor();
    CbcDecryptor(CbcDecryptor &&) noexcept = default;

    /// Decrypts `size` bytes, a multiple of blockBytes, in place. `before` is the block of cipher text in front of
    /// them, zeros at the very beginning. False on failure.
    bool decrypt(const CipherBlock &before, unsigned char *bytes, std::size_t size);

private:
    struct Free {
        void operator()(evp_cipher_ctx_st *context) const;
    };
    std::unique_ptr<evp_cipher_ctx_st, Free> context; ///< null when it could not be made
};

} // namespace devicehost

#endif
