// A program that is its own host: own_host.cpp is all that it takes.
// Usage: with-own-host FOLDER     FOLDER: the one that holds a device's DCIM and PhotoData folders

#include "own_host.h"
#include "show_library.h"

#include <QFile>

#include <cstdio>

int main(int argc, char **argv)
{
    if (argc != 2) {
        std::fprintf(stderr, "usage: %s FOLDER\n", argv[0]);
        return 2;
    }
    FolderDevice device(QFile::decodeName(argv[1]));
    return showLibrary(&device) ? 0 : 1;
}
