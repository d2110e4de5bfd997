#ifndef PHOTOLIB_HOST_HANDLES_H
#define PHOTOLIB_HOST_HANDLES_H

#include "photolib/host/vdev.h"

#include <utility>

namespace photolib
{

/// Owns one handle of the host and gives it back with `close`. Move-only; a null handle is not closed.
template <typename Handle, void (*close)(Handle *)>
class HandleGuard
{
public:
    HandleGuard() = default;
    explicit HandleGuard(Handle *handle) : handle(handle) {}
    HandleGuard(HandleGuard &&other) noexcept : handle(other.release()) {}
    HandleGuard &operator=(HandleGuard &&other) noexcept
    {
        if (this != &other) {
            reset();
            handle = other.release();
        }
        return *this;
    }
    HandleGuard(const HandleGuard &) = delete;
    HandleGuard &operator=(const HandleGuard &) = delete;
    ~HandleGuard() { reset(); }

    Handle *get() const { return handle; }
    explicit operator bool() const { return handle != nullptr; }

    /// Closes the handle now, where the order of closing matters.
    void reset()
    {
        if (handle)
            close(release());
    }

    /// Gives the handle up without closing it.
    Handle *release() { return std::exchange(handle, nullptr); }

private:
    Handle *handle = nullptr;
};

using DeviceHandle = HandleGuard<VDev, vDevClose>;
using FileHandle = HandleGuard<VFile, vFileClose>;

/// vFileOpen()'s modes and vFileSeek()'s origins.
constexpr int openForReading = 0;
constexpr int openForWriting = 1;
constexpr int fromStart = 0;
constexpr int fromEnd = 2;

} // namespace photolib

#endif
