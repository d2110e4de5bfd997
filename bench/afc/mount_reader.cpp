#include "bench/afc/reader.h"

#include <QTemporaryDir>

#include <array>
#include <cerrno>
#include <csignal>
#include <cstring>
#include <stdexcept>

#include <fcntl.h>
#include <spawn.h>
#include <sys/mount.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <time.h>
#include <unistd.h>

namespace bench
{
namespace
{

pid_t spawn(std::array<std::string, 4> words)
{
    std::array<char *, 5> arguments{words[0].data(), words[1].data(), words[2].data(),
                                    words[3].empty() ? nullptr : words[3].data(), nullptr};
    pid_t id = 0;
    const int error = posix_spawnp(&id, arguments[0], nullptr, nullptr, arguments.data(), environ);
    if (error != 0)
        throw std::runtime_error(words[0] + " does not start: " + std::strerror(error));
    return id;
}

class MountReader final : public Reader
{
public:
    MountReader()
    {
        if (::access("/dev/fuse", R_OK | W_OK) != 0)
            throw std::runtime_error("/dev/fuse cannot be used here");
        struct stat before {
        };
        ::stat(folder().c_str(), &before);
        process = spawn({"ifuse", "-f", folder(), ""});
        const int attempts = 500;
        for (int attempt = 0; attempt < attempts; ++attempt) {
            struct stat now {
            };
            if (::stat(folder().c_str(), &now) == 0 && now.st_dev != before.st_dev)
                return;
            if (::waitpid(process, nullptr, WNOHANG) == process) {
                process = 0;
                throw std::runtime_error("ifuse ended without mounting");
            }
            const timespec pause{0, 20 * 1000 * 1000};
            ::nanosleep(&pause, nullptr);
        }
        end();
        throw std::runtime_error("ifuse mounts nothing");
    }
    MountReader(const MountReader &) = delete;
    MountReader &operator=(const MountReader &) = delete;

    ~MountReader() override
    {
        close();
        end();
    }

    void open(const std::string &path) override
    {
        descriptor = ::open((folder() + path).c_str(), O_RDONLY | O_CLOEXEC);
        if (descriptor < 0)
            throw std::runtime_error(std::string("open in the mount: ") + std::strerror(errno));
    }

    qint64 read(char *buffer, qint64 size) override
    {
        const ssize_t count = ::read(descriptor, buffer, static_cast<size_t>(size));
        if (count < 0)
            throw std::runtime_error(std::string("read in the mount: ") + std::strerror(errno));
        return count;
    }

    void close() override
    {
        if (descriptor >= 0)
            ::close(descriptor);
        descriptor = -1;
    }

    pid_t helper() const override { return process; }

private:
    std::string folder() const { return mountPoint.path().toStdString(); }

    void end()
    {
        const pid_t unmounting = spawn({"fusermount", "-u", folder(), ""});
        ::waitpid(unmounting, nullptr, 0);
        ::kill(process, SIGTERM);
        ::waitpid(process, nullptr, 0);
    }

    QTemporaryDir mountPoint;
    pid_t process = 0;
    int descriptor = -1;
};

} // namespace

std::unique_ptr<Reader> mountReader()
{
    return std::make_unique<MountReader>();
}

} // namespace bench
