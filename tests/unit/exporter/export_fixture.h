#ifndef TESTS_UNIT_EXPORTER_EXPORT_FIXTURE_H
#define TESTS_UNIT_EXPORTER_EXPORT_FIXTURE_H

#include "exporter/exporter.h"
#include "exporter/run.h"
#include "exporter/verify.h"
#include "photolib/photolib.h"
#include "testing/fake_device.h"
#include "testing/library_builder.h"

#include <QMap>
#include <QTemporaryDir>

#include <functional>
#include <memory>
#include <optional>
#include <vector>

/// Hears everything of a run.
class Listener : public exporter::VerifyObserver
{
public:
    void progress(const exporter::ExportProgress &p) override
    {
        last = p;
        if (onProgress)
            onProgress(p);
    }
    void fileFinished(const exporter::FileReport &file) override { files.push_back(file); }
    void note(const QString &text) override { notes.append(text); }
    bool isCancelled() override { return cancelled && cancelled(); }
    void found(const exporter::VerifyFinding &finding) override { findings.push_back(finding); }

    std::vector<exporter::FileReport> files;
    std::vector<exporter::VerifyFinding> findings;
    QStringList notes;
    exporter::ExportProgress last;
    std::function<void(const exporter::ExportProgress &)> onProgress;
    std::function<bool()> cancelled;
};

/// Content by path below a folder; symbolic links read "-> target". The record is left out.
using Tree = QMap<QString, QByteArray>;

/// A device with a library and a destination for it.
class ExportFixture
{
public:
    ExportFixture();

    /// A photo of the library with its file; what is not set in `row` comes from the arguments.
    qint64 addPhoto(const QString &fileName, const QByteArray &content, testkit::AssetRow row = {});
    qint64 addVideo(const QString &fileName, const QByteArray &content, testkit::AssetRow row = {});
    qint64 addAlbum(const QString &title, const QList<qint64> &photos, testkit::AlbumRow row = {});

    /// A file on the device that the library does not name.
    void addFile(const QString &path, const QByteArray &content) { device.addFile(path, content); }

    /// Runs statements on the library, for what happened on the device between two runs.
    void change(const QString &sql) { library.exec(sql); }

    /// Exports all photos of the library, as it is now.
    exporter::RunOutcome run();
    exporter::RunOutcome run(const QList<qint64> &ids);
    exporter::VerifyOutcome verify();

    /// The library as the exporter gets it; made anew by each run().
    photo_manager_int &open();

    Tree tree() const { return treeOf(destination()); }
    QString destination() const { return options.destination; }
    QString path(const QString &below) const { return destination() + '/' + below; }
    void write(const QString &below, const QByteArray &content) const;
    QByteArray read(const QString &below) const;

    /// The reports of the last run, one line each: "exported /DCIM/... -> 2020/...".
    QStringList lines() const;
    /// The one report of a device path; fails the test when there is none.
    exporter::FileReport report(const QString &devicePath) const;

    static Tree treeOf(const QString &folder);
    static QStringList hiddenFilesOf(const QString &folder);

    testkit::FakeDevice device;
    testkit::LibraryBuilder library;
    QTemporaryDir folder;
    exporter::ExportOptions options;
    exporter::FileOperations realFiles;
    exporter::FileOperations *files = &realFiles;
    std::unique_ptr<Listener> listener;
    std::function<void(Listener &)> prepareListener;

private:
    struct Release {
        void operator()(photo_manager_int *manager) const { releasePhotolib(&manager); }
    };
    std::unique_ptr<photo_manager_int, Release> manager;
};

/// Seconds since 2001-01-01 UTC, as the library counts them.
double secondsOf(const QString &isoDate);

/// A row with this creation date (and a modification date one hour later).
testkit::AssetRow takenAt(const QString &isoDate);

QByteArray sha256Of(const QByteArray &content);

#endif
