// make_library FOLDER ASSETS [FILES BYTES]: writes a device folder with a made-up library.

#include "bench/library/recipe.h"

#include <cstdio>
#include <cstdlib>
#include <exception>

int main(int argc, char **argv)
{
    if (argc != 3 && argc != 5) {
        std::fputs("usage: make_library FOLDER ASSETS [FILES BYTES]\n", stderr);
        return 2;
    }
    try {
        const bool hasFiles = argc == 5;
        bench::writeDevice(QString::fromLocal8Bit(argv[1]), std::atoi(argv[2]), hasFiles ? std::atoi(argv[3]) : 0,
                           hasFiles ? std::atoll(argv[4]) : 0);
    } catch (const std::exception &error) {
        std::fprintf(stderr, "make_library: %s\n", error.what());
        return 1;
    }
    return 0;
}
