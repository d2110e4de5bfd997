#ifndef TESTS_UNIT_PHOTOLIB_MADE_LIBRARY_H
#define TESTS_UNIT_PHOTOLIB_MADE_LIBRARY_H

#include "photolib/photo_manager.h"
#include "photolib/photolib.h"
#include "testing/fake_device.h"
#include "testing/library_builder.h"

#include <memory>

/// Releases a manager as a host does.
struct ReleaseManager {
    void operator()(photo_manager_int *manager) const { releasePhotolib(&manager); }
};
using Manager = std::unique_ptr<photo_manager_int, ReleaseManager>;

inline Manager makeManager(testkit::FakeDevice &device)
{
    return Manager(getPhotolib(&device));
}

/// The implementation behind a manager.
inline photo_manager &implementationOf(const Manager &manager)
{
    return dynamic_cast<photo_manager &>(*manager);
}

/// A library without the albums that every real one has: it holds what a test adds, and nothing else.
inline testkit::BuilderOptions bareLibrary()
{
    testkit::BuilderOptions options;
    options.builtinAlbums = false;
    options.indices = false;
    options.attributeKeys = testkit::AttributeKeys::SameAsAsset;
    return options;
}

inline void putOn(testkit::FakeDevice &device, testkit::LibraryBuilder &library)
{
    device.addFile("/PhotoData/Photos.sqlite", library.bytes().database);
}

constexpr char markerPath[] = "/Photos/Sync/CurrentLibraryUUID.plist";

/// A marker file as a device writes it; `body` is what its dictionary holds.
inline QByteArray markerWith(const QByteArray &body)
{
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<plist version=\"1.0\"><dict>" + body + "</dict></plist>\n";
}

inline QByteArray markerNaming(const QByteArray &uuid)
{
    return markerWith("<key>libraryUUID</key><string>" + uuid + "</string>");
}

#endif
