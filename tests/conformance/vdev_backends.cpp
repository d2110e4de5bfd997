#include "vdev_backends.h"

#include "devicehost/device_host.h"
#include "testing/simulated_phone.h"

#include <QDir>
#include <QFile>
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

template <class Backend>
std::unique_ptr<BackendUnderTest> make()
{
    return std::make_unique<Backend>();
}

} // namespace

const BackendKind backendKinds[] = {
    {"local", true, &make<LocalBackend>},
    {"folder", false, &make<FolderBackend>},
#ifdef PHOTOLIB_AFC
    {"afc", false, &make<UsbBackend<false>>},
    {"afc_encrypted", false, &make<UsbBackend<true>>},
#endif
};
const int backendKindCount = sizeof backendKinds / sizeof backendKinds[0];
