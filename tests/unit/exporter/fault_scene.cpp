#include "tests/unit/exporter/fault_scene.h"

#include <QDir>
#include <QFileInfo>

#include <gtest/gtest.h>

using namespace exporter;
using namespace testkit;

namespace
{

const QString folder = QStringLiteral("DCIM/100APPLE");

int descriptors()
{
    return QDir(QStringLiteral("/proc/self/fd")).entryList(QDir::Files | QDir::System | QDir::NoDotAndDotDot).size();
}

QString temporaryTemplate()
{
    const QFileInfo memory(QStringLiteral("/dev/shm"));
    return (memory.isDir() && memory.isWritable() ? memory.filePath() : QDir::tempPath()) +
           QStringLiteral("/photolib-faults-XXXXXX");
}

} // namespace

FaultScene::FaultScene() : destination(temporaryTemplate())
{
    EXPECT_TRUE(destination.isValid());
    fixture.options.destination = destination.filePath(QStringLiteral("out"));
    fixture.options.layout = QStringLiteral("{created:yyyy}/{stem}");
    fixture.options.albums = true;
    fixture.options.edited = true;
    fixture.options.lastOpenFailure = [this] {
        return OpenFailure{!files.contains(lastOpened), QStringLiteral("Input/output error")};
    };
    fixture.device.onOperation([this](const Operation &operation) {
        if (operation.kind == OperationKind::OpenFile && operation.fileSystem == VDevDevice)
            lastOpened = QString::fromUtf8(operation.path);
    });
    const qint64 live = fixture.addPhoto(QStringLiteral("IMG_0001.HEIC"), "a picture that moves");
    remember(folder, QStringLiteral("IMG_0001.HEIC"), "a picture that moves");
    addFile(QStringLiteral("/DCIM/100APPLE/IMG_0001.MOV"), "its film");
    const qint64 edited = fixture.addPhoto(QStringLiteral("IMG_0002.JPG"), "before the edit");
    remember(folder, QStringLiteral("IMG_0002.JPG"), "before the edit");
    addFile(QStringLiteral("/DCIM/100APPLE/IMG_0002.AAE"), "notes");
    addFile(QStringLiteral("/PhotoData/Mutations/DCIM/100APPLE/IMG_0002/Adjustments/FullSizeRender.jpg"),
            "after the edit");
    const qint64 film = fixture.addVideo(QStringLiteral("IMG_0003.MOV"), "a film");
    remember(folder, QStringLiteral("IMG_0003.MOV"), "a film");
    album = fixture.addAlbum(QStringLiteral("Album"), {film, live, edited});
    ids = fixture.open().getPhotoList();
    files.insert(QStringLiteral("/PhotoData/Photos.sqlite"), QByteArray());
    openDescriptors = descriptors();
}

FaultScene::~FaultScene() = default;

void FaultScene::addFile(const QString &path, const QByteArray &content)
{
    fixture.addFile(path, content);
    files.insert(path, content);
}

void FaultScene::remember(const QString &directory, const QString &fileName, const QByteArray &content)
{
    files.insert(QLatin1Char('/') + directory + QLatin1Char('/') + fileName, content);
}

void FaultScene::changeDevice()
{
    addFile(QStringLiteral("/DCIM/100APPLE/IMG_0002.AAE"), "other notes, as they were written later");
    const qint64 added = fixture.addPhoto(QStringLiteral("IMG_0004.PNG"), "a new photo");
    remember(folder, QStringLiteral("IMG_0004.PNG"), "a new photo");
    fixture.library.addToAlbum(album, added);
    ids = fixture.open().getPhotoList();
    changed = true;
}

Tree FaultScene::expectedFirst()
{
    return {{QStringLiteral("2020/IMG_0001.HEIC"), "a picture that moves"},
            {QStringLiteral("2020/IMG_0001.MOV"), "its film"},
            {QStringLiteral("2020/IMG_0002.JPG"), "before the edit"},
            {QStringLiteral("2020/IMG_0002.AAE"), "notes"},
            {QStringLiteral("2020/IMG_0002_edited.jpg"), "after the edit"},
            {QStringLiteral("2020/IMG_0003.MOV"), "a film"},
            {QStringLiteral("Albums/Album/1_IMG_0003.MOV"), "a film"},
            {QStringLiteral("Albums/Album/2_IMG_0001.HEIC"), "a picture that moves"},
            {QStringLiteral("Albums/Album/2_IMG_0001.MOV"), "its film"},
            {QStringLiteral("Albums/Album/3_IMG_0002.JPG"), "before the edit"},
            {QStringLiteral("Albums/Album/3_IMG_0002.AAE"), "notes"},
            {QStringLiteral("Albums/Album/3_IMG_0002_edited.jpg"), "after the edit"}};
}

Tree FaultScene::expectedLater()
{
    Tree tree = expectedFirst();
    for (const char *name : {"3_IMG_0002.JPG", "3_IMG_0002.AAE", "3_IMG_0002_edited.jpg"})
        tree.remove(QStringLiteral("Albums/Album/") + QString::fromLatin1(name));
    const QByteArray notes = "other notes, as they were written later";
    for (const char *stem : {"2020/IMG_0002 (1)", "Albums/Album/3_IMG_0002 (1)"}) {
        tree.insert(QString::fromLatin1(stem) + QStringLiteral(".JPG"), "before the edit");
        tree.insert(QString::fromLatin1(stem) + QStringLiteral(".AAE"), notes);
        tree.insert(QString::fromLatin1(stem) + QStringLiteral("_edited.jpg"), "after the edit");
    }
    tree.insert(QStringLiteral("2020/IMG_0004.PNG"), "a new photo");
    tree.insert(QStringLiteral("Albums/Album/4_IMG_0004.PNG"), "a new photo");
    return tree;
}

void FaultScene::expectSound(const RunOutcome &outcome)
{
    EXPECT_EQ(openDescriptors, descriptors());
    EXPECT_EQ(outcome.end == RunEnd::Completed, outcome.message.isEmpty()) << qPrintable(outcome.message);
    const Tree all = changed ? expectedLater() : expectedFirst();
    const Tree before = expectedFirst();
    const Tree tree = fixture.tree();
    for (auto file = tree.begin(); file != tree.end(); ++file) {
        if (file.key().startsWith(QStringLiteral(".photolib-"))) // for hiddenFilesOf()
            continue;
        EXPECT_TRUE(all.contains(file.key()) || (changed && before.contains(file.key()))) << qPrintable(file.key());
        const QByteArray content = all.value(file.key(), before.value(file.key()));
        EXPECT_EQ(content, file.value()) << qPrintable(file.key());
    }
    for (const FileReport &report : fixture.listener->files) {
        if (report.status == FileStatus::Failed) {
            EXPECT_FALSE(report.reason.isEmpty()) << qPrintable(report.devicePath);
            continue;
        }
        const QByteArray content = files.value(report.devicePath);
        EXPECT_NE(FileStatus::Missing, report.status) << qPrintable(report.devicePath);
        EXPECT_EQ(content.size(), report.size) << qPrintable(report.devicePath);
        EXPECT_EQ(sha256Of(content), report.sha256) << qPrintable(report.devicePath);
        EXPECT_EQ(content, tree.value(report.destination)) << qPrintable(report.destination);
    }
}
