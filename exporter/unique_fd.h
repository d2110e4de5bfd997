#ifndef EXPORTER_UNIQUE_FD_H
#define EXPORTER_UNIQUE_FD_H

#include <unistd.h>

#include <utility>

namespace exporter
{

/// Owns a file descriptor.
class UniqueFd
{
public:
    UniqueFd() = default;
    explicit UniqueFd(int descriptor) : fd(descriptor) {}
    UniqueFd(UniqueFd &&other) noexcept : fd(std::exchange(other.fd, -1)) {}
    UniqueFd &operator=(UniqueFd &&other) noexcept
    {
        std::swap(fd, other.fd);
        return *this;
    }
    ~UniqueFd() { reset(); }

    int get() const { return fd; }
    explicit operator bool() const { return fd >= 0; }

    /// Closes now. What close() answers; 0 when nothing was open.
    int reset() { return fd < 0 ? 0 : ::close(std::exchange(fd, -1)); }

    /// Gives the descriptor up without closing it.
    int release() { return std::exchange(fd, -1); }

private:
    int fd = -1;
};

} // namespace exporter

#endif
