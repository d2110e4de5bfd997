#ifndef DEVICEHOST_RESOLVE_DEVICE_H
#define DEVICEHOST_RESOLVE_DEVICE_H

/// @file
/// Finds the device that a user means.

#include <QString>
#include <QStringList>

namespace devicehost
{

/// What became of a DEVICE argument.
enum class DeviceStatus {
    Malformed,   ///< the argument names nothing: it is empty, or a scheme without a path
    Found,       ///< devicePath is usable
    Unreachable, ///< there is no such device, or it cannot be entered
    NoLibrary,   ///< the device is there, but holds no photo library
};

/// The answer of resolveDevice().
struct ResolvedDevice {
    DeviceStatus status = DeviceStatus::Unreachable; ///< decides which of the others is filled
    QString devicePath;  ///< name with a scheme for DeviceHost, such as "folder:/media/phone"; empty unless Found
    QString message;     ///< what is wrong and what to do next, one line; empty when Found
    QStringList choices; ///< for a folder of several devices: one line for people each, the name to give and, in
                         ///< brackets, what it is
};

/// Finds out what `argument` names: a name with a scheme ("folder:PATH", "backup:PATH", "afc:UDID"), or a bare path
/// whose kind is found by looking (a folder that holds PhotoData/Photos.sqlite; a backup, which holds Manifest.db; a
/// folder of backups), or "usb" for the only device on USB, or on the network when there is none on USB. Relative paths
/// become absolute. A path that exists is a path, also when it has a colon in it, but for the schemes that there are.
/// `argument` was UTF-8; what was not stands in it as U+FFFD.
///
/// Of a device on USB or on the network it is only made sure that it is connected.
///
/// Looks at the file system and at the devices; changes nothing. May run on any thread.
ResolvedDevice resolveDevice(const QString &argument);

} // namespace devicehost

#endif
