#ifndef SHOW_LIBRARY_H
#define SHOW_LIBRARY_H

class IIPod;

/// Opens the library of `device`, prints its groups, makes an album with a photo in it and prints that.
/// Says on standard error what fails. Returns whether all went well.
bool showLibrary(IIPod *device);

#endif
