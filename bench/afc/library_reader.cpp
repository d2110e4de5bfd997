#include "bench/afc/reader.h"

#include <libimobiledevice/afc.h>
#include <libimobiledevice/libimobiledevice.h>

#include <stdexcept>

namespace bench
{
namespace
{

class LibraryReader final : public Reader
{
public:
    LibraryReader()
    {
        check(idevice_new(&device, nullptr), "idevice_new");
        check(afc_client_start_service(device, &client, "bench"), "afc_client_start_service");
    }
    LibraryReader(const LibraryReader &) = delete;
    LibraryReader &operator=(const LibraryReader &) = delete;

    ~LibraryReader() override
    {
        afc_client_free(client);
        idevice_free(device);
    }

    void open(const std::string &path) override
    {
        check(afc_file_open(client, path.c_str(), AFC_FOPEN_RDONLY, &handle), "afc_file_open");
    }

    qint64 read(char *buffer, qint64 size) override
    {
        uint32_t count = 0;
        check(afc_file_read(client, handle, buffer, static_cast<uint32_t>(size), &count), "afc_file_read");
        return count;
    }

    void close() override { check(afc_file_close(client, handle), "afc_file_close"); }

private:
    static void check(int result, const char *function)
    {
        if (result != 0)
            throw std::runtime_error(std::string(function) + " answered " + std::to_string(result));
    }

    idevice_t device = nullptr;
    afc_client_t client = nullptr;
    uint64_t handle = 0;
};

} // namespace

std::unique_ptr<Reader> libraryReader()
{
    return std::make_unique<LibraryReader>();
}

} // namespace bench
