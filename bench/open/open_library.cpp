// open_library DEVICE: opens a library once through devicehost and prints what it cost: seconds of processor time and
// of the clock for each phase, and the memory of the process. "members" is that part of "tables" which says what is in
// which album.

#include "devicehost/device_host.h"
#include "devicehost/log_sink.h"
#include "photolib/photolib.h"

#include <QString>

#include <time.h>

#include <cstdio>
#include <cstring>

namespace
{

double now(clockid_t clock)
{
    timespec time = {};
    clock_gettime(clock, &time);
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) * 1e-9;
}

struct Moment {
    double cpu = now(CLOCK_PROCESS_CPUTIME_ID);
    double wall = now(CLOCK_MONOTONIC);
};

/// Bytes of this process: "VmHWM:" at most so far, "VmRSS:" now.
long long memory(const char *name)
{
    std::FILE *const status = std::fopen("/proc/self/status", "re");
    if (status == nullptr)
        return -1;
    char line[256];
    long long kilobytes = -1;
    while (std::fgets(line, sizeof line, status) != nullptr) {
        if (std::strncmp(line, name, std::strlen(name)) == 0)
            kilobytes = std::strtoll(line + std::strlen(name), nullptr, 10);
    }
    std::fclose(status);
    return kilobytes * 1024;
}

} // namespace

int main(int argc, char **argv)
{
    if (argc != 2) {
        std::fputs("usage: open_library DEVICE\n", stderr);
        return 2;
    }
    devicehost::DeviceHost host(QStringLiteral("folder:") + QString::fromLocal8Bit(argv[1]));
    Moment copied;
    Moment membersBegun;
    Moment membersRead;
    Moment read;
    devicehost::setLogListener([&](const devicehost::LogLine &line) {
        if (line.message == QLatin1String("Parser_Ath_camera_DB")) // the copy is there, and the schema is read
            copied = Moment();
        else if (line.message.startsWith(QLatin1String("Got asset table name")))
            membersBegun = Moment();
        else if (line.message == QLatin1String("Parser_Ath_camera_DB success"))
            membersRead = Moment();
        else if (line.message == QLatin1String("load ATHCameraDB end"))
            read = Moment();
    });
    photo_manager_int *manager = getPhotolib(&host);
    const Moment start;
    const bool opened = manager != nullptr && manager->openLibrary();
    const Moment end;
    if (!opened) {
        std::fprintf(stderr, "open_library: %s cannot be opened: %s\n", argv[1],
                     host.failure().toLocal8Bit().constData());
        return 1;
    }
    const long long peak = memory("VmHWM:");
    const int photos = manager->getPhotoCount();
    std::printf(
        "{\"photos\": %d, \"copy\": %.6f, \"tables\": %.6f, \"members\": %.6f, \"model\": %.6f, \"wallCopy\": %.6f, "
        "\"wallTables\": %.6f, \"wallModel\": %.6f, \"peak\": %lld, \"resident\": %lld}\n",
        photos, copied.cpu - start.cpu, read.cpu - copied.cpu, membersRead.cpu - membersBegun.cpu, end.cpu - read.cpu,
        copied.wall - start.wall, read.wall - copied.wall, end.wall - read.wall, peak, memory("VmRSS:"));
    devicehost::setLogListener({});
    releasePhotolib(&manager);
    return 0;
}
