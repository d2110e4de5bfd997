// The virtual-device file library of test programs.

#include "photolib/host/vdev.h"
#include "testing/host_registry.h"
#include "testing/host_session.h"

#include <gtest/gtest.h>

using testkit::HostSession;

namespace
{

/// The session of a handle, or null after reporting a handle that no living device has given out.
HostSession *ownerOf(const void *handle, const char *function)
{
    HostSession *owner = testkit::ownerOf(handle);
    if (owner == nullptr)
        ADD_FAILURE() << "misuse of the host: " << function << (handle == nullptr ? ": null" : ": unknown")
                      << " handle";
    return owner;
}

bool isText(const char *path, const char *function)
{
    if (path == nullptr)
        ADD_FAILURE() << "misuse of the host: " << function << ": null path";
    return path != nullptr;
}

} // namespace

VDev *vDevOpen(VDevType type, const char *path)
{
    if (!isText(path, "vDevOpen"))
        return nullptr;
    HostSession *session = type == VDevDevice ? testkit::sessionNamed(path) : nullptr;
    if (session != nullptr)
        testkit::useSession(session);
    else
        session = testkit::currentSession();
    if (session == nullptr) {
        ADD_FAILURE() << "vDevOpen " << type << " \"" << path << "\": no FakeDevice is alive";
        return nullptr;
    }
    return session->openDevice(type, path);
}

void vDevClose(VDev *device)
{
    HostSession *session = device == nullptr ? testkit::currentSession() : ownerOf(device, "vDevClose");
    if (session != nullptr)
        session->closeDevice(device);
}

int vDevCreateDir(VDev *device, const char *path)
{
    HostSession *session = isText(path, "vDevCreateDir") ? ownerOf(device, "vDevCreateDir") : nullptr;
    return session != nullptr ? session->createFolder(device, path) : -1;
}

VFile *vFileOpen(VDev *device, const char *path, int mode)
{
    HostSession *session = isText(path, "vFileOpen") ? ownerOf(device, "vFileOpen") : nullptr;
    return session != nullptr ? session->openFile(device, path, mode) : nullptr;
}

void vFileClose(VFile *file)
{
    if (HostSession *session = ownerOf(file, "vFileClose"))
        session->closeFile(file);
}

int vFileRead(VFile *file, void *buffer, int size)
{
    HostSession *session = ownerOf(file, "vFileRead");
    return session != nullptr ? session->read(file, buffer, size) : -1;
}

int vFileWrite(VFile *file, const void *buffer, int size)
{
    HostSession *session = ownerOf(file, "vFileWrite");
    return session != nullptr ? session->write(file, buffer, size) : -1;
}

qint64 vFileSeek(VFile *file, qint64 offset, int origin)
{
    HostSession *session = ownerOf(file, "vFileSeek");
    return session != nullptr ? session->seek(file, offset, origin) : -1;
}

qint64 vFileTell(VFile *file)
{
    HostSession *session = ownerOf(file, "vFileTell");
    return session != nullptr ? session->tell(file) : -1;
}
