#include "photolib/current_library_uuid.h"

#include "testing/faulty_device.h"
#include "testing/log_recorder.h"
#include "tests/unit/photolib/made_library.h"

#include <plist/plist.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <vector>

using photolib::readCurrentLibraryUuid;
using testkit::FakeDevice;
using testkit::Fault;
using testkit::FaultyDevice;
using testkit::LogRecorder;
using testkit::OperationKind;

namespace
{

struct MarkerCase {
    const char *name;
    QByteArray content;
};

/// What is known after a marker was read, when "BEFORE" was known before.
QByteArray readOver(const QByteArray &content)
{
    LogRecorder log; // the marker is read without a word
    FakeDevice device;
    device.addFile(markerPath, content);
    QByteArray uuid = "BEFORE";
    readCurrentLibraryUuid(&device, &uuid);
    return uuid;
}

/// A marker of `size` bytes, the value at its end.
QByteArray markerOfSize(int size, const QByteArray &uuid)
{
    const int rest = size - markerWith("<!---->").size() - markerNaming(uuid).size() + markerWith("").size();
    return markerWith("<!--" + QByteArray(rest, 'x') + "--><key>libraryUUID</key><string>" + uuid + "</string>");
}

QByteArray binaryMarker()
{
    plist_t root = plist_new_dict();
    plist_dict_set_item(root, "libraryUUID", plist_new_string("BINARY"));
    char *bytes = nullptr;
    std::uint32_t size = 0;
    plist_to_bin(root, &bytes, &size);
    const QByteArray content(bytes, static_cast<int>(size));
    std::free(bytes);
    plist_free(root);
    return content;
}

QStringList readsOf(const FakeDevice &device)
{
    return device.operations(OperationKind::Read);
}

} // namespace

TEST(CurrentLibraryUuid, ReadsTheMarkerAndClosesFileAndDeviceInThisOrder)
{
    LogRecorder log;
    FakeDevice device;
    const QByteArray marker = markerNaming("5F0C-77");
    device.addFile(markerPath, marker);
    QByteArray uuid;
    readCurrentLibraryUuid(&device, &uuid);
    EXPECT_EQ(uuid, QByteArray("5F0C-77"));
    EXPECT_EQ(device.operations(testkit::allOperations),
              (QStringList{"devicePath = \"fake:device\"", "vDevOpen 2 \"fake:device\" = dev1",
                           "vFileOpen dev1 \"/Photos/Sync/CurrentLibraryUUID.plist\" 0 = file1",
                           QString("vFileRead file1 1024 = %1").arg(marker.size()), "vFileRead file1 1024 = 0",
                           "vFileClose file1", "vDevClose dev1"}));
}

TEST(CurrentLibraryUuid, MissingMarkerClosesTheDeviceAndKeepsWhatWasKnown)
{
    LogRecorder log;
    FakeDevice device;
    QByteArray uuid = "BEFORE";
    readCurrentLibraryUuid(&device, &uuid);
    EXPECT_EQ(uuid, QByteArray("BEFORE"));
    EXPECT_EQ(device.operations(),
              (QStringList{"vDevOpen 2 \"fake:device\" = dev1",
                           "vFileOpen dev1 \"/Photos/Sync/CurrentLibraryUUID.plist\" 0 = null", "vDevClose dev1"}));
}

TEST(CurrentLibraryUuid, UnreachableDeviceIsClosedAsANullHandle)
{
    LogRecorder log;
    FakeDevice device;
    device.addFile(markerPath, markerNaming("X"));
    device.setReachable(false);
    QByteArray uuid = "BEFORE";
    readCurrentLibraryUuid(&device, &uuid);
    EXPECT_EQ(uuid, QByteArray("BEFORE"));
    EXPECT_EQ(device.operations(), (QStringList{"vDevOpen 2 \"fake:device\" = null", "vDevClose null"}));
}

TEST(CurrentLibraryUuid, ValueIsTakenAsUtf8WithItsEntitiesResolved)
{
    EXPECT_EQ(readOver(markerNaming("Z\xC3\xBCrich")), QByteArray("Z\xC3\xBCrich"));
    EXPECT_EQ(readOver(markerNaming("A&amp;B")), QByteArray("A&B"));
    EXPECT_EQ(readOver(markerNaming(" two  words ")), QByteArray(" two  words "));
}

TEST(CurrentLibraryUuid, OtherKeysAroundItDoNotMatter)
{
    EXPECT_EQ(readOver(markerWith("<key>a</key><integer>1</integer><key>libraryUUID</key><string>U</string>"
                                  "<key>z</key><dict><key>libraryUUID</key><string>inner</string></dict>")),
              QByteArray("U"));
}

TEST(CurrentLibraryUuid, ValueEndsAtItsFirstZeroCharacter)
{
    EXPECT_EQ(readOver(markerNaming(QByteArray("AB\0CD", 5))), "AB");
}

TEST(CurrentLibraryUuid, EmptyValueReplacesWhatWasKnown)
{
    EXPECT_EQ(readOver(markerNaming("")), QByteArray(""));
}

TEST(CurrentLibraryUuid, WhatIsNotUnderstoodKeepsWhatWasKnown)
{
    const QByteArray xmlHead = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<plist version=\"1.0\">";
    const std::vector<MarkerCase> cases = {
        {"an empty file", ""},
        {"no property list", "libraryUUID=5F0C"},
        {"zeros", QByteArray(100, '\0')},
        {"a binary property list", binaryMarker()},
        {"an empty dictionary", markerWith("")},
        {"another key", markerWith("<key>LibraryUUID</key><string>U</string>")},
        {"a key of a dictionary inside",
         markerWith("<key>a</key><dict><key>libraryUUID</key><string>U</string></dict>")},
        {"a number", markerWith("<key>libraryUUID</key><integer>5</integer>")},
        {"a boolean", markerWith("<key>libraryUUID</key><true/>")},
        {"bytes", markerWith("<key>libraryUUID</key><data>QUJD</data>")},
        {"an array as value", markerWith("<key>libraryUUID</key><array><string>U</string></array>")},
        {"an array as root", xmlHead + "<array><string>libraryUUID</string><string>U</string></array></plist>"},
        {"a text as root", xmlHead + "<string>libraryUUID</string></plist>"},
    };
    for (const MarkerCase &marker : cases)
        EXPECT_EQ(readOver(marker.content), QByteArray("BEFORE")) << marker.name;
}

TEST(CurrentLibraryUuid, MarkerOfManyBlocksIsReadToItsEnd)
{
    LogRecorder log;
    FakeDevice device;
    const QByteArray marker = markerOfSize(2500, "FAR-BEHIND");
    ASSERT_EQ(marker.size(), 2500);
    device.addFile(markerPath, marker);
    QByteArray uuid;
    readCurrentLibraryUuid(&device, &uuid);
    EXPECT_EQ(uuid, QByteArray("FAR-BEHIND"));
    EXPECT_EQ(readsOf(device), (QStringList{"vFileRead file1 1024 = 1024", "vFileRead file1 1024 = 1024",
                                            "vFileRead file1 1024 = 452", "vFileRead file1 1024 = 0"}));
}

TEST(CurrentLibraryUuid, FileLargerThanAnyMarkerIsNone)
{
    constexpr int largest = 64 * 1024;
    EXPECT_EQ(readOver(markerOfSize(largest, "LARGEST")), QByteArray("LARGEST"));
    EXPECT_EQ(readOver(markerOfSize(largest + 1, "TOO-LARGE")), QByteArray("BEFORE"));
    EXPECT_EQ(readOver(QByteArray("<plist>") + QByteArray("<array>").repeated(3000000)), QByteArray("BEFORE"));
}

TEST(CurrentLibraryUuid, EndlessFileIsReadNoFurtherThanAnyMarker)
{
    LogRecorder log;
    FakeDevice device;
    device.addVirtualFile(markerPath, qint64(1) << 40,
                          [](qint64, char *bytes, qint64 size) { std::fill_n(bytes, size, 'x'); });
    QByteArray uuid = "BEFORE";
    readCurrentLibraryUuid(&device, &uuid);
    EXPECT_EQ(uuid, QByteArray("BEFORE"));
    EXPECT_EQ(readsOf(device).size(), 65);
}

TEST(CurrentLibraryUuid, MarkerOfExactlyOneBlockIsReadToItsEnd)
{
    LogRecorder log;
    FakeDevice device;
    device.addFile(markerPath, markerOfSize(1024, "EXACT"));
    QByteArray uuid;
    readCurrentLibraryUuid(&device, &uuid);
    EXPECT_EQ(uuid, QByteArray("EXACT"));
    EXPECT_EQ(readsOf(device), (QStringList{"vFileRead file1 1024 = 1024", "vFileRead file1 1024 = 0"}));
}

TEST(CurrentLibraryUuid, ShortReadsGoOnWhereTheyEnded)
{
    LogRecorder log;
    FakeDevice device;
    device.addFile(markerPath, markerOfSize(1000, "WHOLE"));
    const FaultyDevice shortRead(device, Fault(OperationKind::Read, Fault::Effect::ShortTransfer));
    QByteArray uuid;
    readCurrentLibraryUuid(&device, &uuid);
    EXPECT_EQ(uuid, QByteArray("WHOLE"));
    EXPECT_EQ(readsOf(device),
              (QStringList{"vFileRead file1 1024 = 500", "vFileRead file1 1024 = 500", "vFileRead file1 1024 = 0"}));
}

TEST(CurrentLibraryUuid, ReadErrorEndsReadingAndWhatCameIsParsed)
{
    LogRecorder log;
    FakeDevice device;
    device.addFile(markerPath, markerNaming("IN-THE-FIRST-BLOCK") + QByteArray(2000, '\n'));
    const FaultyDevice failingRead(device, Fault(OperationKind::Read, Fault::Effect::Fail, 2));
    QByteArray uuid;
    readCurrentLibraryUuid(&device, &uuid);
    EXPECT_EQ(uuid, QByteArray("IN-THE-FIRST-BLOCK"));
    EXPECT_EQ(readsOf(device), (QStringList{"vFileRead file1 1024 = 1024", "vFileRead file1 1024 = -1"}));
}
