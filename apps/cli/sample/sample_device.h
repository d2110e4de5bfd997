#ifndef APPS_CLI_SAMPLE_SAMPLE_DEVICE_H
#define APPS_CLI_SAMPLE_SAMPLE_DEVICE_H

#include <QString>
#include <QStringList>

#include <functional>

namespace sample
{

struct SampleOptions {
    QString directory; ///< the folder that becomes the device's media root; absent or empty
    QString era;       ///< a name of sampleEras(), in any case; empty: defaultEra()
};

struct SampleReport {
    int assets = 0;
    int albums = 0; ///< those that the made-up owner made or got, not the built-in ones
    int faces = 0;
    int memories = 0;
    int files = 0;
    qint64 bytes = 0;
};

enum class SampleOutcome {
    Written, ///< the device is complete
    Stopped, ///< the callback wanted no more
    Failed,
};

/// Hears how many of the `total` photos and videos are made: before each of them, and at the very end. Answering false
/// stops the work. Called on the thread that called writeSampleDevice().
using SampleProgress = std::function<bool(int done, int total)>;

/// The names that SampleOptions::era accepts, oldest first ("ios13", "ios15", ...).
QStringList sampleEras();
QString defaultEra();

/// Writes a made-up device: its photo database, its pictures and films, its thumbnails. The same options give the same
/// media, byte for byte, on every run. Blocks for some seconds; call from one thread at a time for one folder. Needs no
/// application object, no display and no fonts.
///
/// Unless Written, everything that this call made is removed again, but nothing else, and `error` gets one sentence
/// without a final full stop: what happened to which file, or what became of the folder after a stop. `error` and
/// `report` may be null, `progress` empty; `report` is filled when Written only.
SampleOutcome writeSampleDevice(const SampleOptions &options, QString *error, SampleReport *report = nullptr,
                                const SampleProgress &progress = {});

} // namespace sample

#endif
