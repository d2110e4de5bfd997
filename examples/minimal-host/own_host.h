#ifndef OWN_HOST_H
#define OWN_HOST_H

#include <photolib/host/iipod.h>

#include <QString>
#include <QTemporaryDir>

/// A device whose files lie in a folder of this computer. Of IIPod's 57 functions the library calls these four.
class FolderDevice final : public IIPod
{
public:
    explicit FolderDevice(const QString &folder) : folder(folder) {}

    /// A program with a Cancel button answers true once it was pressed; the opening then fails.
    bool shouldStop() override { return false; }

    /// Comes back to vDevOpen(), so it is whatever that understands: a path here, a serial number elsewhere.
    QString devicePath() override { return folder; }

    bool isAvailable() override;

    /// Private to this device object, and gone with it: the copied database tells a lot about its owner, and must not
    /// be mixed up with another device's. The library puts file names right behind it, hence the separator.
    QString localDataFolder() override { return copies.path() + QLatin1Char('/'); }

private:
    QString folder;
    QTemporaryDir copies;
};

#endif
