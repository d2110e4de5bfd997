#include "devicehost/open_error.h"
#include "photolib/host/vdev.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <sys/stat.h>
#include <thread>

namespace
{

using devicehost::lastOpenError;
using devicehost::OpenError;

class OpenErrorOf : public testing::Test
{
protected:
    OpenErrorOf()
    {
        QDir(folder.path()).mkpath(QStringLiteral("DCIM/folder"));
        QFile file(folder.filePath(QStringLiteral("DCIM/file")));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        device = vDevOpen(VDevDevice, ("folder:" + folder.path().toUtf8()).constData());
    }
    ~OpenErrorOf() override { vDevClose(device); }

    bool opens(const char *path)
    {
        VFile *file = vFileOpen(device, path, 0);
        vFileClose(file);
        return file != nullptr;
    }

    QTemporaryDir folder;
    VDev *device = nullptr;
};

} // namespace

TEST_F(OpenErrorOf, AbsentFileIsToldApart)
{
    for (const char *path : {"/DCIM/other", "/other/file", "/DCIM/file/below"}) {
        EXPECT_FALSE(opens(path)) << path;
        const OpenError error = lastOpenError();
        EXPECT_TRUE(error.absent) << path;
        EXPECT_FALSE(error.text.isEmpty()) << path;
        EXPECT_EQ(error.advice, QString()) << path;
    }
}

TEST_F(OpenErrorOf, FileThatIsThereHasAReasonAndAdvice)
{
    ASSERT_EQ(::mkfifo(folder.filePath(QStringLiteral("DCIM/pipe")).toUtf8().constData(), 0600), 0);
    for (const char *path : {"/DCIM/folder", "/DCIM/pipe"}) {
        EXPECT_FALSE(opens(path)) << path;
        const OpenError error = lastOpenError();
        EXPECT_FALSE(error.absent) << path;
        EXPECT_FALSE(error.text.isEmpty()) << path;
        EXPECT_FALSE(error.advice.isEmpty()) << path;
    }
}

TEST_F(OpenErrorOf, UnusableRequestIsNoAbsentFile)
{
    EXPECT_FALSE(opens("/DCIM/other"));
    EXPECT_FALSE(opens(""));
    EXPECT_FALSE(lastOpenError().absent);
    EXPECT_FALSE(lastOpenError().text.isEmpty());
}

TEST_F(OpenErrorOf, SuccessKeepsTheLastFailure)
{
    EXPECT_FALSE(opens("/DCIM/folder"));
    const QString text = lastOpenError().text;
    EXPECT_TRUE(opens("/DCIM/file"));
    EXPECT_EQ(lastOpenError().text, text);
}

TEST_F(OpenErrorOf, EveryThreadHasItsOwn)
{
    EXPECT_FALSE(opens("/DCIM/folder"));
    OpenError other;
    std::thread([&other] { other = lastOpenError(); }).join();
    EXPECT_EQ(other.text, QString());
    EXPECT_FALSE(other.absent);
    EXPECT_FALSE(lastOpenError().text.isEmpty());
}
