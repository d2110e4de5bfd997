// A host in a few lines: devicehost brings the device object and every function that the library asks for.
// Usage: with-devicehost DEVICE

#include "show_library.h"

#include <devicehost/device_host.h>
#include <devicehost/log_sink.h>
#include <devicehost/resolve_device.h>

#include <QString>

#include <cstdio>

int main(int argc, char **argv)
{
    if (argc != 2) {
        std::fprintf(stderr, "usage: %s DEVICE\n", argv[0]);
        return 2;
    }

    // Finds out what the user means: the folder of a mounted phone, for example.
    const devicehost::ResolvedDevice found = devicehost::resolveDevice(QString::fromUtf8(argv[1]));
    if (found.status != devicehost::DeviceStatus::Found) {
        std::fprintf(stderr, "%s\n", qUtf8Printable(found.message));
        return 1;
    }

    // The library's log. Level 2 is an error; optional files that a device lacks are among them.
    devicehost::setLogListener(
        [](const devicehost::LogLine &line) { std::fprintf(stderr, "log: %s\n", qUtf8Printable(line.message)); });

    devicehost::DeviceHost device(found.devicePath);
    const bool good = showLibrary(&device);
    // What the library cannot know: which file of the device made trouble, and what helps.
    if (!device.failure().isEmpty())
        std::fprintf(stderr, "%s\n", qUtf8Printable(device.failure()));
    return good ? 0 : 1;
}
