#include "bench/afc/reader.h"

#include "devicehost/device_host.h"
#include "photolib/host/vdev.h"

#include <stdexcept>

namespace bench
{
namespace
{

class HostReader final : public Reader
{
public:
    explicit HostReader(const QString &udid)
        : host(QStringLiteral("afc:") + udid), device(vDevOpen(VDevDevice, host.devicePath().toUtf8().constData()))
    {
        if (device == nullptr)
            throw std::runtime_error("the reference host cannot open the phone");
    }
    HostReader(const HostReader &) = delete;
    HostReader &operator=(const HostReader &) = delete;

    ~HostReader() override
    {
        close();
        vDevClose(device);
    }

    void open(const std::string &path) override
    {
        file = vFileOpen(device, path.c_str(), 0);
        if (file == nullptr)
            throw std::runtime_error("the reference host cannot open the file");
    }

    qint64 read(char *buffer, qint64 size) override
    {
        const int count = vFileRead(file, buffer, static_cast<int>(size));
        if (count < 0)
            throw std::runtime_error("the reference host cannot read");
        return count;
    }

    void close() override
    {
        if (file != nullptr)
            vFileClose(file);
        file = nullptr;
    }

private:
    devicehost::DeviceHost host;
    VDev *const device;
    VFile *file = nullptr;
};

} // namespace

std::unique_ptr<Reader> hostReader(const QString &udid)
{
    return std::make_unique<HostReader>(udid);
}

} // namespace bench
