#include "apps/browser/exporting/destination_check.h"
#include "apps/browser/library/background.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <gtest/gtest.h>

#include <unistd.h>

#include <future>
#include <memory>

namespace
{

class Destination : public testing::Test
{
protected:
    Destination()
    {
        QDir(folder.path()).mkpath(QStringLiteral("device/DCIM"));
        QDir(folder.path()).mkpath(QStringLiteral("there"));
    }

    QString path(const char *name) const { return folder.filePath(QLatin1String(name)); }
    QString problem(const QString &place) const { return browser::checkDestination(place, device()).problem; }
    QString device() const { return QStringLiteral("folder:") + path("device"); }

    QTemporaryDir folder;
};

TEST_F(Destination, MayBeThereOrNot)
{
    for (const char *name : {"there", "there/", "new", "new/with/parents"}) {
        const browser::DestinationState state = browser::checkDestination(path(name), device());
        EXPECT_TRUE(state.problem.isEmpty()) << name << state.problem.toStdString();
        EXPECT_GT(state.freeBytes, 0) << name;
    }
}

TEST_F(Destination, IsNeverOnTheDeviceOrAroundIt)
{
    for (const QString &place : {path("device"), path("device/DCIM"), path("device/new"), path("there/../device/x"),
                                 folder.path(), QStringLiteral("/")})
        EXPECT_TRUE(problem(place).contains(QStringLiteral("device"))) << place.toStdString();
}

TEST_F(Destination, IsAFolderWithItsWholeName)
{
    QFile file(path("file"));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    EXPECT_FALSE(problem(path("file")).isEmpty());
    EXPECT_FALSE(problem(path("file/below")).isEmpty());
    EXPECT_FALSE(problem(QString()).isEmpty());
    EXPECT_FALSE(problem(QStringLiteral("relative/folder")).isEmpty());
}

TEST_F(Destination, CanBeWritten)
{
    if (::geteuid() == 0)
        GTEST_SKIP() << "root may write everywhere";
    ASSERT_TRUE(QFile::setPermissions(path("there"), QFile::ReadOwner | QFile::ExeOwner));
    EXPECT_FALSE(problem(path("there/new")).isEmpty());
    QFile::setPermissions(path("there"), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
}

TEST_F(Destination, AskedForLastIsAnswered)
{
    browser::DestinationChecker checker(device());
    QString last;
    QObject::connect(&checker, &browser::DestinationChecker::checked,
                     [&](const browser::DestinationState &state) { last = state.path; });
    for (int i = 0; i < 100; ++i)
        checker.request(path("there") + QString::number(i));
    EXPECT_TRUE(QTest::qWaitFor([&] { return last == path("there99"); }, 30'000));
    EXPECT_TRUE(browser::waitForBackground(std::chrono::minutes(1)));
}

TEST(DestinationChecker, WaitsForNoFolderThatDoesNotAnswer)
{
    std::promise<void> release;
    const auto look = [gate = release.get_future().share()](const QString &path) {
        if (path == QLatin1String("/dead"))
            gate.wait();
        return browser::DestinationState{path, QString(), 1};
    };
    auto checker = std::make_unique<browser::DestinationChecker>(look);
    QStringList answers;
    QObject::connect(checker.get(), &browser::DestinationChecker::checked,
                     [&](const browser::DestinationState &state) { answers += state.path; });
    checker->request(QStringLiteral("/dead"));
    checker->request(QStringLiteral("/there"));
    EXPECT_TRUE(QTest::qWaitFor([&] { return answers == QStringList{QStringLiteral("/there")}; }, 60'000));
    checker.reset();
    release.set_value();
    EXPECT_TRUE(browser::waitForBackground(std::chrono::minutes(1)));
    QCoreApplication::processEvents();
    EXPECT_EQ(answers.size(), 1);
}

TEST(DestinationChecker, AnswersAgainWhenManyFoldersDidNotAnswer)
{
    std::promise<void> release;
    const auto look = [gate = release.get_future().share()](const QString &path) {
        gate.wait();
        return browser::DestinationState{path, QString(), 1};
    };
    browser::DestinationChecker checker(look);
    QStringList answers;
    QObject::connect(&checker, &browser::DestinationChecker::checked,
                     [&](const browser::DestinationState &state) { answers += state.path; });
    for (int i = 0; i < 10; ++i)
        checker.request(QString::number(i));
    release.set_value();
    EXPECT_TRUE(QTest::qWaitFor([&] { return !answers.isEmpty(); }, 60'000));
    EXPECT_EQ(answers, QStringList{QStringLiteral("9")});
    EXPECT_TRUE(browser::waitForBackground(std::chrono::minutes(1)));
}

} // namespace
