#ifndef DEVICEHOST_BACKUP_SECRET_BYTES_H
#define DEVICEHOST_BACKUP_SECRET_BYTES_H

#include <QByteArray>

#include <cstddef>
#include <memory>
#include <utility>

namespace devicehost
{

/// Overwrites the bytes in a way that no compiler leaves out.
void wipe(void *bytes, std::size_t size) noexcept;

/// Overwrites the bytes and empties the array. Copies that share them keep theirs: hold a secret in one place.
void wipe(QByteArray *bytes);

/// A buffer that is overwritten before its memory is given back. Zero-filled at first. Move-only.
class SecretBytes
{
public:
    SecretBytes() = default;
    explicit SecretBytes(std::size_t size) : bytes(new unsigned char[size]()), count(size) {}
    ~SecretBytes() { wipe(bytes.get(), count); }
    SecretBytes(SecretBytes &&other) noexcept : bytes(std::move(other.bytes)), count(std::exchange(other.count, 0)) {}
    SecretBytes &operator=(SecretBytes &&other) noexcept
    {
        std::swap(bytes, other.bytes);
        std::swap(count, other.count);
        return *this;
    }

    unsigned char *data() { return bytes.get(); }
    const unsigned char *data() const { return bytes.get(); }
    std::size_t size() const { return count; }
    bool isEmpty() const { return count == 0; }

    /// Forgets what lies behind `size`, which is no larger than size().
    void truncate(std::size_t size)
    {
        wipe(bytes.get() + size, count - size);
        count = size;
    }

private:
    std::unique_ptr<unsigned char[]> bytes;
    std::size_t count = 0;
};

} // namespace devicehost

#endif
