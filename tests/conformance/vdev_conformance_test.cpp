#include "vdev_backends.h"

#include <QDir>

#include <gtest/gtest.h>

#include <memory>
#include <vector>

namespace
{

struct DeviceCloser {
    void operator()(VDev *device) const { vDevClose(device); }
};
struct FileCloser {
    void operator()(VFile *file) const { vFileClose(file); }
};
using Device = std::unique_ptr<VDev, DeviceCloser>;
using File = std::unique_ptr<VFile, FileCloser>;

constexpr int blockSize = 4194304;

/// Content in which no two places look alike, so that a wrong offset shows.
QByteArray patterned(int size)
{
    QByteArray bytes(size, '\0');
    quint32 state = 12345;
    for (int i = 0; i < size; ++i) {
        state = state * 1664525 + 1013904223;
        bytes[i] = static_cast<char>(state >> 24);
    }
    return bytes;
}

int openDescriptors()
{
    return QDir(QStringLiteral("/proc/self/fd")).entryList(QDir::NoFilter).size();
}

class VdevConformance : public testing::TestWithParam<const BackendKind *>
{
protected:
    VdevConformance() : backend(GetParam()->make()) {}

    Device open() { return Device(backend->open()); }

    static QByteArray readInBlocks(VFile *file, int block)
    {
        QByteArray result;
        QByteArray buffer(block, '\0');
        for (int count = vFileRead(file, buffer.data(), block); count > 0;
             count = vFileRead(file, buffer.data(), block))
            result.append(buffer.constData(), count);
        return result;
    }

    std::unique_ptr<BackendUnderTest> backend;
};

TEST_P(VdevConformance, EveryByteOfFilesOfAwkwardSizesIsRead)
{
    const std::vector<int> sizes = {
        0, 1, 131071, 131072, 131073, blockSize - 1, blockSize, blockSize + 1, 2 * blockSize};
    for (const int size : sizes)
        backend->addFile("/DCIM/" + QByteArray::number(size), patterned(size));
    const Device device = open();
    ASSERT_NE(device, nullptr);
    for (const int size : sizes) {
        const File file(vFileOpen(device.get(), ("/DCIM/" + QByteArray::number(size)).constData(), 0));
        ASSERT_NE(file, nullptr) << size;
        EXPECT_TRUE(readInBlocks(file.get(), blockSize) == patterned(size)) << size;
    }
}

TEST_P(VdevConformance, ARequestIsFilledUnlessTheFileEnds)
{
    backend->addFile("/a", patterned(blockSize + 10));
    const Device device = open();
    const File file(vFileOpen(device.get(), "/a", 0));
    ASSERT_NE(file, nullptr);
    QByteArray buffer(blockSize, '\0');
    EXPECT_EQ(vFileRead(file.get(), buffer.data(), blockSize), blockSize);
    EXPECT_EQ(vFileRead(file.get(), buffer.data(), blockSize), 10);
    EXPECT_EQ(vFileRead(file.get(), buffer.data(), blockSize), 0);
    EXPECT_EQ(vFileRead(file.get(), buffer.data(), blockSize), 0);
}

TEST_P(VdevConformance, AnExactMultipleOfTheBlockEndsWithZero)
{
    backend->addFile("/a", patterned(2 * blockSize));
    const Device device = open();
    const File file(vFileOpen(device.get(), "/a", 0));
    QByteArray buffer(blockSize, '\0');
    EXPECT_EQ(vFileRead(file.get(), buffer.data(), blockSize), blockSize);
    EXPECT_EQ(vFileRead(file.get(), buffer.data(), blockSize), blockSize);
    EXPECT_EQ(vFileRead(file.get(), buffer.data(), blockSize), 0);
}

TEST_P(VdevConformance, SeekAndTellCountFromTheOriginAskedFor)
{
    const QByteArray content = patterned(1000);
    backend->addFile("/a", content);
    const Device device = open();
    const File file(vFileOpen(device.get(), "/a", 0));
    ASSERT_NE(file, nullptr);
    EXPECT_EQ(vFileTell(file.get()), 0);
    EXPECT_EQ(vFileSeek(file.get(), 0, 2), 1000);
    EXPECT_EQ(vFileTell(file.get()), 1000);
    EXPECT_EQ(vFileSeek(file.get(), -100, 2), 900);
    EXPECT_EQ(vFileSeek(file.get(), 50, 1), 950);
    QByteArray buffer(100, '\0');
    EXPECT_EQ(vFileRead(file.get(), buffer.data(), 100), 50);
    EXPECT_EQ(buffer.left(50), content.mid(950));
    EXPECT_EQ(vFileSeek(file.get(), 7, 0), 7);
    EXPECT_EQ(vFileRead(file.get(), buffer.data(), 10), 10);
    EXPECT_EQ(buffer.left(10), content.mid(7, 10));
    EXPECT_EQ(vFileTell(file.get()), 17);
}

TEST_P(VdevConformance, AnImpossibleSeekFailsAndMovesNothing)
{
    backend->addFile("/a", patterned(100));
    const Device device = open();
    const File file(vFileOpen(device.get(), "/a", 0));
    ASSERT_EQ(vFileSeek(file.get(), 10, 0), 10);
    EXPECT_LT(vFileSeek(file.get(), -1, 0), 0);
    EXPECT_LT(vFileSeek(file.get(), -101, 2), 0);
    EXPECT_LT(vFileSeek(file.get(), 0, 3), 0);
    EXPECT_LT(vFileSeek(file.get(), 0, -1), 0);
    EXPECT_EQ(vFileTell(file.get()), 10);
}

TEST_P(VdevConformance, BeyondTheEndThereIsNothingToRead)
{
    backend->addFile("/a", patterned(100));
    const Device device = open();
    const File file(vFileOpen(device.get(), "/a", 0));
    char byte = 'x';
    ASSERT_EQ(vFileSeek(file.get(), 5000000000, 0), 5000000000);
    EXPECT_EQ(vFileTell(file.get()), 5000000000);
    EXPECT_EQ(vFileRead(file.get(), &byte, 1), 0);
    EXPECT_EQ(byte, 'x');
}

TEST_P(VdevConformance, OnlyFilesThatExistAreOpened)
{
    backend->addFile("/DCIM/a", "content");
    backend->addFolder("/PhotoData");
    const Device device = open();
    for (const char *name : {"/b", "/DCIM/b", "/none/a", "/DCIM/a/b", "/DCIM", "/PhotoData", "/", ""})
        EXPECT_EQ(vFileOpen(device.get(), name, 0), nullptr) << name;
}

TEST_P(VdevConformance, UnusualNamesAreFound)
{
    const std::vector<QByteArray> names = {
        "/DCIM/IMG 0001.JPG",
        "/DCIM/\xC3\x9C\x62\x65r\xC2\xAD\xE5\x86\x99\xE7\x9C\x9F\xF0\x9F\x93\xB7.HEIC",
        "/DCIM/e\xCC\x81.JPG",
        "/DCIM/new\nline.JPG",
        "/DCIM/percent%s%n%1.JPG",
        "/DCIM/back\\slash.JPG",
        "/DCIM/...JPG",
        "/DCIM/.hidden",
        "/DCIM/" + QByteArray(255, 'n'),
    };
    for (const QByteArray &name : names)
        backend->addFile(name, name);
    const Device device = open();
    for (const QByteArray &name : names) {
        const File file(vFileOpen(device.get(), name.constData(), 0));
        ASSERT_NE(file, nullptr) << name.constData();
        EXPECT_EQ(readInBlocks(file.get(), 1024), name);
    }
}

TEST_P(VdevConformance, SlashesMayBeDoubled)
{
    backend->addFile("/IMG.JPG", "top");
    backend->addFile("/DCIM/IMG.JPG", "below");
    const Device device = open();
    for (const char *name : {"//IMG.JPG", "///IMG.JPG", "IMG.JPG"}) {
        const File file(vFileOpen(device.get(), name, 0));
        ASSERT_NE(file, nullptr) << name;
        EXPECT_EQ(readInBlocks(file.get(), 16), "top");
    }
    const File file(vFileOpen(device.get(), "//DCIM//IMG.JPG", 0));
    ASSERT_NE(file, nullptr);
    EXPECT_EQ(readInBlocks(file.get(), 16), "below");
}

TEST_P(VdevConformance, NamesTooLongForAnyFileFail)
{
    const Device device = open();
    EXPECT_EQ(vFileOpen(device.get(), ("/" + QByteArray(300, 'n')).constData(), 0), nullptr);
    EXPECT_EQ(vFileOpen(device.get(), QByteArray("/n").repeated(100000).constData(), 0), nullptr);
}

TEST_P(VdevConformance, FilesOfOneDeviceAreIndependent)
{
    backend->addFile("/a", "aaaa");
    backend->addFile("/b", "bbbb");
    const Device device = open();
    const File first(vFileOpen(device.get(), "/a", 0));
    const File again(vFileOpen(device.get(), "/a", 0));
    const File other(vFileOpen(device.get(), "/b", 0));
    char byte = 0;
    ASSERT_EQ(vFileSeek(first.get(), 3, 0), 3);
    EXPECT_EQ(vFileTell(again.get()), 0);
    EXPECT_EQ(vFileRead(other.get(), &byte, 1), 1);
    EXPECT_EQ(byte, 'b');
    EXPECT_EQ(vFileTell(first.get()), 3);
}

TEST_P(VdevConformance, ClosedHandlesLeaveNothingOpen)
{
    backend->addFile("/a", "content");
    vDevClose(backend->open());
    const int before = openDescriptors();
    for (int round = 0; round < 300; ++round) {
        const Device device = open();
        const File file(vFileOpen(device.get(), "/a", 0));
        ASSERT_NE(file, nullptr) << round;
        EXPECT_EQ(vFileOpen(device.get(), "/missing", 0), nullptr);
        EXPECT_EQ(vFileOpen(device.get(), "/", 0), nullptr);
    }
    EXPECT_EQ(openDescriptors(), before);
}

TEST_P(VdevConformance, ManyFilesAreOpenAtOnce)
{
    backend->addFile("/a", "content");
    const Device device = open();
    std::vector<File> files;
    for (int i = 0; i < 200; ++i) {
        files.emplace_back(vFileOpen(device.get(), "/a", 0));
        ASSERT_NE(files.back(), nullptr) << i;
    }
    for (const File &file : files)
        EXPECT_EQ(readInBlocks(file.get(), 16), "content");
}

TEST_P(VdevConformance, WrongRequestsFailAndTouchNothing)
{
    backend->addFile("/a", "content");
    const Device device = open();
    const File file(vFileOpen(device.get(), "/a", 0));
    char byte = 'x';
    EXPECT_EQ(vFileRead(file.get(), &byte, 0), 0);
    EXPECT_LT(vFileRead(file.get(), &byte, -1), 0);
    EXPECT_LT(vFileRead(file.get(), nullptr, 1), 0);
    EXPECT_EQ(vFileTell(file.get()), 0);
    EXPECT_EQ(byte, 'x');
    EXPECT_EQ(vFileOpen(device.get(), "/a", 2), nullptr);
    EXPECT_EQ(vFileOpen(device.get(), "/a", -1), nullptr);
    EXPECT_EQ(vFileOpen(device.get(), nullptr, 0), nullptr);
    EXPECT_NE(vDevCreateDir(device.get(), nullptr), 0);
}

TEST_P(VdevConformance, AFileOpenedForReadingIsNotWritten)
{
    backend->addFile("/a", "content");
    const Device device = open();
    const File file(vFileOpen(device.get(), "/a", 0));
    EXPECT_NE(vFileWrite(file.get(), "XXX", 3), 3);
    EXPECT_EQ(backend->contentOf("/a"), "content");
}

TEST_P(VdevConformance, OnlyAWritableBackendChangesAnything)
{
    backend->addFile("/a", "content");
    const Device device = open();
    const bool writable = GetParam()->writable;
    {
        const File changed(vFileOpen(device.get(), "/a", 1));
        const File created(vFileOpen(device.get(), "/new", 1));
        EXPECT_EQ(changed != nullptr, writable);
        EXPECT_EQ(created != nullptr, writable);
    }
    EXPECT_EQ(vDevCreateDir(device.get(), "/folder") == 0, writable);
    EXPECT_EQ(backend->contentOf("/a"), writable ? "" : "content");
    backend->addFile("/probe", "p");
    const File below(vFileOpen(device.get(), "/folder/file", 1));
    EXPECT_EQ(below != nullptr, writable);
}

std::vector<const BackendKind *> allKinds()
{
    std::vector<const BackendKind *> kinds;
    for (int i = 0; i < backendKindCount; ++i)
        kinds.push_back(&backendKinds[i]);
    return kinds;
}

INSTANTIATE_TEST_SUITE_P(Backends, VdevConformance, testing::ValuesIn(allKinds()),
                         [](const auto &instance) { return instance.param->name; });

TEST(VdevHandles, NullHandlesAreAccepted)
{
    char byte = 0;
    vDevClose(nullptr);
    vFileClose(nullptr);
    EXPECT_NE(vDevCreateDir(nullptr, "/a"), 0);
    EXPECT_EQ(vFileOpen(nullptr, "/a", 0), nullptr);
    EXPECT_LT(vFileRead(nullptr, &byte, 1), 0);
    EXPECT_LT(vFileWrite(nullptr, &byte, 1), 0);
    EXPECT_LT(vFileSeek(nullptr, 0, 0), 0);
    EXPECT_LT(vFileTell(nullptr), 0);
}

TEST(VdevHandles, DevicesThatDoNotExistAreNotOpened)
{
    for (const char *name : {"", "folder", "folder:", "folder:/no/such/folder", "/tmp", "unknown:/tmp", ":/tmp",
                             "FOLDER:/tmp", "afc", "AFC:"})
        EXPECT_EQ(vDevOpen(VDevDevice, name), nullptr) << name;
    EXPECT_EQ(vDevOpen(VDevDevice, nullptr), nullptr);
    EXPECT_EQ(vDevOpen(VDevLocal, "/no/such/folder"), nullptr);
    EXPECT_EQ(vDevOpen(VDevDevice, "folder:/proc/self/status"), nullptr);
    EXPECT_EQ(vDevOpen(static_cast<VDevType>(1), "folder:/tmp"), nullptr);
}

} // namespace
