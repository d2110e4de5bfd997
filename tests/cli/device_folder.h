#ifndef TESTS_CLI_DEVICE_FOLDER_H
#define TESTS_CLI_DEVICE_FOLDER_H

#include "testing/library_builder.h"

#include <QTemporaryDir>

namespace clitest
{

/// A device folder in a temporary place.
class DeviceFolder
{
public:
    DeviceFolder();

    /// With a library in it.
    explicit DeviceFolder(testkit::LibraryBuilder &builder);

    QString path() const { return folder.path(); }
    QString database() const { return folder.path() + QStringLiteral("/PhotoData/Photos.sqlite"); }

    /// Replaces the database file by these bytes.
    void setDatabase(const QByteArray &bytes);
    QByteArray databaseBytes() const;

private:
    QTemporaryDir folder;
};

/// Options for a library of few rows.
testkit::BuilderOptions plain();

/// Seven assets, dated 2019-01-01 12:00 UTC and on, a year apart:
/// 1 favorite, 2 hidden, 3 video, 4 recently deleted, 5 favorite screenshot, 6 burst, 7 with a place.
/// Albums: 1 "Trip" (5, 1, 4), 2 "Straße, \"quoted\"" (2), 3 a nameless built-in one. Person 9 is in 1 and 5.
/// Memory 1, "Summer / Sea", holds 1 and 7.
class SmallLibrary
{
public:
    SmallLibrary();
    testkit::LibraryBuilder builder;
};

/// Seconds since 2001 of noon UTC on 1 January of `year`.
double newYearNoon(int year);

} // namespace clitest

#endif
