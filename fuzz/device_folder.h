#ifndef FUZZ_DEVICE_FOLDER_H
#define FUZZ_DEVICE_FOLDER_H

#include <QByteArray>
#include <QString>
#include <QTemporaryDir>

namespace fuzz
{

/// A device of the reference host: a folder in the place for temporary files, with what a run puts there. A file
/// lies beside the device that no path of a library may reach. One thread at a time.
class DeviceFolder
{
public:
    /// Ends the program when the folder cannot be made.
    DeviceFolder();

    /// The device's name, for devicehost::DeviceHost.
    QString name() const;

    /// Writes the file at `path` on the device, such as "/PhotoData/Photos.sqlite". Replaces what is there. Ends the
    /// program on failure.
    void put(const QString &path, const QByteArray &content);
    void remove(const QString &path);

    /// The content of the file beside the device.
    static QByteArray forbiddenContent();

private:
    QTemporaryDir folder;
};

} // namespace fuzz

#endif
