#ifndef TESTS_CLI_SAMPLE_SAMPLE_FOLDER_H
#define TESTS_CLI_SAMPLE_SAMPLE_FOLDER_H

#include "apps/cli/sample/sample_device.h"
#include "testing/sql_connection.h"

#include <QByteArray>
#include <QMap>
#include <QTemporaryDir>

enum class SampleParts { All, DatabaseOnly };

/// A sample device in a folder of its own that goes with the object. One with its database only is made much faster;
/// the sizes in it are not those of files.
class SampleFolder
{
public:
    explicit SampleFolder(const QString &era = QString(), SampleParts parts = SampleParts::All);

    bool written() const { return complete; }
    const QString &error() const { return message; }
    const sample::SampleReport &report() const { return counts; }

    QString root() const { return temporary.filePath(QStringLiteral("device")); }
    QString path(const QString &relative) const { return root() + QLatin1Char('/') + relative; }
    /// Empty when the file cannot be read.
    QByteArray read(const QString &relative) const;
    /// Every file below the root with its content, by relative path.
    QMap<QString, QByteArray> contents() const;

    /// Rows of a copy of the database, read with or without what is only in its write-ahead log.
    std::vector<std::vector<testkit::SqlValue>> rows(const QString &sql, bool withWal = true) const;

private:
    QTemporaryDir temporary;
    sample::SampleReport counts;
    QString message;
    bool complete = false;
};

/// The value as a number or as text; 0 and null when it is something else.
qint64 numberOf(const testkit::SqlValue &value);
QString textOf(const testkit::SqlValue &value);

#endif
