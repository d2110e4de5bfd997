// The functions of OpenSSL 1.1 use the processor's own instructions (seven times as fast as QCryptographicHash), need
// no memory and cannot fail. Those that replace them load an algorithm first, which can.
#define OPENSSL_API_COMPAT 0x10101000L

#include "exporter/sha256.h"

#include <openssl/sha.h>

namespace exporter
{

struct Sha256::State {
    SHA256_CTX context;
};

Sha256::Sha256() : state(std::make_unique<State>())
{
    SHA256_Init(&state->context);
}

Sha256::~Sha256() = default;

void Sha256::add(const char *data, qint64 size)
{
    SHA256_Update(&state->context, data, static_cast<std::size_t>(size));
}

QByteArray Sha256::result()
{
    QByteArray hash(SHA256_DIGEST_LENGTH, '\0');
    SHA256_Final(reinterpret_cast<unsigned char *>(hash.data()), &state->context);
    return hash;
}

} // namespace exporter
