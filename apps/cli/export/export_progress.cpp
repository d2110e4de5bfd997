#include "apps/cli/export/export_progress.h"

#include "apps/cli/export/export_words.h"
#include "apps/cli/output/photo_text.h"
#include "apps/cli/output/text.h"

#include <algorithm>
#include <limits>

namespace photocli
{

using exporter::ExportProgress;
using exporter::Phase;

namespace
{

constexpr qint64 interval = 100; // milliseconds

QString counts(const ExportProgress &progress, const char *things)
{
    return QStringLiteral("%1 of %2 %3").arg(progress.photosDone).arg(progress.photosTotal).arg(QLatin1String(things));
}

QString counting(const char *work, const ExportProgress &progress, const char *things)
{
    const QString start = QLatin1String(work) + QStringLiteral("  ");
    if (progress.photosTotal <= 0)
        return start.trimmed();
    return start + barCells(progress.photosDone, progress.photosTotal) + QStringLiteral("  ") +
           counts(progress, things);
}

QString moving(const char *work, const ExportProgress &progress, const TransferRate &rate)
{
    QStringList parts = {QLatin1String(work)};
    const bool hasTotal = progress.bytesTotal > 0;
    if (hasTotal) {
        parts += barCells(progress.bytesDone, progress.bytesTotal);
        parts += QStringLiteral("%1 of %2").arg(humanSize(progress.bytesDone), humanSize(progress.bytesTotal));
    } else {
        parts += humanSize(progress.bytesDone);
    }
    if (rate.bytesPerSecond() > 0)
        parts += humanSize(rate.bytesPerSecond()) + QStringLiteral("/s");
    const qint64 left = hasTotal ? rate.secondsFor(std::max<qint64>(0, progress.bytesTotal - progress.bytesDone)) : -1;
    if (left > 0 && left < std::numeric_limits<qint32>::max())
        parts += durationText(static_cast<qint32>(left)) + QStringLiteral(" left");
    if (progress.photosTotal > 0)
        parts += counts(progress, "photos");
    return parts.join(QStringLiteral("  "));
}

} // namespace

QString exportLine(const ExportProgress &progress, const TransferRate &rate)
{
    switch (progress.phase) {
    case Phase::Measuring:
        return counting("looking at the files", progress, "photos");
    case Phase::Copying:
        return moving("copying", progress, rate);
    case Phase::Albums:
        return counting("albums", progress, "albums");
    case Phase::Verifying:
        return moving("verifying", progress, rate);
    }
    return {};
}

void ExportProgressBar::show(const ExportProgress &progress)
{
    const qint64 now = clock.elapsed();
    if (progress.phase != phase)
        rate.reset();
    phase = progress.phase;
    rate.note(progress.bytesDone, now);
    if (!wanted || now < nextTime)
        return;
    nextTime = now + interval;
    shown = true;
    bar.show(exportLine(progress, rate));
}

void ExportProgressBar::erase()
{
    if (shown)
        bar.erase();
    shown = false;
    nextTime = 0;
}

} // namespace photocli
