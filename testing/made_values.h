#ifndef TESTING_MADE_VALUES_H
#define TESTING_MADE_VALUES_H

#include <QString>
#include <QtGlobal>

namespace testkit
{

/// What a made-up UUID is for, so that an asset and an album never share one.
enum class UuidUse : quint64 { Library = 1, Asset, Album, Face, Memory, Public };

/// 36 characters in the form of a random UUID, upper case, a function of its two arguments.
QString madeUuid(UuidUse use, qint64 ordinal);

/// The camera roll of a device that took one picture after the other: "DCIM/100APPLE" and "IMG_0001.JPG" for ordinal 1,
/// a new folder every 1000, numbers that start again after 9999.
QString cameraRollFolder(qint64 ordinal);
QString cameraRollName(qint64 ordinal, const QString &suffix);

} // namespace testkit

#endif
