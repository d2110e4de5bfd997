#include "tests/cli/command_run.h"
#include "tests/cli/media_device.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonObject>
#include <QTemporaryDir>

namespace clitest
{

namespace
{

using testing::HasSubstr;

class ExportCommand : public testing::Test
{
protected:
    QString dest() const { return folder.path() + "/backup"; }
    QString dest(const QString &relative) const { return dest() + QChar('/') + relative; }

    RunResult exportAll(const QStringList &options = {})
    {
        return run(QStringList{"export", device.path(), dest()} + options);
    }

    MediaDevice device;
    const QTemporaryDir folder;
};

void write(const QString &name, const QByteArray &content)
{
    QFile file(name);
    EXPECT_TRUE(file.open(QIODevice::WriteOnly)) << name.toStdString();
    file.write(content);
}

// The rows of a JSON report by source.
QMap<QString, QJsonObject> rowsOf(const QString &report)
{
    QMap<QString, QJsonObject> rows;
    for (const QJsonValue &row : QJsonDocument::fromJson(contentOfFile(report)).array())
        rows.insert(row.toObject().value("source").toString(), row.toObject());
    return rows;
}

} // namespace

TEST_F(ExportCommand, CopiesEveryByteWithTheTimeOfThePicture)
{
    device.addPhotos(3, 5000);
    device.write();
    const RunResult result = exportAll();
    EXPECT_EQ(result.code, 0) << result.err.toStdString();
    EXPECT_EQ(result.err, QByteArray());
    EXPECT_EQ(result.out, dest().toUtf8() + ": 3 photos and videos: 3 files exported (15.0 kB)\n");
    for (int n = 1; n <= 3; ++n) {
        const QString name = dest(QStringLiteral("2020/2020-01-01_IMG_000%1.JPG").arg(n));
        EXPECT_EQ(contentOfFile(name), bytesOfPhoto(n, 5000));
        EXPECT_EQ(QFileInfo(name).lastModified().toUTC(), QDateTime(QDate(2020, 1, 1), QTime(12, 0, n), Qt::UTC));
    }
    EXPECT_EQ(treeOf(dest()).size(), 3);
}

TEST_F(ExportCommand, SecondRunCopiesWhatIsNewOnly)
{
    device.addPhotos(3, 5000);
    device.write();
    EXPECT_EQ(exportAll().code, 0);
    const auto before = treeOf(dest());
    const RunResult again = exportAll();
    EXPECT_EQ(again.code, 0);
    EXPECT_THAT(again.out.toStdString(), HasSubstr(": 0 files exported (0 B), 3 already there\n"));
    EXPECT_EQ(treeOf(dest()), before);
    device.addPhoto("NEW.JPG", 100);
    device.write();
    EXPECT_THAT(exportAll().out.toStdString(), HasSubstr(": 1 file exported (100 B), 3 already there\n"));
    EXPECT_EQ(treeOf(dest()).size(), 4);
}

TEST_F(ExportCommand, SelectionChoosesPhotos)
{
    device.addPhotos(5, 50);
    device.write();
    EXPECT_EQ(exportAll({"--limit", "2"}).code, 0);
    EXPECT_EQ(treeOf(dest()).size(), 2);
    const RunResult none = exportAll({"--favorite"});
    EXPECT_EQ(none.code, 0);
    EXPECT_EQ(none.err, QByteArray("photolib: no photos match\n"));
}

TEST_F(ExportCommand, MadeUpDeviceComesOutWhole)
{
    const QString sample = folder.path() + "/sample";
    ASSERT_EQ(run({"sample", sample}).code, 0);
    const QString report = dest("report.json");
    const RunResult result =
        run({"export", sample, dest(), "--layout", "dcim", "--edited", "--albums", "--verify", "--report", report});
    EXPECT_EQ(result.code, 1) << result.err.toStdString(); // some originals are only in the cloud
    EXPECT_THAT(result.out.toStdString(), HasSubstr(" verified, no difference\n"));
    EXPECT_THAT(result.err.toStdString(), HasSubstr("in the cloud only"));
    int exported = 0;
    int missing = 0;
    for (const QJsonObject &row : rowsOf(report)) {
        const QString source = row.value("source").toString();
        if (row.value("status") == "missing") {
            ++missing;
            EXPECT_FALSE(QFile::exists(sample + source)) << source.toStdString();
            continue;
        }
        ++exported;
        ASSERT_EQ(row.value("status"), "exported") << source.toStdString();
        EXPECT_EQ(contentOfFile(sample + source), contentOfFile(dest(row.value("destination").toString())))
            << source.toStdString();
    }
    EXPECT_GT(exported, 240);
    EXPECT_GT(missing, 0);
    EXPECT_TRUE(QDir(dest("Albums/Kyoto")).exists());
    const auto before = treeOf(dest());
    EXPECT_THAT(run({"export", sample, dest(), "--layout", "dcim", "--edited", "--albums"}).out.toStdString(),
                HasSubstr(": 0 files exported"));
    EXPECT_EQ(treeOf(dest()), before);
}

TEST_F(ExportCommand, LivePhotoKeepsItsFilm)
{
    testkit::AssetRow row;
    row.kindSubtype = 2;
    device.addPhoto("IMG_1.HEIC", 70, row);
    device.addFile("DCIM/100APPLE/IMG_1.MOV", "film");
    device.write();
    EXPECT_EQ(exportAll({"--layout", "{stem}"}).code, 0);
    EXPECT_EQ(contentOfFile(dest("IMG_1.MOV")), QByteArray("film"));
    EXPECT_EQ(contentOfFile(dest("IMG_1.HEIC")), bytesOfPhoto(1, 70));
}

TEST_F(ExportCommand, OriginalsInTheCloudAreToldApartFromFailures)
{
    device.addPhotos(4, 50);
    device.removeFile("DCIM/100APPLE/IMG_0002.JPG");
    device.removeFile("DCIM/100APPLE/IMG_0003.JPG");
    QDir().mkpath(device.path("DCIM/100APPLE/IMG_0003.JPG")); // a folder cannot be read as a file
    device.write();
    const QString report = folder.path() + "/report.json";
    const RunResult result = exportAll({"--report", report});
    EXPECT_EQ(result.code, 1);
    EXPECT_THAT(result.out.toStdString(), HasSubstr("2 files exported (100 B), 1 not on the device, 1 failed\n"));
    EXPECT_THAT(result.err.toStdString(), HasSubstr("photolib: /DCIM/100APPLE/IMG_0003.JPG: "));
    EXPECT_THAT(result.err.toStdString(), HasSubstr("photolib: 1 original is not on the device, but in the cloud only, "
                                                    "or lost:\n  /DCIM/100APPLE/IMG_0002.JPG\n"));
    const auto rows = rowsOf(report);
    EXPECT_EQ(rows.size(), 4);
    EXPECT_EQ(rows["/DCIM/100APPLE/IMG_0001.JPG"].value("status"), "exported");
    EXPECT_EQ(rows["/DCIM/100APPLE/IMG_0001.JPG"].value("size"), 50);
    EXPECT_EQ(rows["/DCIM/100APPLE/IMG_0001.JPG"].value("sha256").toString().size(), 64);
    EXPECT_EQ(rows["/DCIM/100APPLE/IMG_0002.JPG"].value("status"), "missing");
    EXPECT_EQ(rows["/DCIM/100APPLE/IMG_0003.JPG"].value("status"), "failed");
    EXPECT_FALSE(rows["/DCIM/100APPLE/IMG_0003.JPG"].value("reason").toString().isEmpty());
    EXPECT_FALSE(rows["/DCIM/100APPLE/IMG_0002.JPG"].contains("size"));
}

TEST_F(ExportCommand, FailuresBeyondTheFirstAreCountedOnly)
{
    for (int n = 1; n <= 30; ++n) {
        device.addPhoto(QStringLiteral("IMG_%1.JPG").arg(n), 1);
        device.removeFile(QStringLiteral("DCIM/100APPLE/IMG_%1.JPG").arg(n));
    }
    device.write();
    const RunResult result = exportAll();
    EXPECT_EQ(result.code, 1);
    EXPECT_EQ(result.err.count("\n  /DCIM/"), 20);
    EXPECT_THAT(result.err.toStdString(), HasSubstr("\n  and 10 more; --report FILE lists them all\n"));
}

TEST_F(ExportCommand, ReportAsCsvHasOneLineAFile)
{
    device.addPhoto("a,\"b\".JPG", 10);
    device.write();
    const QString report = dest("report.CSV"); // in a folder that is not there yet
    EXPECT_EQ(exportAll({"--report", report}).code, 0);
    const QByteArrayList lines = contentOfFile(report).split('\n');
    ASSERT_EQ(lines.size(), 3);
    EXPECT_EQ(lines[0], QByteArray("status,role,photoId,uuid,source,destination,size,sha256,reason\r"));
    EXPECT_TRUE(lines[1].startsWith("exported,original,1,")) << lines[1].toStdString();
    EXPECT_TRUE(lines[1].contains(",\"/DCIM/100APPLE/a,\"\"b\"\".JPG\",")) << lines[1].toStdString();
    EXPECT_EQ(exportAll({"--report", report}).code, 0); // the same command again
    EXPECT_TRUE(contentOfFile(report).contains("\r\nskipped,original,1,"));
}

TEST_F(ExportCommand, ReportThatCannotBeWrittenIsStatusFive)
{
    device.addPhotos(1, 10);
    device.write();
    write(folder.path() + "/file", "");
    EXPECT_EQ(exportAll({"--report", folder.path() + "/none/report.csv"}).code, 5);
    EXPECT_EQ(exportAll({"--report", folder.path() + "/file/report.csv"}).code, 5);
    EXPECT_EQ(namesIn(folder.path()), QStringList{"file"}); // noticed before anything was done
    QFile::link("/dev/full", folder.path() + "/full.csv");
    const RunResult full = exportAll({"--report", folder.path() + "/full.csv"});
    EXPECT_EQ(full.code, 5);
    EXPECT_THAT(full.err.toStdString(), HasSubstr("No space left"));
    EXPECT_EQ(treeOf(dest()).size(), 1); // the export itself is complete
}

TEST_F(ExportCommand, DryRunListsAndWritesNothing)
{
    device.addPhotos(2, 4000);
    device.write();
    const RunResult result = exportAll({"--dry-run"});
    EXPECT_EQ(result.code, 0) << result.err.toStdString();
    EXPECT_THAT(result.out.toStdString(),
                HasSubstr("  4.0 kB  /DCIM/100APPLE/IMG_0002.JPG -> 2020/2020-01-01_IMG_0002.JPG\n"));
    EXPECT_THAT(result.out.toStdString(), HasSubstr(": 2 files to export (8.0 kB)\n"));
    EXPECT_TRUE(namesIn(folder.path()).isEmpty());
}

TEST_F(ExportCommand, VerifyFindsWhatNoLongerIsAsItWas)
{
    device.addPhotos(3, 100);
    device.write();
    EXPECT_EQ(exportAll({"--verify"}).code, 0);
    const QString name = dest("2020/2020-01-01_IMG_0002.JPG");
    const QDateTime time = QFileInfo(name).lastModified();
    write(name, QByteArray(100, 'x'));
    QFile file(name);
    ASSERT_TRUE(file.open(QIODevice::ReadWrite));
    ASSERT_TRUE(file.setFileTime(time, QFileDevice::FileModificationTime));
    file.close();
    const QString report = folder.path() + "/report.json";
    const RunResult result = exportAll({"--verify", "--report", report});
    EXPECT_EQ(result.code, 1);
    EXPECT_THAT(result.err.toStdString(), HasSubstr("photolib: 2020/2020-01-01_IMG_0002.JPG: "));
    EXPECT_THAT(result.out.toStdString(), HasSubstr(": 3 files verified, 1 difference\n"));
    EXPECT_TRUE(contentOfFile(report).contains("{\"status\":\"damaged\",\"role\":\"original\""))
        << contentOfFile(report).toStdString();
}

TEST_F(ExportCommand, HostileNamesStayInTheDestination)
{
    const QStringList names = {"../../../evil.JPG", "..", "CON.JPG", "a\nb.JPG", ".hidden.JPG", "x/../../y.JPG"};
    for (const QString &name : names) {
        testkit::AssetRow row;
        row.fileName = name;
        device.builder.addAsset(row);
    }
    testkit::AssetRow up;
    up.directory = "../../..";
    up.fileName = "etc/passwd";
    device.builder.addAsset(up);
    device.addFile("DCIM/100APPLE/CON.JPG", "con");
    device.addFile("DCIM/100APPLE/a\nb.JPG", "line");
    device.addFile("DCIM/100APPLE/.hidden.JPG", "hidden");
    device.write();
    for (const char *layout : {"{directory}/{fileName}", "dcim"}) {
        const RunResult result = exportAll({"--layout", layout});
        EXPECT_EQ(result.code, 1);
        EXPECT_FALSE(result.err.contains('\r'));
        EXPECT_EQ(namesIn(folder.path()), QStringList{"backup"}) << result.err.toStdString();
    }
    for (const QString &name : treeOf(dest()).keys()) {
        EXPECT_FALSE(name.contains("..")) << name.toStdString();
        EXPECT_FALSE(name.contains('\n')) << name.toStdString();
        EXPECT_FALSE(name.contains("/.")) << name.toStdString();
    }
    EXPECT_EQ(treeOf(dest()).size(), 3);
}

TEST_F(ExportCommand, DeviceIsNeverADestination)
{
    device.addPhotos(1, 10);
    device.write();
    const auto before = treeOf(device.path());
    QFile::link(device.path("DCIM"), folder.path() + "/link");
    const QString parent = QFileInfo(device.path()).path();
    for (const QString &place : {device.path(), device.path("DCIM/new/folder"), folder.path() + "/link/new",
                                 device.path("DCIM/../backup"), parent}) {
        const RunResult result = run({"export", device.path(), place});
        EXPECT_EQ(result.code, 2) << place.toStdString();
        EXPECT_THAT(result.err.toStdString(), HasSubstr("nothing is ever written"));
        EXPECT_EQ(run({"export", device.path(), place, "--dry-run"}).code, 2);
    }
    EXPECT_EQ(exportAll({"--report", device.path("report.csv")}).code, 2);
    EXPECT_EQ(treeOf(device.path()), before);
}

TEST_F(ExportCommand, WrongLinesAreRefusedBeforeAnythingIsRead)
{
    const QList<QPair<QStringList, const char *>> lines = {
        {{"/dev"}, "DEST"},
        {{"/dev", "x", "--layout", "{nonsense}"}, "--layout \"{nonsense}\" is wrong at character "},
        {{"/dev", "x", "--layout", "{created"}, "is wrong at character"},
        {{"/dev", "x", "--retries", "-1"}, "--retries"},
        {{"/dev", "x", "--retries", "many"}, "--retries"},
        {{"/dev", "x", "--report", "report.txt"}, ".csv or .json"},
        {{"/dev", "x", "--dry-run", "--verify"}, "--verify"},
        {{"/dev", "x", "--limit", "-1"}, "--limit"},
    };
    for (const auto &line : lines) {
        const RunResult result = run(QStringList{"export"} + line.first);
        EXPECT_EQ(result.code, 2) << line.first.join(' ').toStdString();
        EXPECT_EQ(result.err.count('\n'), 1);
        EXPECT_THAT(result.err.toStdString(), HasSubstr(line.second));
    }
    device.write();
    EXPECT_EQ(run({"export", device.path(), ""}).code, 2);
    EXPECT_EQ(run({"export", "/nonexistent/device", dest()}).code, 3);
    EXPECT_TRUE(namesIn(folder.path()).isEmpty());
}

TEST_F(ExportCommand, DestinationThatCannotBeWrittenIsStatusFive)
{
    device.addPhotos(1, 10);
    device.write();
    write(folder.path() + "/file", "mine");
    for (const QString &place : {folder.path() + "/file", folder.path() + "/file/below", QString("/proc/backup")}) {
        const RunResult result = run({"export", device.path(), place});
        EXPECT_EQ(result.code, 5) << place.toStdString();
        EXPECT_THAT(result.err.toStdString(), HasSubstr(place.toStdString()));
    }
    EXPECT_EQ(contentOfFile(folder.path() + "/file"), QByteArray("mine"));
}

TEST_F(ExportCommand, DamagedRecordIsNeverReplacedSilently)
{
    device.addPhotos(1, 10);
    device.write();
    QDir().mkpath(dest());
    const QByteArray noDatabase(5000, 'x');
    write(dest(".photolib-export.sqlite"), noDatabase);
    const RunResult result = exportAll();
    EXPECT_EQ(result.code, 5);
    EXPECT_THAT(result.err.toStdString(), HasSubstr(".photolib-export.sqlite"));
    EXPECT_EQ(contentOfFile(dest(".photolib-export.sqlite")), noDatabase);
}

} // namespace clitest
