#ifndef EXPORTER_SHA256_H
#define EXPORTER_SHA256_H

#include <QByteArray>

#include <memory>

namespace exporter
{

/// The SHA-256 of bytes that come piece by piece. One thread at a time.
class Sha256
{
public:
    Sha256();
    ~Sha256();

    /// `size` bytes, 0 or more.
    void add(const char *data, qint64 size);

    /// The 32 bytes of the hash. Nothing may be added after it.
    QByteArray result();

private:
    struct State;
    std::unique_ptr<State> state;
};

} // namespace exporter

#endif
