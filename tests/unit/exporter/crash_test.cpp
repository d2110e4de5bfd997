#include "tests/unit/exporter/export_fixture.h"
#include "tests/unit/exporter/failing_files.h"

#include <QDir>
#include <QProcess>

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace exporter;
using namespace testkit;

namespace
{

constexpr int killed = 77;
constexpr int endedByItself = 78;

void copyFolder(const QString &from, const QString &to)
{
    // With links and times, which the exporter looks at.
    ASSERT_EQ(0, QProcess::execute("cp", {"-a", from, to}));
}

/// Everything that a run can do: pairs, clashes, albums, and unless it is the first run, a photo that changed since the
/// run before.
class Scene
{
public:
    explicit Scene(bool firstRun) : isFirstRun(firstRun)
    {
        fixture.options.layout = "{created:yyyy}/{stem}";
        fixture.options.albums = true;
        AssetRow elsewhere;
        elsewhere.directory = "DCIM/101APPLE";
        const qint64 changing = fixture.addPhoto("IMG_0001.HEIC", "a");
        fixture.addFile("/DCIM/100APPLE/IMG_0001.MOV", "film of a");
        fixture.addAlbum("Album", {changing});
        if (!isFirstRun) {
            EXPECT_TRUE(fixture.run().isSuccess());
            copyFolder(fixture.destination(), before());
        }
        fixture.addFile("/DCIM/100APPLE/IMG_0001.MOV", "another film of a");
        const qint64 second = fixture.addPhoto("img_0001.heic", "b", elsewhere);
        fixture.addFile("/DCIM/101APPLE/img_0001.AAE", "notes of b");
        const qint64 third = fixture.addVideo("IMG_0003.MOV", "c");
        fixture.addAlbum("album", {third, second, changing});
        ids = fixture.open().getPhotoList();
    }

    QString before() const { return fixture.folder.path() + "/before"; }

    /// The destination as it was before the run.
    void restore()
    {
        QDir(fixture.destination()).removeRecursively();
        if (!isFirstRun)
            copyFolder(before(), fixture.destination());
    }

    /// Runs in a child process that `arm` has end at some point. Answers its exit status.
    int runInChild(const std::function<void(FailingFiles &, Listener &)> &arm)
    {
        const pid_t child = ::fork();
        if (child == 0) {
            FailingFiles files;
            fixture.files = &files;
            fixture.prepareListener = [&](Listener &listener) { arm(files, listener); };
            fixture.run(ids);
            ::_exit(endedByItself);
        }
        int status = 0;
        EXPECT_EQ(child, ::waitpid(child, &status, 0));
        return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    }

    RunOutcome resume() { return fixture.run(ids); }

    ExportFixture fixture;
    QList<qint64> ids;

private:
    const bool isFirstRun;
};

/// Ends the run at its n-th step, for all n from `first` on in steps of `stride`, and goes on.
void killEverywhere(int first, int stride, bool isFirstRun,
                    const std::function<void(int, FailingFiles &, Listener &)> &arm)
{
    Scene scene(isFirstRun);
    ASSERT_TRUE(scene.resume().isSuccess());
    const Tree expected = scene.fixture.tree();
    ASSERT_EQ(isFirstRun ? 12 : 14, expected.size()) << qPrintable(expected.keys().join('\n'));
    int kills = 0;
    for (int number = first;; number += stride) {
        scene.restore();
        const int status =
            scene.runInChild([&](FailingFiles &files, Listener &listener) { arm(number, files, listener); });
        if (status == endedByItself)
            break;
        ASSERT_EQ(killed, status);
        ++kills;
        scene.fixture.files = &scene.fixture.realFiles;
        const RunOutcome resumed = scene.resume();
        ASSERT_TRUE(resumed.isSuccess()) << "killed at " << number << ": " << qPrintable(resumed.message);
        ASSERT_EQ(expected, scene.fixture.tree()) << "killed at " << number;
        ASSERT_EQ(QStringList{".photolib-export.sqlite"}, ExportFixture::hiddenFilesOf(scene.fixture.destination()))
            << "killed at " << number;
        ASSERT_TRUE(scene.fixture.verify().isSuccess()) << "killed at " << number;
    }
    EXPECT_GT(kills, 3);
}

void killAtSystemCalls(int first, bool isFirstRun)
{
    killEverywhere(first, 4, isFirstRun, [](int number, FailingFiles &files, Listener &) {
        files.onCall = [number](FailingFiles::Call, int call) {
            if (call == number)
                ::_exit(killed);
            return 0;
        };
    });
}

} // namespace

// The calls are shared among four tests each, so that these can run side by side.
TEST(Crash, ARunKilledAtAnySystemCallGoesOnToTheSameResult1)
{
    killAtSystemCalls(1, false);
}

TEST(Crash, ARunKilledAtAnySystemCallGoesOnToTheSameResult2)
{
    killAtSystemCalls(2, false);
}

TEST(Crash, ARunKilledAtAnySystemCallGoesOnToTheSameResult3)
{
    killAtSystemCalls(3, false);
}

TEST(Crash, ARunKilledAtAnySystemCallGoesOnToTheSameResult4)
{
    killAtSystemCalls(4, false);
}

TEST(Crash, TheFirstRunKilledAtAnySystemCallGoesOnToTheSameResult1)
{
    killAtSystemCalls(1, true);
}

TEST(Crash, TheFirstRunKilledAtAnySystemCallGoesOnToTheSameResult2)
{
    killAtSystemCalls(2, true);
}

TEST(Crash, TheFirstRunKilledAtAnySystemCallGoesOnToTheSameResult3)
{
    killAtSystemCalls(3, true);
}

TEST(Crash, TheFirstRunKilledAtAnySystemCallGoesOnToTheSameResult4)
{
    killAtSystemCalls(4, true);
}

TEST(Crash, ARunKilledInAnyCallOfTheObserverGoesOnToTheSameResult)
{
    killEverywhere(1, 1, false, [](int number, FailingFiles &, Listener &listener) {
        auto seen = std::make_shared<int>(0);
        listener.onProgress = [number, seen](const ExportProgress &) {
            if (++*seen == number)
                ::_exit(killed);
        };
    });
}

TEST(Crash, ARunInterruptedBetweenNamesOfASetKeepsTheSetTogether)
{
    killEverywhere(1, 1, false, [](int number, FailingFiles &files, Listener &) {
        auto seen = std::make_shared<int>(0);
        files.onCall = [number, seen](FailingFiles::Call call, int) {
            const bool names = call == FailingFiles::Call::Rename || call == FailingFiles::Call::Link;
            if (names && ++*seen == number)
                ::_exit(killed);
            return 0;
        };
    });
}
