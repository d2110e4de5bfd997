#ifndef APPS_CLI_PROGRESS_BAR_H
#define APPS_CLI_PROGRESS_BAR_H

#include "devicehost/device_host.h"

#include <atomic>

namespace photocli
{

/// One line on standard error that tells how far the work has come. Shows nothing unless standard error is a terminal.
/// Erased when the object goes.
class ProgressBar
{
public:
    ProgressBar() = default;
    ~ProgressBar() { erase(); }
    ProgressBar(const ProgressBar &) = delete;
    ProgressBar &operator=(const ProgressBar &) = delete;

    void show(const devicehost::Progress &progress);
    /// How many of the photos and videos of a sample device are written; `total` is positive.
    void show(int done, int total);
    /// Any line.
    void show(const QString &line);
    /// May be called from any thread, while another one shows something.
    void erase();

private:
    void replace(const QString &line);

    std::atomic<bool> shown{false};
};

/// Twenty cells, of which as many are full as `done` is of `total`, which is positive.
QString barCells(qint64 done, qint64 total);

/// The line for `progress`, such as "reading /PhotoData/Photos.sqlite  [#####-----]  3.1 MB of 6.2 MB".
QString progressLine(const devicehost::Progress &progress);

/// What a terminal of so many columns shows for `progress`, on one line: the line above or, once the whole file is
/// there, that the library is being read.
QString barText(const devicehost::Progress &progress, int columns);

/// The line for a sample device, such as "writing  [#####-----]  120 of 240 photos and videos". `total` is positive.
QString writingLine(int done, int total);

} // namespace photocli

#endif
