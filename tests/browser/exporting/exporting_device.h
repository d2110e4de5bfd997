#ifndef TESTS_BROWSER_EXPORTING_EXPORTING_DEVICE_H
#define TESTS_BROWSER_EXPORTING_EXPORTING_DEVICE_H

#include "apps/browser/library/background.h"
#include "photolib/photolib.h"
#include "tests/browser/support/opened_folder.h"
#include "tests/cli/sample/sample_folder.h"

#include <QDirIterator>
#include <QFile>
#include <QTemporaryDir>
#include <QVector>

#include <gtest/gtest.h>

#include <chrono>
#include <vector>

/// A sample device with an open library, and a folder for exports.
class ExportingDevice : public testing::Test
{
protected:
    static constexpr int patience = 60'000; // milliseconds

    static SampleFolder &device()
    {
        static SampleFolder folder;
        return folder;
    }

    /// After the objects of the test are gone, so that no thread of theirs outlives it.
    ~ExportingDevice() override
    {
        browser::retire(std::move(library));
        EXPECT_TRUE(browser::waitForBackground(std::chrono::milliseconds(patience)));
        browser::waitForRetired();
    }

    void SetUp() override
    {
        library = openFolder(device().root());
        ASSERT_NE(library, nullptr);
        for (const qint64 id : library->library().getPhotoList())
            (QFile::exists(originalOf(id)) ? here : absent).push_back(id);
        ASSERT_GT(here.size(), 200U);
        for (std::size_t i = 0; i < here.size(); i += 8)
            some.push_back(here[i]);
        ASSERT_FALSE(absent.empty());
    }

    QString originalOf(qint64 id) { return device().path(library->devicePath(id)); }
    QString target() const { return temporary.filePath(QStringLiteral("target")); }

    std::vector<qint64> firstHere(std::size_t count) const
    {
        return {here.begin(), here.begin() + std::ptrdiff_t(count)};
    }

    /// A photo that is on the device, and whose path begins so.
    qint64 firstBelow(const char *folder)
    {
        for (const qint64 id : here)
            if (library->devicePath(id).startsWith(QLatin1String(folder)))
                return id;
        ADD_FAILURE() << folder;
        return 0;
    }

    static QVector<qint64> asVector(const std::vector<qint64> &ids) { return QVector<qint64>(ids.begin(), ids.end()); }

    static QByteArray read(const QString &path)
    {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    /// Takes a file away from the device and brings it back.
    class Absence
    {
    public:
        explicit Absence(QString path) : file(std::move(path)) { EXPECT_TRUE(QFile::rename(file, kept())); }
        ~Absence() { EXPECT_TRUE(QFile::rename(kept(), file)); }
        Absence(const Absence &) = delete;
        Absence &operator=(const Absence &) = delete;

    private:
        QString kept() const { return file + QStringLiteral(".kept"); }
        const QString file;
    };

    /// Files below the folder, without the exporter's record.
    static QStringList filesIn(const QString &folder)
    {
        QStringList files;
        QDirIterator all(folder, QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
        while (all.hasNext())
            if (const QString file = all.next(); !file.contains(QStringLiteral(".photolib-export")))
                files += file;
        files.sort();
        return files;
    }

    QTemporaryDir temporary;
    std::shared_ptr<browser::OpenedLibrary> library;
    std::vector<qint64> here, absent; ///< whether the original is on the device
    std::vector<qint64> some;         ///< of those that are here, of all kinds
};

#endif
