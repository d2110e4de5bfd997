// make_library FOLDER ASSETS [--synced] [--one-burst] [--own-places] [--one-album] [--small-albums]
// [--files COUNT BYTES]: writes a device folder with a made-up library.

#include "bench/library/recipe.h"

#include <cstdio>
#include <cstdlib>
#include <exception>
#include <string>

int main(int argc, char **argv)
{
    bench::Recipe recipe;
    bool understood = argc >= 3;
    if (understood)
        recipe.assets = std::atoi(argv[2]);
    for (int i = 3; i < argc; ++i) {
        const std::string option = argv[i];
        if (option == "--synced") {
            recipe.synced = true;
        } else if (option == "--one-burst") {
            recipe.oneBurst = true;
        } else if (option == "--own-places") {
            recipe.ownPlaces = true;
        } else if (option == "--one-album") {
            recipe.albums = bench::Albums::OneOfAll;
        } else if (option == "--small-albums") {
            recipe.albums = bench::Albums::Small;
        } else if (option == "--files" && i + 2 < argc) {
            recipe.files = std::atoi(argv[++i]);
            recipe.fileBytes = std::atoll(argv[++i]);
        } else {
            understood = false;
        }
    }
    if (!understood) {
        std::fputs("usage: make_library FOLDER ASSETS [--synced] [--one-burst] [--own-places] [--one-album] "
                   "[--small-albums] [--files COUNT BYTES]\n",
                   stderr);
        return 2;
    }
    try {
        bench::writeDevice(QString::fromLocal8Bit(argv[1]), recipe);
    } catch (const std::exception &error) {
        std::fprintf(stderr, "make_library: %s\n", error.what());
        return 1;
    }
    return 0;
}
