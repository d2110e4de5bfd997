#include "bench/afc/reader.h"

#include <libimobiledevice/libimobiledevice.h>
#include <libimobiledevice/lockdown.h>

#include <array>
#include <cstring>
#include <stdexcept>

namespace bench
{
namespace
{

constexpr quint64 headerSize = 40;
constexpr quint64 pieceSize = 1024 * 1024;
constexpr int requestsAhead = 8;
constexpr unsigned patience = 60 * 1000; ///< milliseconds

/// The protocol's numbers are little-endian, as are the computers that this runs on.
struct Header {
    std::array<char, 8> magic{'C', 'F', 'A', '6', 'L', 'P', 'A', 'A'};
    quint64 entire = 0;
    quint64 own = 0;
    quint64 number = 0;
    quint64 operation = 0;
};
static_assert(sizeof(Header) == headerSize && Q_BYTE_ORDER == Q_LITTLE_ENDIAN);

class CeilingReader final : public Reader
{
public:
    CeilingReader()
    {
        check(idevice_new(&device, nullptr));
        lockdownd_client_t lockdown = nullptr;
        check(lockdownd_client_new_with_handshake(device, &lockdown, "bench"));
        lockdownd_service_descriptor_t service = nullptr;
        check(lockdownd_start_service(lockdown, "com.apple.afc", &service));
        check(idevice_connect(device, service->port, &connection));
        if (service->ssl_enabled != 0)
            check(idevice_connection_enable_ssl(connection));
        lockdownd_service_descriptor_free(service);
        lockdownd_client_free(lockdown);
    }
    CeilingReader(const CeilingReader &) = delete;
    CeilingReader &operator=(const CeilingReader &) = delete;

    ~CeilingReader() override
    {
        idevice_disconnect(connection);
        idevice_free(device);
    }

    void open(const std::string &path) override
    {
        std::string parameters(sizeof(quint64) + path.size() + 1, '\0');
        parameters[0] = 1; // for reading
        std::memcpy(&parameters[sizeof(quint64)], path.data(), path.size());
        send(0x0D, parameters);
        const Header header = receiveHeader();
        if (header.operation != 0x0E || header.entire != headerSize + sizeof handle)
            throw std::runtime_error("the phone does not open the file");
        receive(reinterpret_cast<char *>(&handle), sizeof handle);
        ended = false;
        for (int request = 0; request < requestsAhead; ++request)
            ask();
    }

    /// One answer; `size` is at least the piece's.
    qint64 read(char *buffer, qint64) override
    {
        const Header header = receiveHeader();
        const quint64 size = header.entire - headerSize;
        if (header.operation != 0x02 || size > pieceSize)
            throw std::runtime_error("the phone does not read");
        --outstanding;
        receive(buffer, size);
        if (size == 0)
            ended = true;
        else
            ask();
        return static_cast<qint64>(size);
    }

    void close() override
    {
        std::array<char, pieceSize> rest;
        while (outstanding > 0)
            read(rest.data(), pieceSize);
    }

private:
    static void check(int result)
    {
        if (result != 0)
            throw std::runtime_error("libimobiledevice answered " + std::to_string(result));
    }

    void ask()
    {
        if (ended)
            return;
        const std::array<quint64, 2> parameters{handle, pieceSize};
        send(0x0F, std::string(reinterpret_cast<const char *>(parameters.data()), sizeof parameters));
        ++outstanding;
    }

    void send(quint64 operation, const std::string &parameters)
    {
        Header header;
        header.entire = header.own = headerSize + parameters.size();
        header.number = ++number;
        header.operation = operation;
        const std::string message = std::string(reinterpret_cast<const char *>(&header), sizeof header) + parameters;
        uint32_t sent = 0;
        check(idevice_connection_send(connection, message.data(), static_cast<uint32_t>(message.size()), &sent));
    }

    Header receiveHeader()
    {
        Header header;
        receive(reinterpret_cast<char *>(&header), sizeof header);
        return header;
    }

    void receive(char *buffer, quint64 size)
    {
        while (size > 0) {
            uint32_t count = 0;
            check(
                idevice_connection_receive_timeout(connection, buffer, static_cast<uint32_t>(size), &count, patience));
            if (count == 0)
                throw std::runtime_error("the connection has ended");
            buffer += count;
            size -= count;
        }
    }

    idevice_t device = nullptr;
    idevice_connection_t connection = nullptr;
    quint64 handle = 0;
    quint64 number = 0;
    int outstanding = 0;
    bool ended = false;
};

} // namespace

std::unique_ptr<Reader> ceilingReader()
{
    return std::make_unique<CeilingReader>();
}

} // namespace bench
