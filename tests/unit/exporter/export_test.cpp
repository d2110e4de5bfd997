#include "tests/unit/exporter/export_fixture.h"

#include "testing/faulty_device.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <gtest/gtest.h>
#include <sys/stat.h>

using namespace exporter;
using namespace testkit;

TEST(Export, CopiesBytesUnderTheDateAndSetsTheTime)
{
    ExportFixture fixture;
    const QByteArray picture = QByteArray("picture\0with a zero", 19);
    fixture.addPhoto("IMG_0001.JPG", picture, takenAt("2019-03-04T05:06:07"));
    const RunOutcome outcome = fixture.run();
    EXPECT_EQ(RunEnd::Completed, outcome.end) << qPrintable(outcome.message);
    const QFileInfo file(fixture.path("2019/2019-03-04_IMG_0001.JPG"));
    EXPECT_EQ(QDateTime({2019, 3, 4}, {5, 6, 7}, Qt::UTC), file.lastModified().toUTC());
    EXPECT_EQ(file.lastModified(), file.lastRead());
    EXPECT_EQ((Tree{{"2019/2019-03-04_IMG_0001.JPG", picture}}), fixture.tree());
    const FileReport report = fixture.report("/DCIM/100APPLE/IMG_0001.JPG");
    EXPECT_EQ(FileStatus::Exported, report.status);
    EXPECT_EQ(QString("2019/2019-03-04_IMG_0001.JPG"), report.destination);
    EXPECT_EQ(sha256Of(picture), report.sha256);
    EXPECT_EQ(19, report.size);
    EXPECT_EQ(19, outcome.bytesExported);
    EXPECT_EQ(1, outcome.photosDone);
    EXPECT_EQ(QStringList{".photolib-export.sqlite"}, ExportFixture::hiddenFilesOf(fixture.destination()));
}

TEST(Export, FilesLongerThanABlockAreWhole)
{
    ExportFixture fixture;
    QByteArray film(5'000'001, '\0');
    for (int at = 0; at < film.size(); ++at)
        film[at] = static_cast<char>(at * 31 / 7);
    fixture.addVideo("IMG_0002.MOV", film);
    EXPECT_TRUE(fixture.run().isSuccess());
    EXPECT_EQ(film, fixture.tree().first());
}

TEST(Export, FilesOfOnePhotoShareOneName)
{
    ExportFixture fixture;
    fixture.options.layout = "{stem}";
    fixture.options.edited = true;
    fixture.addPhoto("IMG_0001.HEIC", "first");
    AssetRow row;
    row.directory = "DCIM/101APPLE";
    row.kindSubtype = 2;
    row.hasAdjustments = 1;
    fixture.addPhoto("IMG_0001.HEIC", "second", row);
    fixture.addFile("/DCIM/101APPLE/IMG_0001.MOV", "film");
    fixture.addFile("/DCIM/101APPLE/IMG_0001.AAE", "notes");
    fixture.addFile("/PhotoData/Mutations/DCIM/101APPLE/IMG_0001/Adjustments/FullSizeRender.jpg", "edit");
    fixture.addFile("/PhotoData/Mutations/DCIM/101APPLE/IMG_0001/Adjustments/FullSizeRender.mov", "edited film");
    EXPECT_TRUE(fixture.run().isSuccess());
    EXPECT_EQ((Tree{{"IMG_0001.HEIC", "first"},
                    {"IMG_0001 (1).HEIC", "second"},
                    {"IMG_0001 (1).MOV", "film"},
                    {"IMG_0001 (1).AAE", "notes"},
                    {"IMG_0001 (1)_edited.jpg", "edit"},
                    {"IMG_0001 (1)_edited.mov", "edited film"}}),
              fixture.tree());
}

TEST(Export, EditedPicturesAreLeftOutUnlessWanted)
{
    ExportFixture fixture;
    fixture.options.layout = "{stem}";
    AssetRow row;
    row.hasAdjustments = 1;
    fixture.addPhoto("IMG_0001.HEIC", "a", row);
    fixture.addFile("/PhotoData/Mutations/DCIM/100APPLE/IMG_0001/Adjustments/FullSizeRender.jpg", "edit");
    fixture.run();
    EXPECT_EQ((Tree{{"IMG_0001.HEIC", "a"}}), fixture.tree());
    fixture.options.edited = true;
    fixture.run();
    EXPECT_EQ((Tree{{"IMG_0001.HEIC", "a"}, {"IMG_0001_edited.jpg", "edit"}}), fixture.tree());
}

TEST(Export, AFilmThatIsAPhotoOfItsOwnIsNobodysCompanion)
{
    ExportFixture fixture;
    fixture.options.layout = "{stem}";
    fixture.addPhoto("DSC_1.JPG", "photo");
    fixture.addVideo("DSC_1.MOV", "video");
    fixture.run();
    EXPECT_EQ((Tree{{"DSC_1.JPG", "photo"}, {"DSC_1 (1).MOV", "video"}}), fixture.tree());
}

TEST(Export, NamesThatDifferInCaseOnlyAreTheSame)
{
    ExportFixture fixture;
    fixture.options.layout = "{stem}";
    AssetRow row;
    row.directory = "DCIM/101APPLE";
    fixture.addPhoto("Strasse.JPG", "a");
    fixture.addPhoto("STRAßE.jpg", "b", row);
    fixture.run();
    EXPECT_EQ((Tree{{"Strasse.JPG", "a"}, {"STRAßE (1).jpg", "b"}}), fixture.tree());
}

TEST(Export, ExistingFilesAreNeverReplaced)
{
    ExportFixture fixture;
    fixture.options.layout = "{stem}";
    fixture.addPhoto("IMG_0001.JPG", "new");
    fixture.write("img_0001.jpg", "old");
    fixture.run();
    EXPECT_EQ((Tree{{"img_0001.jpg", "old"}, {"IMG_0001 (1).JPG", "new"}}), fixture.tree());
}

TEST(Export, NoVideoIsPutBesideSomebodyElsesPhotoOfTheSameStem)
{
    ExportFixture fixture;
    fixture.options.layout = "{stem}";
    fixture.addVideo("IMG_0001.MOV", "video");
    fixture.write("IMG_0001.HEIC", "a photo that was there");
    fixture.run();
    EXPECT_EQ((Tree{{"IMG_0001.HEIC", "a photo that was there"}, {"IMG_0001 (1).MOV", "video"}}), fixture.tree());
}

TEST(Export, ASecondRunReadsNoFileAndCopiesNothing)
{
    ExportFixture fixture;
    fixture.addPhoto("IMG_0001.HEIC", "a");
    fixture.addFile("/DCIM/100APPLE/IMG_0001.MOV", "film");
    fixture.addVideo("IMG_0002.MOV", "b");
    fixture.run();
    const Tree before = fixture.tree();
    const RunOutcome again = fixture.run();
    EXPECT_EQ(0, fixture.device.operationCount(OperationKind::Read));
    EXPECT_EQ(3, again.count(FileStatus::Skipped));
    EXPECT_EQ(0, again.bytesExported);
    EXPECT_EQ(before, fixture.tree());
    EXPECT_EQ(sha256Of("film"), fixture.report("/DCIM/100APPLE/IMG_0001.MOV").sha256);
}

TEST(Export, AnotherLayoutLeavesWhatIsThereInItsPlace)
{
    ExportFixture fixture;
    fixture.addPhoto("IMG_0001.HEIC", "a");
    fixture.run();
    const Tree before = fixture.tree();
    fixture.options.layout = "dcim";
    EXPECT_EQ(1, fixture.run().count(FileStatus::Skipped));
    EXPECT_EQ(before, fixture.tree());
}

TEST(Export, AChangedPhotoGoesBesideItsEarlierCopyWithAllItsFiles)
{
    ExportFixture fixture;
    fixture.options.layout = "{stem}";
    fixture.addPhoto("IMG_0001.HEIC", "a");
    fixture.addFile("/DCIM/100APPLE/IMG_0001.AAE", "notes");
    fixture.run();
    fixture.addFile("/DCIM/100APPLE/IMG_0001.AAE", "other notes");
    const RunOutcome outcome = fixture.run();
    EXPECT_TRUE(outcome.isSuccess());
    EXPECT_EQ((Tree{{"IMG_0001.HEIC", "a"},
                    {"IMG_0001.AAE", "notes"},
                    {"IMG_0001 (1).HEIC", "a"},
                    {"IMG_0001 (1).AAE", "other notes"}}),
              fixture.tree());
    struct stat first = {};
    struct stat second = {};
    ASSERT_EQ(0, ::stat(fixture.path("IMG_0001.HEIC").toUtf8().constData(), &first));
    ASSERT_EQ(0, ::stat(fixture.path("IMG_0001 (1).HEIC").toUtf8().constData(), &second));
    EXPECT_EQ(first.st_ino, second.st_ino);
    EXPECT_EQ(11, outcome.bytesExported);
    EXPECT_EQ(2, fixture.run().count(FileStatus::Skipped));
}

TEST(Export, AnotherModificationDateAloneMakesNoSecondCopy)
{
    ExportFixture fixture;
    fixture.addPhoto("IMG_0001.HEIC", "a");
    fixture.run();
    const Tree before = fixture.tree();
    fixture.change("UPDATE ZASSET SET ZMODIFICATIONDATE = ZMODIFICATIONDATE + 5");
    const RunOutcome outcome = fixture.run();
    EXPECT_EQ(1, outcome.count(FileStatus::Skipped));
    EXPECT_EQ(before, fixture.tree());
    EXPECT_EQ(QStringList{".photolib-export.sqlite"}, ExportFixture::hiddenFilesOf(fixture.destination()));
    fixture.run();
    EXPECT_EQ(0, fixture.device.operationCount(OperationKind::Read)) << "the new date is remembered";
}

TEST(Export, SameSizeOtherBytesAreFoundByTheModificationDate)
{
    ExportFixture fixture;
    fixture.options.layout = "{stem}";
    fixture.addPhoto("IMG_0001.HEIC", "abc");
    fixture.run();
    fixture.addFile("/DCIM/100APPLE/IMG_0001.HEIC", "xyz");
    fixture.change("UPDATE ZASSET SET ZMODIFICATIONDATE = ZMODIFICATIONDATE + 5");
    fixture.run();
    EXPECT_EQ((Tree{{"IMG_0001.HEIC", "abc"}, {"IMG_0001 (1).HEIC", "xyz"}}), fixture.tree());
}

TEST(Export, AFileThatAppearsLaterGoesBesideTheOthers)
{
    ExportFixture fixture;
    fixture.options.layout = "{stem}";
    fixture.addPhoto("IMG_0001.HEIC", "a");
    fixture.run();
    fixture.addFile("/DCIM/100APPLE/IMG_0001.MOV", "film");
    const RunOutcome outcome = fixture.run();
    EXPECT_EQ(1, outcome.count(FileStatus::Exported));
    EXPECT_EQ(1, outcome.count(FileStatus::Skipped));
    EXPECT_EQ((Tree{{"IMG_0001.HEIC", "a"}, {"IMG_0001.MOV", "film"}}), fixture.tree());
}

TEST(Export, ARemovedFileIsCopiedAgainUnderItsName)
{
    ExportFixture fixture;
    fixture.options.layout = "{stem}";
    AssetRow row;
    row.directory = "DCIM/101APPLE";
    fixture.addPhoto("IMG_0001.HEIC", "a");
    fixture.addPhoto("IMG_0001.HEIC", "b", row);
    fixture.addFile("/DCIM/101APPLE/IMG_0001.MOV", "film");
    fixture.run();
    const Tree all = fixture.tree();
    QFile::remove(fixture.path("IMG_0001 (1).HEIC"));
    fixture.run();
    EXPECT_EQ(all, fixture.tree());
    QFile::remove(fixture.path("IMG_0001 (1).HEIC"));
    QFile::remove(fixture.path("IMG_0001 (1).MOV"));
    EXPECT_EQ(2, fixture.run().count(FileStatus::Exported));
    EXPECT_EQ(all, fixture.tree());
}

TEST(Export, AnEarlierVersionThatPeopleRemovedIsToldOnceAndNoLongerMissed)
{
    ExportFixture fixture;
    fixture.options.layout = "{stem}";
    fixture.addPhoto("A.JPG", "a");
    fixture.run();
    fixture.write("A.JPG", "changed by people");
    fixture.run();
    EXPECT_EQ((Tree{{"A.JPG", "changed by people"}, {"A (1).JPG", "a"}}), fixture.tree());
    EXPECT_EQ(1, fixture.verify().differences);
    ASSERT_TRUE(QFile::remove(fixture.path("A.JPG")));
    EXPECT_EQ(1, fixture.run().count(FileStatus::Skipped));
    EXPECT_EQ(1, fixture.listener->notes.size());
    EXPECT_EQ(0, fixture.verify().differences);
    fixture.run();
    EXPECT_TRUE(fixture.listener->notes.isEmpty());
    EXPECT_EQ((Tree{{"A (1).JPG", "a"}}), fixture.tree());
}

TEST(Export, AFileChangedByPeopleStaysAndTheOriginalComesBesideIt)
{
    ExportFixture fixture;
    fixture.options.layout = "{stem}";
    fixture.addPhoto("IMG_0001.HEIC", "abc");
    fixture.run();
    fixture.write("IMG_0001.HEIC", "retouched");
    fixture.run();
    EXPECT_EQ((Tree{{"IMG_0001.HEIC", "retouched"}, {"IMG_0001 (1).HEIC", "abc"}}), fixture.tree());
    EXPECT_EQ(1, fixture.run().count(FileStatus::Skipped));
}

TEST(Export, AnotherTimeOfAnExportedFileAloneMakesNoSecondCopy)
{
    ExportFixture fixture;
    fixture.addPhoto("IMG_0001.HEIC", "abc");
    fixture.run();
    fixture.write(fixture.tree().firstKey(), "abc");
    EXPECT_EQ(1, fixture.run().count(FileStatus::Skipped));
    EXPECT_EQ(1, fixture.tree().size());
    EXPECT_EQ(0, fixture.device.operationCount(OperationKind::Read));
}

TEST(Export, WhatIsOnlyInTheCloudIsNamedAndItsCompanionsAreKept)
{
    ExportFixture fixture;
    fixture.options.layout = "{stem}";
    fixture.addPhoto("IMG_0001.HEIC", "a");
    fixture.addPhoto("IMG_0002.HEIC", "b");
    fixture.device.removeFile("/DCIM/100APPLE/IMG_0002.HEIC");
    fixture.addFile("/DCIM/100APPLE/IMG_0002.AAE", "notes");
    const RunOutcome outcome = fixture.run();
    EXPECT_TRUE(outcome.isSuccess());
    EXPECT_EQ(
        (QStringList{"exported /DCIM/100APPLE/IMG_0001.HEIC -> IMG_0001.HEIC", "missing /DCIM/100APPLE/IMG_0002.HEIC",
                     "exported /DCIM/100APPLE/IMG_0002.AAE -> IMG_0002.AAE"}),
        fixture.lines());
    fixture.addFile("/DCIM/100APPLE/IMG_0002.HEIC", "b");
    fixture.run();
    EXPECT_EQ((Tree{{"IMG_0001.HEIC", "a"}, {"IMG_0002.AAE", "notes"}, {"IMG_0002.HEIC", "b"}}), fixture.tree());
}

TEST(Export, NamesThatLeadElsewhereAreRefusedAndNamed)
{
    ExportFixture fixture;
    AssetRow row;
    row.directory = "../../etc";
    fixture.addPhoto("passwd", "x", row);
    row.directory = "DCIM";
    fixture.addPhoto("../../x.JPG", "y", row);
    const RunOutcome outcome = fixture.run();
    EXPECT_EQ(2, outcome.count(FileStatus::Failed));
    EXPECT_TRUE(fixture.tree().isEmpty());
}

TEST(Export, HostileNamesStayInTheDestination)
{
    ExportFixture fixture;
    fixture.options.layout = "{uuid}/{stem}";
    AssetRow row;
    row.uuid = "../../../up";
    fixture.addPhoto("..\\..\\con.JPG", "a", row);
    row.uuid = "..";
    fixture.addPhoto("CON.JPG", "b", row);
    row.uuid = ".photolib-export.sqlite";
    fixture.addPhoto(QString("x").repeated(1000) + ".JPG", "c", row);
    EXPECT_TRUE(fixture.run().isSuccess()) << qPrintable(fixture.lines().join('\n'));
    EXPECT_EQ(QStringList({"out"}), QDir(fixture.folder.path()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot));
    EXPECT_EQ((QList<QByteArray>{"a", "b", "c"}), [&] {
        QList<QByteArray> all = fixture.tree().values();
        return all;
    }()) << qPrintable(fixture.tree().keys().join('\n'));
}

TEST(Export, UnknownAndRepeatedIdsAreAccountedForOnce)
{
    ExportFixture fixture;
    const qint64 id = fixture.addPhoto("IMG_0001.HEIC", "a");
    const RunOutcome outcome = fixture.run({id, 4711, id});
    EXPECT_EQ(2, outcome.photosTotal);
    EXPECT_EQ(1, outcome.count(FileStatus::Failed));
    EXPECT_EQ(1, outcome.count(FileStatus::Exported));
    EXPECT_EQ(4711, fixture.listener->files.back().photoId);
}

TEST(Export, PhotosWithTheSameUuidAreKeptApart)
{
    ExportFixture fixture;
    fixture.options.layout = "{stem}";
    AssetRow row;
    row.uuid = "SAME";
    fixture.addPhoto("A.JPG", "a", row);
    fixture.addPhoto("B.JPG", "b", row);
    fixture.run();
    EXPECT_EQ((Tree{{"A.JPG", "a"}, {"B.JPG", "b"}}), fixture.tree());
    EXPECT_EQ(2, fixture.run().count(FileStatus::Skipped));
}

TEST(Export, PhotosWithUuidsThatAreNoTextAreKeptApart)
{
    ExportFixture fixture;
    fixture.options.layout = "{stem}";
    AssetRow first;
    first.uuid = "x1";
    AssetRow second;
    second.uuid = "x2";
    fixture.addPhoto("A.JPG", "a", first);
    fixture.addPhoto("B.JPG", "b", second);
    fixture.open();
    fixture.change("UPDATE ZASSET SET ZUUID = x'FE' WHERE ZFILENAME = 'A.JPG'");
    fixture.change("UPDATE ZASSET SET ZUUID = x'FF' WHERE ZFILENAME = 'B.JPG'");
    fixture.run();
    EXPECT_EQ((Tree{{"A.JPG", "a"}, {"B.JPG", "b"}}), fixture.tree());
    EXPECT_EQ(2, fixture.run().count(FileStatus::Skipped));
    EXPECT_EQ((Tree{{"A.JPG", "a"}, {"B.JPG", "b"}}), fixture.tree());
}

TEST(Export, AUuidThatReadsLikeAnotherPhotosKeyIsKeptApart)
{
    ExportFixture fixture;
    fixture.options.layout = "{stem}";
    AssetRow row;
    row.uuid = "SAME";
    fixture.addPhoto("A.JPG", "a", row);
    fixture.addPhoto("B.JPG", "b", row);
    AssetRow third;
    third.uuid = fixture.open().getLibraryUuid() + "/SAME/1";
    fixture.addPhoto("C.JPG", "c", third);
    fixture.run();
    EXPECT_EQ((Tree{{"A.JPG", "a"}, {"B.JPG", "b"}, {"C.JPG", "c"}}), fixture.tree());
    EXPECT_EQ(3, fixture.run().count(FileStatus::Skipped));
}

TEST(Export, ManyPhotosOfOneStemAreNumberedWithFewQuestions)
{
    constexpr int count = 300;
    ExportFixture fixture;
    fixture.options.layout = "all";
    for (int number = 0; number < count; ++number)
        fixture.addPhoto(QString("IMG_%1.JPG").arg(number), QByteArray::number(number));
    fixture.write("ALL.png", "somebody else's");
    ASSERT_TRUE(fixture.run().isSuccess());
    EXPECT_EQ(count + 1, fixture.tree().size());
    EXPECT_EQ(QByteArray("0"), fixture.read("all (1).JPG"));
    EXPECT_EQ(QByteArray("299"), fixture.read("all (300).JPG"));
    // Numbers that people freed are given again, those that are in use are not.
    ASSERT_TRUE(QFile::remove(fixture.path("all (7).JPG")));
    ASSERT_TRUE(QFile::remove(fixture.path("all (5).JPG")));
    ASSERT_TRUE(QFile::remove(fixture.path("ALL.png")));
    fixture.addPhoto("NEW.JPG", "new");
    EXPECT_EQ(3, fixture.run().count(FileStatus::Exported));
    EXPECT_EQ(QByteArray("4"), fixture.read("all.JPG"));
    EXPECT_EQ(QByteArray("6"), fixture.read("all (5).JPG"));
    EXPECT_EQ(QByteArray("new"), fixture.read("all (7).JPG"));
}

TEST(Export, ABadLayoutIsToldWithItsPosition)
{
    ExportFixture fixture;
    fixture.addPhoto("IMG_0001.HEIC", "a");
    fixture.options.layout = "{created}/{nam}";
    const RunOutcome outcome = fixture.run();
    EXPECT_EQ(RunEnd::BadLayout, outcome.end);
    EXPECT_EQ(11, outcome.layoutPosition);
    EXPECT_TRUE(outcome.message.contains("fileName")) << qPrintable(outcome.message);
    EXPECT_FALSE(QFileInfo::exists(fixture.destination()));
}

TEST(Export, ProgressKnowsItsTotalsAndReachesThem)
{
    ExportFixture fixture;
    fixture.addPhoto("IMG_0001.HEIC", QByteArray(3'000'000, 'x'));
    fixture.addFile("/DCIM/100APPLE/IMG_0001.MOV", "film");
    fixture.addPhoto("IMG_0002.HEIC", "b");
    std::vector<ExportProgress> told;
    fixture.prepareListener = [&](Listener &listener) {
        listener.onProgress = [&](const ExportProgress &progress) { told.push_back(progress); };
    };
    fixture.run();
    qint64 before = 0;
    for (const ExportProgress &progress : told) {
        if (progress.phase != Phase::Copying)
            continue;
        EXPECT_EQ(2, progress.photosTotal);
        EXPECT_LE(before, progress.bytesDone);
        before = progress.bytesDone;
    }
    EXPECT_EQ(3, told.back().filesTotal);
    EXPECT_EQ(3, told.back().filesDone);
    EXPECT_EQ(3'000'005, told.back().bytesTotal);
    EXPECT_EQ(3'000'005, told.back().bytesDone);
    EXPECT_EQ(2, told.back().photosDone);
}

TEST(Export, CancellingLeavesWhatIsCompleteAndNothingElse)
{
    ExportFixture fixture;
    fixture.options.layout = "{stem}";
    fixture.options.measureFirst = false;
    fixture.addPhoto("A.JPG", "a");
    fixture.addPhoto("B.JPG", QByteArray(9'000'000, 'b'));
    fixture.addPhoto("C.JPG", "c");
    fixture.prepareListener = [&](Listener &listener) {
        Listener *const self = &listener;
        listener.cancelled = [self] { return self->last.bytesDone > 3'000'000; };
    };
    const RunOutcome outcome = fixture.run();
    EXPECT_EQ(RunEnd::Cancelled, outcome.end);
    EXPECT_EQ(1, outcome.photosDone);
    EXPECT_EQ((Tree{{"A.JPG", "a"}}), fixture.tree());
    EXPECT_EQ(QStringList{".photolib-export.sqlite"}, ExportFixture::hiddenFilesOf(fixture.destination()));
    fixture.prepareListener = nullptr;
    EXPECT_EQ(2, fixture.run().count(FileStatus::Exported));
    EXPECT_EQ(3, fixture.tree().size());
}

TEST(Export, ADryRunPlansTheNamesAndWritesNothing)
{
    ExportFixture fixture;
    fixture.options.layout = "{stem}";
    fixture.options.albums = true;
    AssetRow row;
    row.directory = "DCIM/101APPLE";
    const qint64 id = fixture.addPhoto("IMG_0001.HEIC", "a");
    fixture.addFile("/DCIM/100APPLE/IMG_0001.MOV", "film");
    fixture.addPhoto("img_0001.heic", "b", row);
    fixture.addAlbum("Album", {id});
    fixture.options.dryRun = true;
    const RunOutcome planned = fixture.run();
    const QStringList plan = fixture.lines();
    EXPECT_FALSE(QFileInfo::exists(fixture.destination()));
    EXPECT_EQ(0, fixture.device.operationCount(OperationKind::Read));
    EXPECT_EQ(6, planned.bytesExported);
    fixture.options.dryRun = false;
    fixture.run();
    EXPECT_EQ(plan, fixture.lines());

    fixture.options.dryRun = true;
    fixture.addFile("/DCIM/101APPLE/img_0001.heic", "bigger");
    const QFileInfo record(fixture.path(".photolib-export.sqlite"));
    const QDateTime time = record.lastModified();
    const Tree before = fixture.tree();
    fixture.run();
    EXPECT_EQ((QStringList{"skipped /DCIM/100APPLE/IMG_0001.HEIC -> IMG_0001.HEIC",
                           "skipped /DCIM/100APPLE/IMG_0001.MOV -> IMG_0001.MOV",
                           "exported /DCIM/101APPLE/img_0001.heic -> img_0001 (2).heic"}),
              fixture.lines());
    EXPECT_EQ(before, fixture.tree());
    EXPECT_EQ(time, QFileInfo(record.filePath()).lastModified());
}
