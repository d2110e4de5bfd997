#include "tests/unit/exporter/export_fixture.h"

#include "testing/log_recorder.h"

#include <QCryptographicHash>
#include <QDir>
#include <QDirIterator>
#include <QFile>

#include <gtest/gtest.h>

using namespace exporter;
using namespace testkit;

namespace
{

BuilderOptions bareLibrary()
{
    BuilderOptions options;
    options.builtinAlbums = false;
    options.indices = false;
    return options;
}

} // namespace

double secondsOf(const QString &isoDate)
{
    const QDateTime date = QDateTime::fromString(isoDate + "Z", Qt::ISODate);
    return static_cast<double>(date.toMSecsSinceEpoch()) / 1000.0 - 978307200.0;
}

AssetRow takenAt(const QString &isoDate)
{
    AssetRow row;
    row.dateCreated = secondsOf(isoDate);
    row.modificationDate = secondsOf(isoDate) + 3600;
    return row;
}

QByteArray sha256Of(const QByteArray &content)
{
    return QCryptographicHash::hash(content, QCryptographicHash::Sha256).toHex();
}

ExportFixture::ExportFixture() : library(Era::Ios15, bareLibrary())
{
    options.destination = folder.path() + "/out";
    options.utcDates = true;
    options.reserve = 0;
}

qint64 ExportFixture::addPhoto(const QString &fileName, const QByteArray &content, AssetRow row)
{
    row.fileName = fileName;
    if (row.directory.isNull())
        row.directory = "DCIM/100APPLE";
    if (!row.dateCreated)
        row.dateCreated = secondsOf("2020-05-17T12:30:00");
    if (!row.modificationDate)
        row.modificationDate = *row.dateCreated + 60;
    device.addFile('/' + row.directory + '/' + fileName, content);
    return library.addAsset(row);
}

qint64 ExportFixture::addVideo(const QString &fileName, const QByteArray &content, AssetRow row)
{
    row.kind = 1;
    return addPhoto(fileName, content, row);
}

qint64 ExportFixture::addAlbum(const QString &title, const QList<qint64> &photos, AlbumRow row)
{
    row.title = title;
    const qint64 album = library.addAlbum(row);
    for (const qint64 photo : photos)
        library.addToAlbum(album, photo);
    return album;
}

photo_manager_int &ExportFixture::open()
{
    manager.reset();
    device.addFile("/PhotoData/Photos.sqlite", library.bytes().database);
    manager.reset(getPhotolib(&device));
    // Two handles stay open after each opening, as hosts know.
    LogRecorder log;
    EXPECT_TRUE(manager->openLibrary());
    log.takeAll();
    device.expectLeftOpen(device.openHandles().size());
    return *manager;
}

RunOutcome ExportFixture::run()
{
    return run(open().getPhotoList());
}

RunOutcome ExportFixture::run(const QList<qint64> &ids)
{
    if (manager == nullptr)
        open();
    listener = std::make_unique<Listener>();
    if (prepareListener)
        prepareListener(*listener);
    device.clearOperations();
    return runWith(*files, *manager, device, ids, options, *listener);
}

VerifyOutcome ExportFixture::verify()
{
    listener = std::make_unique<Listener>();
    if (prepareListener)
        prepareListener(*listener);
    return verifyWith(*files, destination(), *listener);
}

void ExportFixture::write(const QString &below, const QByteArray &content) const
{
    QDir().mkpath(QFileInfo(path(below)).path());
    QFile file(path(below));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    ASSERT_EQ(content.size(), file.write(content));
}

QByteArray ExportFixture::read(const QString &below) const
{
    QFile file(path(below));
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << below.toStdString();
    return file.readAll();
}

QStringList ExportFixture::lines() const
{
    static const char *const words[] = {"exported", "adopted", "skipped", "missing", "failed"};
    QStringList result;
    for (const FileReport &file : listener->files) {
        QString line = QString(words[static_cast<std::size_t>(file.status)]) + ' ' + file.devicePath;
        if (!file.destination.isEmpty())
            line += " -> " + file.destination;
        if (!file.reason.isEmpty())
            line += ": " + file.reason;
        result.append(line);
    }
    return result;
}

FileReport ExportFixture::report(const QString &devicePath) const
{
    for (const FileReport &file : listener->files) {
        if (file.devicePath == devicePath)
            return file;
    }
    ADD_FAILURE() << "no report of " << devicePath.toStdString();
    return {};
}

Tree ExportFixture::treeOf(const QString &folder)
{
    Tree tree;
    QDirIterator walk(folder, QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot,
                      QDirIterator::Subdirectories);
    while (walk.hasNext()) {
        const QString path = walk.next();
        const QString name = path.mid(folder.size() + 1);
        if (name.startsWith(".photolib-export.sqlite"))
            continue;
        const QFileInfo info(path);
        QFile file(path);
        if (info.isSymLink())
            tree.insert(name, "-> " + info.symLinkTarget().toUtf8());
        else if (info.isFile() && file.open(QIODevice::ReadOnly))
            tree.insert(name, file.readAll());
    }
    return tree;
}

QStringList ExportFixture::hiddenFilesOf(const QString &folder)
{
    return QDir(folder).entryList({".photolib-*"}, QDir::Files | QDir::Hidden | QDir::System);
}
