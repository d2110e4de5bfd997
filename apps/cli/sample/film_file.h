#ifndef APPS_CLI_SAMPLE_FILM_FILE_H
#define APPS_CLI_SAMPLE_FILM_FILE_H

#include <QByteArray>
#include <QSize>
#include <QVector>

namespace sample
{

/// A QuickTime film whose one track is a sequence of JPEG pictures.
/// `frames`: whole JPEG files of `size` pixels each; `framesPerSecond`: how fast they follow each other.
/// `seconds1904`: creation time, seconds since 1904-01-01 UTC.
QByteArray filmFile(const QVector<QByteArray> &frames, const QSize &size, int framesPerSecond, quint32 seconds1904);

} // namespace sample

#endif
