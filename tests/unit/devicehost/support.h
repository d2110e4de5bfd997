#ifndef TESTS_UNIT_DEVICEHOST_SUPPORT_H
#define TESTS_UNIT_DEVICEHOST_SUPPORT_H

#include "photolib/host/vdev.h"

#include <QByteArray>
#include <QString>

#include <functional>
#include <memory>

struct DeviceCloser {
    void operator()(VDev *device) const { vDevClose(device); }
};
struct FileCloser {
    void operator()(VFile *file) const { vFileClose(file); }
};
using Device = std::unique_ptr<VDev, DeviceCloser>;
using File = std::unique_ptr<VFile, FileCloser>;

/// Writes a file and the folders above it.
void writeFile(const QString &path, const QByteArray &content);

/// The whole of a file of this computer; null when it cannot be read.
QByteArray contentOf(const QString &path);

/// What `name` on the device named `device` holds; null when it cannot be opened.
QByteArray readFrom(VDev *device, const QByteArray &name);

/// Permission bits.
int modeOf(const QString &path);

/// What `work` returns in a child process that has no privileges.
QString inUnprivilegedChild(const std::function<QString()> &work);

#endif
