#ifndef APPS_CLI_EXPORT_EXPORT_PROGRESS_H
#define APPS_CLI_EXPORT_EXPORT_PROGRESS_H

#include "apps/cli/progress_bar.h"
#include "exporter/observer.h"
#include "exporter/transfer_rate.h"

#include <QElapsedTimer>

namespace photocli
{

using exporter::TransferRate;

/// The line for `progress`, such as "copying  [#####-----]  1.2 GB of 2.4 GB  31.0 MB/s  0:40 left".
QString exportLine(const exporter::ExportProgress &progress, const TransferRate &rate);

/// Shows an export's progress on the terminal, some times a second.
class ExportProgressBar
{
public:
    explicit ExportProgressBar(bool show) : wanted(show) { clock.start(); }

    void show(const exporter::ExportProgress &progress);

    /// Makes room for a line of text; the bar comes back with the next progress.
    void erase();

private:
    bool wanted;
    bool shown = false;
    ProgressBar bar;
    QElapsedTimer clock;
    qint64 nextTime = 0;
    TransferRate rate;
    exporter::Phase phase = exporter::Phase::Measuring;
};

} // namespace photocli

#endif
