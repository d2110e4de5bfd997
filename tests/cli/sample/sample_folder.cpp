#include "tests/cli/sample/sample_folder.h"

#include "apps/cli/sample/library_writer.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>

SampleFolder::SampleFolder(const QString &era, SampleParts parts)
{
    if (parts == SampleParts::DatabaseOnly) {
        const auto release = *testkit::eraFromName(era.isEmpty() ? sample::defaultEra() : era);
        sample::FileStore files(root());
        sample::writeLibrary(files, sample::makePlan(release), release, counts);
        complete = true;
        return;
    }
    sample::SampleOptions options;
    options.directory = root();
    options.era = era;
    complete = sample::writeSampleDevice(options, &message, &counts) == sample::SampleOutcome::Written;
}

QByteArray SampleFolder::read(const QString &relative) const
{
    QFile file(path(relative));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QMap<QString, QByteArray> SampleFolder::contents() const
{
    QMap<QString, QByteArray> all;
    QDirIterator files(root(), QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
    while (files.hasNext()) {
        const QString name = QDir(root()).relativeFilePath(files.next());
        all.insert(name, read(name));
    }
    return all;
}

std::vector<std::vector<testkit::SqlValue>> SampleFolder::rows(const QString &sql, bool withWal) const
{
    const QTemporaryDir copy;
    const QString name = QStringLiteral("Photos.sqlite");
    QFile::copy(path(QStringLiteral("PhotoData/") + name), copy.filePath(name));
    if (withWal)
        QFile::copy(path(QStringLiteral("PhotoData/") + name + QStringLiteral("-wal")),
                    copy.filePath(name + QStringLiteral("-wal")));
    testkit::SqlConnection connection(copy.filePath(name));
    return connection.rows(sql);
}

qint64 numberOf(const testkit::SqlValue &value)
{
    if (const auto *real = std::get_if<double>(&value.storage()))
        return static_cast<qint64>(*real);
    const auto *number = std::get_if<qint64>(&value.storage());
    return number == nullptr ? 0 : *number;
}

QString textOf(const testkit::SqlValue &value)
{
    const auto *text = std::get_if<testkit::SqlValue::TextBytes>(&value.storage());
    return text == nullptr ? QString() : QString::fromUtf8(text->bytes);
}
