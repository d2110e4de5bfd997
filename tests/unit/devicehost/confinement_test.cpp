// What a hostile name, or a hostile folder, can make a device backend open: nothing outside, and nothing but files.

#include "support.h"

#include "devicehost/vdev/path_tree.h"

#include <QDir>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/sysmacros.h>
#include <sys/un.h>
#include <unistd.h>

#include <cstring>
#include <ostream>

namespace
{

enum class Lookup { ByKernel, ByComponents };

void PrintTo(Lookup lookup, std::ostream *out)
{
    *out << (lookup == Lookup::ByKernel ? "ByKernel" : "ByComponents");
}

class Confinement : public testing::TestWithParam<Lookup>
{
protected:
    Confinement()
    {
        devicehost::forceComponentWalk(GetParam() == Lookup::ByComponents);
        writeFile(folder.filePath(QStringLiteral("secret")), "secret");
        writeFile(root() + QStringLiteral("/DCIM/a.jpg"), "picture");
        device.reset(vDevOpen(VDevDevice, ("folder:" + root().toUtf8()).constData()));
    }
    ~Confinement() override { devicehost::forceComponentWalk(false); }

    QString root() const { return folder.filePath(QStringLiteral("device")); }

    void link(const QString &target, const QString &name) const
    {
        const QByteArray where = (root() + name).toUtf8();
        ASSERT_EQ(::symlink(target.toUtf8().constData(), where.constData()), 0);
    }

    bool opens(const QByteArray &name) const { return File(vFileOpen(device.get(), name.constData(), 0)) != nullptr; }

    QTemporaryDir folder;
    Device device;
};

TEST_P(Confinement, FilesInsideAreOpened)
{
    ASSERT_NE(device, nullptr);
    EXPECT_EQ(readFrom(device.get(), "/DCIM/a.jpg"), "picture");
    EXPECT_EQ(readFrom(device.get(), "/./DCIM/./a.jpg"), "picture");
}

TEST_P(Confinement, ClimbingNamesAreRefused)
{
    EXPECT_FALSE(opens("/../secret"));
    EXPECT_FALSE(opens("../secret"));
    EXPECT_FALSE(opens("/DCIM/../../secret"));
    EXPECT_FALSE(opens("/DCIM/../DCIM/a.jpg")); // it would stay inside, but no phone writes such a name
    EXPECT_FALSE(opens("/DCIM/.."));
}

TEST_P(Confinement, AbsoluteNamesStartAtTheDevice)
{
    EXPECT_FALSE(opens(folder.filePath(QStringLiteral("secret")).toUtf8()));
    EXPECT_FALSE(opens("//" + folder.filePath(QStringLiteral("secret")).toUtf8()));
    EXPECT_FALSE(opens("/etc/passwd"));
}

TEST_P(Confinement, LinksDoNotLeadOutside)
{
    link(folder.filePath(QStringLiteral("secret")), QStringLiteral("/absolute"));
    link(QStringLiteral("../secret"), QStringLiteral("/relative"));
    link(QStringLiteral("../../../../../../../../etc"), QStringLiteral("/folder"));
    link(QStringLiteral("/proc/self/root/etc/passwd"), QStringLiteral("/magic"));
    EXPECT_FALSE(opens("/absolute"));
    EXPECT_FALSE(opens("/relative"));
    EXPECT_FALSE(opens("/folder/passwd"));
    EXPECT_FALSE(opens("/magic"));
}

TEST_P(Confinement, LinksThatTurnInCirclesFail)
{
    link(QStringLiteral("one"), QStringLiteral("/two"));
    link(QStringLiteral("two"), QStringLiteral("/one"));
    EXPECT_FALSE(opens("/one"));
}

TEST_P(Confinement, LinksInsideAreFollowedOnlyWhereTheKernelConfinesThem)
{
    link(QStringLiteral("DCIM/a.jpg"), QStringLiteral("/file"));
    link(QStringLiteral("DCIM"), QStringLiteral("/folder"));
    const bool followed = GetParam() == Lookup::ByKernel;
    EXPECT_EQ(opens("/file"), followed);
    EXPECT_EQ(opens("/folder/a.jpg"), followed);
}

TEST_P(Confinement, ALinkedRootIsEntered)
{
    const QString alias = folder.filePath(QStringLiteral("alias"));
    ASSERT_EQ(::symlink("device", alias.toUtf8().constData()), 0);
    const Device aliased(vDevOpen(VDevDevice, ("folder:" + alias.toUtf8()).constData()));
    EXPECT_EQ(readFrom(aliased.get(), "/DCIM/a.jpg"), "picture");
}

TEST_P(Confinement, AMovedRootStaysTheSameDevice)
{
    const QString moved = folder.filePath(QStringLiteral("moved"));
    ASSERT_TRUE(QDir().rename(root(), moved));
    writeFile(root() + QStringLiteral("/DCIM/a.jpg"), "another");
    EXPECT_EQ(readFrom(device.get(), "/DCIM/a.jpg"), "picture");
}

TEST_P(Confinement, PipesAreNotOpened)
{
    const QByteArray pipe = (root() + QStringLiteral("/pipe")).toUtf8();
    ASSERT_EQ(::mkfifo(pipe.constData(), 0600), 0);
    EXPECT_FALSE(opens("/pipe")); // an open() would wait for a writer for ever
}

TEST_P(Confinement, SocketsAreNotOpened)
{
    sockaddr_un address = {};
    address.sun_family = AF_UNIX;
    const QByteArray name = (root() + QStringLiteral("/socket")).toUtf8();
    ASSERT_LT(static_cast<std::size_t>(name.size()), sizeof address.sun_path);
    std::memcpy(address.sun_path, name.constData(), static_cast<std::size_t>(name.size()));
    const int fd = ::socket(AF_UNIX, SOCK_STREAM, 0);
    ASSERT_EQ(::bind(fd, reinterpret_cast<const sockaddr *>(&address), sizeof address), 0);
    EXPECT_FALSE(opens("/socket"));
    ::close(fd);
}

TEST_P(Confinement, DeviceNodesAreNotOpened)
{
    const QByteArray node = (root() + QStringLiteral("/zero")).toUtf8();
    if (::mknod(node.constData(), S_IFCHR | 0600, makedev(1, 5)) != 0)
        GTEST_SKIP() << "device nodes cannot be made here";
    EXPECT_FALSE(opens("/zero"));
}

TEST_P(Confinement, VeryLongNamesFail)
{
    EXPECT_FALSE(opens("/" + QByteArray(256, 'n')));
    EXPECT_FALSE(opens(QByteArray("/DCIM").repeated(5000)));
}

TEST_P(Confinement, NothingIsWrittenToTheDevice)
{
    EXPECT_EQ(vFileOpen(device.get(), "/DCIM/a.jpg", 1), nullptr);
    EXPECT_EQ(vFileOpen(device.get(), "/new", 1), nullptr);
    EXPECT_NE(vDevCreateDir(device.get(), "/made"), 0);
    EXPECT_EQ(contentOf(root() + QStringLiteral("/DCIM/a.jpg")), "picture");
    EXPECT_EQ(QDir(root()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot), QStringList(QStringLiteral("DCIM")));
}

TEST_P(Confinement, AConfinedLocalDeviceCreatesInsideOnly)
{
    const Device local(vDevOpen(VDevLocal, root().toUtf8().constData()));
    link(QStringLiteral("../outside"), QStringLiteral("/link"));
    link(folder.path(), QStringLiteral("/up"));
    EXPECT_EQ(vFileOpen(local.get(), "/../outside", 1), nullptr);
    EXPECT_EQ(vFileOpen(local.get(), "/link", 1), nullptr);
    EXPECT_EQ(vFileOpen(local.get(), "/up/outside", 1), nullptr);
    EXPECT_NE(vDevCreateDir(local.get(), "/../outside"), 0);
    EXPECT_NE(vDevCreateDir(local.get(), "/up/outside"), 0);
    EXPECT_EQ(vDevCreateDir(local.get(), "/one/two"), 0);
    EXPECT_NE(File(vFileOpen(local.get(), "/one/two/three", 1)), nullptr);
    EXPECT_FALSE(QFile::exists(folder.filePath(QStringLiteral("outside"))));
    EXPECT_TRUE(QFile::exists(root() + QStringLiteral("/one/two/three")));
}

INSTANTIATE_TEST_SUITE_P(Lookups, Confinement, testing::Values(Lookup::ByKernel, Lookup::ByComponents),
                         [](const auto &instance) {
                             return instance.param == Lookup::ByKernel ? "ByKernel" : "ByComponents";
                         });

TEST(FolderDevice, AReadErrorIsBelowZero)
{
    const Device device(vDevOpen(VDevDevice, "folder:/proc/self"));
    const File memory(vFileOpen(device.get(), "/mem", 0)); // a regular file whose first byte cannot be read
    ASSERT_NE(memory, nullptr);
    char byte = 0;
    EXPECT_LT(vFileRead(memory.get(), &byte, 1), 0);
}

TEST(FolderDevice, AFolderThatMayNotBeEnteredIsNotOpened)
{
    QTemporaryDir folder;
    const QByteArray name = "folder:" + folder.path().toUtf8();
    ASSERT_EQ(::chmod(folder.path().toUtf8().constData(), 0), 0);
    const QString answer = inUnprivilegedChild(
        [&name] { return vDevOpen(VDevDevice, name.constData()) == nullptr ? QStringLiteral("null") : QString(); });
    ::chmod(folder.path().toUtf8().constData(), 0700);
    EXPECT_EQ(answer, QStringLiteral("null"));
}

} // namespace
