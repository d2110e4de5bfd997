#ifndef TESTS_CONFORMANCE_VDEV_BACKENDS_H
#define TESTS_CONFORMANCE_VDEV_BACKENDS_H

#include "photolib/host/vdev.h"

#include <QByteArray>

#include <memory>
#include <ostream>

/// A device with made-up content, behind one backend. Names are absolute, as the library writes them.
class BackendUnderTest
{
public:
    virtual ~BackendUnderTest() = default;

    virtual void addFile(const QByteArray &name, const QByteArray &content) = 0;
    virtual void addFolder(const QByteArray &name) = 0;

    /// The content of a file as it is now, read past the backend.
    virtual QByteArray contentOf(const QByteArray &name) = 0;

    /// As vDevOpen() does; to be closed with vDevClose().
    virtual VDev *open() = 0;
};

struct BackendKind {
    const char *name;
    bool writable;
    std::unique_ptr<BackendUnderTest> (*make)();
};

extern const BackendKind backendKinds[];
extern const int backendKindCount;

inline void PrintTo(const BackendKind *kind, std::ostream *out)
{
    *out << kind->name;
}

#endif
