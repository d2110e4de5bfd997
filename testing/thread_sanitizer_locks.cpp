// Only in programs for the thread sanitizer. Qt is not built for it, so that it sees neither Qt's locks nor the order
// that they bring about, and would report every access behind them. These functions stand before Qt's own, tell the
// sanitizer what the lock does, and have Qt do it. Real races are still found, as nothing is suppressed.

#include <QMutex>
#include <QSemaphore>

#include <dlfcn.h>
#include <sanitizer/tsan_interface.h>

namespace
{

template <typename Function>
Function functionOfQt(const char *name)
{
    return reinterpret_cast<Function>(dlsym(RTLD_NEXT, name));
}

} // namespace

void QMutex::lock() QT_MUTEX_LOCK_NOEXCEPT
{
    static const auto lockOfQt = functionOfQt<void (*)(QMutex *)>("_ZN6QMutex4lockEv");
    lockOfQt(this);
    __tsan_acquire(this);
}

bool QMutex::tryLock(int timeout) QT_MUTEX_LOCK_NOEXCEPT
{
    static const auto tryLockOfQt = functionOfQt<bool (*)(QMutex *, int)>("_ZN6QMutex7tryLockEi");
    const bool locked = tryLockOfQt(this, timeout);
    if (locked)
        __tsan_acquire(this);
    return locked;
}

void QMutex::unlock() noexcept
{
    static const auto unlockOfQt = functionOfQt<void (*)(QMutex *)>("_ZN6QMutex6unlockEv");
    __tsan_release(this);
    unlockOfQt(this);
}

void QSemaphore::acquire(int count)
{
    static const auto acquireOfQt = functionOfQt<void (*)(QSemaphore *, int)>("_ZN10QSemaphore7acquireEi");
    acquireOfQt(this, count);
    __tsan_acquire(this);
}

void QSemaphore::release(int count)
{
    static const auto releaseOfQt = functionOfQt<void (*)(QSemaphore *, int)>("_ZN10QSemaphore7releaseEi");
    __tsan_release(this);
    releaseOfQt(this, count);
}
