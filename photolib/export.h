#ifndef PHOTOLIB_EXPORT_H
#define PHOTOLIB_EXPORT_H

/// @file
/// Marks of the symbols that the library and its hosts give each other.

/// Marks what crosses the boundary of the library. Everything else is compiled with hidden visibility.
#define PHOTOLIB_EXPORT __attribute__((visibility("default")))

/// Marks what a host provides. These symbols stay undefined in libphotolib.so and are resolved when a host
/// loads it, so a host must not hide them.
#define PHOTOLIB_HOST __attribute__((visibility("default")))

#endif
