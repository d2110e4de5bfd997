#include "vdev_backends.h"

#include "devicehost/device_host.h"
#include "testing/backup_builder.h"
#include "testing/simulated_phone.h"

#include <QDir>
#include <QFile>
#include <QHash>
#include <QTemporaryDir>

namespace
{

/// The content lies in a folder of this computer.
class FolderContent : public BackendUnderTest
{
public:
    void addFile(const QByteArray &name, const QByteArray &content) override
    {
        const QString path = hostPath(name);
        QDir().mkpath(path.left(path.lastIndexOf(QLatin1Char('/'))));
        QFile file(path);
        if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
            qFatal("%s: %s", qPrintable(path), qPrintable(file.errorString()));
    }

    void addFolder(const QByteArray &name) override { QDir().mkpath(hostPath(name)); }

    QByteArray contentOf(const QByteArray &name) override
    {
        QFile file(hostPath(name));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

protected:
    QByteArray root() const { return folder.path().toUtf8(); }

private:
    QString hostPath(const QByteArray &name) const { return folder.path() + QString::fromUtf8(name); }

    QTemporaryDir folder;
};

class LocalBackend final : public FolderContent
{
    VDev *open() override { return vDevOpen(VDevLocal, root().constData()); }
};

class FolderBackend final : public FolderContent
{
    VDev *open() override { return vDevOpen(VDevDevice, ("folder:" + root()).constData()); }
};

#ifdef PHOTOLIB_AFC
/// The folder is the media root of a phone on USB, announced by a host, as the library's devices are: it keeps the
/// connections.
template <bool encrypted>
class UsbBackend final : public FolderContent
{
public:
    UsbBackend() : phone(QString::fromUtf8(root()), options()), host(QString::fromLatin1(name())) { phone.useHere(); }

    VDev *open() override { return vDevOpen(VDevDevice, name().constData()); }

private:
    static QByteArray name() { return "afc:" + testkit::SimulatedPhone::defaultUdid(); }

    static testkit::SimulatedPhoneOptions options()
    {
        testkit::SimulatedPhoneOptions made;
        made.tls = encrypted;
        return made;
    }

    testkit::SimulatedPhone phone;
    devicehost::DeviceHost host;
};
#endif

/// The content lies in a computer backup.
class BackupContent : public BackendUnderTest
{
public:
    explicit BackupContent(const testkit::BackupOptions &options) : builder(folder.path(), options) {}

    void addFile(const QByteArray &name, const QByteArray &content) override
    {
        builder.addFile(name, content);
        isWritten = false;
    }

    void addFolder(const QByteArray &name) override
    {
        builder.addFolder(name);
        isWritten = false;
    }

    VDev *open() override
    {
        if (!isWritten)
            builder.write();
        isWritten = true;
        return vDevOpen(VDevDevice, name().toUtf8().constData());
    }

protected:
    QString name() const { return QStringLiteral("backup:") + folder.path(); }

    QByteArray stored(const QByteArray &path) const
    {
        QFile file(folder.filePath(testkit::BackupBuilder::storedName(path)));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

private:
    QTemporaryDir folder;
    testkit::BackupBuilder builder;
    bool isWritten = false;
};

class BackupBackend final : public BackupContent
{
public:
    BackupBackend() : BackupContent({}) {}

    QByteArray contentOf(const QByteArray &path) override { return stored(path); }
};

constexpr const char *password = "correct horse";

testkit::BackupOptions encrypted()
{
    testkit::BackupOptions options;
    options.password = password;
    return options;
}

/// A host has to be there: it keeps the keys. The first opening after a change is one with a new host.
class EncryptedBackupBackend final : public BackupContent
{
public:
    EncryptedBackupBackend() : BackupContent(encrypted()) {}

    void addFile(const QByteArray &path, const QByteArray &content) override
    {
        contents.insert(path, {content, testkit::BackupKeyBag::encrypted(testkit::madeUpKey(path), content)});
        host.reset();
        BackupContent::addFile(path, content);
    }

    VDev *open() override
    {
        vDevClose(BackupContent::open()); // writes what was added
        if (host == nullptr) {
            host = std::make_unique<devicehost::DeviceHost>(name());
            if (host->unlock(password).status != devicehost::Unlocking::Unlocked)
                return nullptr;
        }
        return BackupContent::open();
    }

    QByteArray contentOf(const QByteArray &path) override
    {
        const Content &known = contents[path];
        return stored(path) == known.stored ? known.plain : stored(path);
    }

private:
    struct Content {
        QByteArray plain;
        QByteArray stored;
    };

    std::unique_ptr<devicehost::DeviceHost> host;
    QHash<QByteArray, Content> contents;
};

template <class Backend>
std::unique_ptr<BackendUnderTest> make()
{
    return std::make_unique<Backend>();
}

} // namespace

const BackendKind backendKinds[] = {
    {"local", true, &make<LocalBackend>},     {"folder", false, &make<FolderBackend>},
    {"backup", false, &make<BackupBackend>},  {"encryptedBackup", false, &make<EncryptedBackupBackend>},
#ifdef PHOTOLIB_AFC
    {"afc", false, &make<UsbBackend<false>>}, {"afc_encrypted", false, &make<UsbBackend<true>>},
#endif
};
const int backendKindCount = sizeof backendKinds / sizeof backendKinds[0];
