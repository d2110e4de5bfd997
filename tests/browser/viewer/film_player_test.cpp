#include "apps/browser/library/background.h"
#include "apps/browser/media/device_read.h"
#include "apps/browser/viewer/film_player.h"
#include "photolib/photolib.h"
#include "tests/browser/support/opened_folder.h"
#include "tests/browser/viewer/shared_sample.h"

#include <QDesktopServices>
#include <QFile>
#include <QFileInfo>
#include <QSignalSpy>
#include <QTest>
#include <QUrl>

#include <gtest/gtest.h>

namespace
{

using browser::CopyEnd;
using browser::Film;
using browser::FilmPart;
using browser::FilmPlayer;

constexpr int patience = 30'000;

/// Takes the place of the system's player.
class Player : public QObject
{
    Q_OBJECT

public:
    Player() { QDesktopServices::setUrlHandler(QStringLiteral("file"), this, "play"); }
    ~Player() override { QDesktopServices::unsetUrlHandler(QStringLiteral("file")); }

    QString path;
    QByteArray bytes;
    QFile::Permissions folderPermissions;

public Q_SLOTS:
    void play(const QUrl &url)
    {
        path = url.toLocalFile();
        QFile file(path);
        bytes = file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
        folderPermissions = QFile::permissions(QFileInfo(path).path());
    }
};

class Films : public testing::Test
{
protected:
    void SetUp() override
    {
        library = openFolder(folder.root());
        ASSERT_NE(library, nullptr);
        for (const qint64 id : library->library().getPhotoList()) {
            const photoItem item = *library->item(id);
            const bool isHere = QFile::exists(folder.path(library->devicePath(id)));
            if (item.mediaType == 1 && isHere)
                film = id;
            if (item.mediaType != 1 && item.kindSubtype == 2 && isHere)
                live = id;
            if (item.mediaType == 3 && item.kindSubtype == 0 && isHere)
                still = id;
        }
        ASSERT_NE(film, 0);
        ASSERT_NE(live, 0);
        ASSERT_NE(still, 0);
    }

    SampleFolder &folder = sharedSample();
    std::shared_ptr<browser::OpenedLibrary> library;
    qint64 film = 0, live = 0, still = 0;
};

bool always(qint64, qint64)
{
    return true;
}

TEST_F(Films, OfAFolderAreCopiedLikeThoseOfAPhone)
{
    Player system;
    FilmPlayer player(library);
    QSignalSpy opened(&player, &FilmPlayer::opened);
    player.play(film, FilmPart::Original);
    ASSERT_TRUE(QTest::qWaitFor([&] { return opened.count() == 1; }, patience));
    EXPECT_FALSE(system.path.startsWith(folder.root())) << "a player could change the device's own file";
    EXPECT_EQ(system.bytes, folder.read(library->devicePath(film)));
    EXPECT_EQ(QFileInfo(system.path).fileName(), QFileInfo(library->devicePath(film)).fileName());
    EXPECT_FALSE(player.isBusy());
}

TEST_F(Films, OfALivePhotoIsTheFilmBesideIt)
{
    Player system;
    FilmPlayer player(library);
    QSignalSpy opened(&player, &FilmPlayer::opened);
    player.play(live, FilmPart::Live);
    ASSERT_TRUE(QTest::qWaitFor([&] { return opened.count() == 1; }, patience));
    EXPECT_EQ(QFileInfo(system.path).completeBaseName(), QFileInfo(library->devicePath(live)).completeBaseName());
    EXPECT_TRUE(system.path.endsWith(QStringLiteral(".MOV")));
}

TEST_F(Films, WithAStrangeNameAreCopiedWhereNobodyElseReadsThemAndGoWithThePlayer)
{
    Player system;
    auto player = std::make_unique<FilmPlayer>(library);
    QSignalSpy opened(player.get(), &FilmPlayer::opened);
    player->play(still, FilmPart::Original);
    ASSERT_TRUE(QTest::qWaitFor([&] { return opened.count() == 1; }, patience));
    EXPECT_TRUE(system.path.endsWith(QStringLiteral(".mov"))) << system.path.toStdString();
    EXPECT_EQ(system.bytes, folder.read(library->devicePath(still)));
    EXPECT_EQ(system.folderPermissions & (QFile::ReadGroup | QFile::ReadOther | QFile::ExeGroup | QFile::ExeOther),
              QFile::Permissions());
    const QString first = system.path;
    player->play(still, FilmPart::Original);
    ASSERT_TRUE(QTest::qWaitFor([&] { return opened.count() == 2; }, patience));
    EXPECT_EQ(system.path, first) << "the copy is still there";
    player.reset();
    EXPECT_TRUE(browser::waitForBackground(std::chrono::minutes(1)));
    EXPECT_FALSE(QFile::exists(QFileInfo(first).path()));
}

TEST_F(Films, ThatAreCancelledLeaveNothing)
{
    QString path;
    {
        const Film cancelled = fetchFilm(*library, still, FilmPart::Original, [](qint64, qint64) { return false; });
        EXPECT_EQ(cancelled.state, CopyEnd::Cancelled);
        path = cancelled.path;
    }
    EXPECT_TRUE(browser::waitForBackground(std::chrono::minutes(1)));
    EXPECT_FALSE(QFile::exists(path));
}

TEST_F(Films, ThatTookTheirCopyAwayAreCopiedAnew)
{
    Player system;
    FilmPlayer player(library);
    QSignalSpy opened(&player, &FilmPlayer::opened);
    player.play(film, FilmPart::Original);
    ASSERT_TRUE(QTest::qWaitFor([&] { return opened.count() == 1; }, patience));
    ASSERT_TRUE(QFile::remove(system.path));
    player.play(film, FilmPart::Original);
    ASSERT_TRUE(QTest::qWaitFor([&] { return opened.count() == 2; }, patience));
    EXPECT_EQ(system.bytes, folder.read(library->devicePath(film)));
}

TEST_F(Films, ThatWereEditedHaveTheResultInAFolderOfItsOwn)
{
    const QString original = library->devicePath(film);
    const QString edits = QStringLiteral("PhotoData/Mutations/") + QFileInfo(original).path() + QLatin1Char('/') +
                          QFileInfo(original).completeBaseName() + QStringLiteral("/Adjustments");
    photoItem item = *library->item(film);
    item.hasAdjustments = 1;
    EXPECT_TRUE(
        browser::renderedPathsOf(item).contains(QLatin1Char('/') + edits + QStringLiteral("/FullSizeRender.mov")));
    item.hasAdjustments = 0;
    EXPECT_TRUE(browser::renderedPathsOf(item).isEmpty());
}

TEST_F(Films, ThatAreNotThereAreReported)
{
    EXPECT_EQ(fetchFilm(*library, 999'999, FilmPart::Original, always).state, CopyEnd::Absent);
    EXPECT_EQ(fetchFilm(*library, still, FilmPart::Live, always).state, CopyEnd::Absent);
    library->stop();
    EXPECT_EQ(fetchFilm(*library, still, FilmPart::Original, always).state, CopyEnd::ReadFailed);
}

TEST_F(Films, OfADeviceThatWentAwayAreReportedAsThat)
{
    ASSERT_TRUE(QFile::rename(folder.root(), folder.root() + QStringLiteral("-away")));
    EXPECT_EQ(fetchFilm(*library, still, FilmPart::Original, always).state, CopyEnd::DeviceGone);
    ASSERT_TRUE(QFile::rename(folder.root() + QStringLiteral("-away"), folder.root()));
    EXPECT_EQ(fetchFilm(*library, still, FilmPart::Original, always).state, CopyEnd::Complete);
}

TEST_F(Films, TellHowFarTheirCopyIs)
{
    qint64 last = -1, all = 0;
    const Film copy = fetchFilm(*library, still, FilmPart::Original, [&](qint64 done, qint64 total) {
        EXPECT_GT(done, last);
        last = done;
        all = total;
        return true;
    });
    EXPECT_EQ(copy.state, CopyEnd::Complete);
    EXPECT_EQ(last, all);
    EXPECT_EQ(all, QFileInfo(folder.path(library->devicePath(still))).size());
}

TEST_F(Films, CancelledByThePersonAreNotOpened)
{
    Player system;
    FilmPlayer player(library);
    QSignalSpy opened(&player, &FilmPlayer::opened);
    bool failed = false;
    QObject::connect(&player, &FilmPlayer::failed, [&failed] { failed = true; });
    player.play(still, FilmPart::Original);
    player.cancel();
    player.play(film, FilmPart::Original);
    ASSERT_TRUE(QTest::qWaitFor([&] { return opened.count() == 1; }, patience));
    EXPECT_EQ(opened.first().first().toLongLong(), film);
    EXPECT_FALSE(failed);
}

} // namespace

#include "film_player_test.moc"
