#include "apps/cli/progress_bar.h"

#include "apps/cli/output/descriptor.h"
#include "apps/cli/output/text.h"

#include <algorithm>
#include <sys/ioctl.h>
#include <unistd.h>

namespace photocli
{

namespace
{

void toTerminal(const QByteArray &bytes)
{
    // Nothing depends on the bar, so a failed write is no failure.
    writeAll(STDERR_FILENO, bytes.constData(), static_cast<size_t>(bytes.size()));
}

int terminalColumns()
{
    const int usual = 80;
    struct winsize size {
    };
    return ::ioctl(STDERR_FILENO, TIOCGWINSZ, &size) == 0 && size.ws_col > 0 ? size.ws_col : usual;
}

// What follows the last byte, the reading of the local copy, takes a while in a large library and has no measure.
bool isAtEnd(const devicehost::Progress &progress)
{
    return progress.totalBytes >= 0 && progress.bytesRead >= progress.totalBytes;
}

// A character in the last column makes some terminals begin a new line.
QString cutToColumns(const QString &line, int columns)
{
    return cutToWidth(line, columns - 1);
}

} // namespace

QString barCells(qint64 done, qint64 total)
{
    const int cells = 20;
    // Nothing to do is all done.
    const double part =
        total <= 0 ? 1.0 : static_cast<double>(std::clamp<qint64>(done, 0, total)) / static_cast<double>(total);
    const auto filled = static_cast<int>(cells * part);
    return QStringLiteral("[%1%2]").arg(QString(filled, QChar('#')), QString(cells - filled, QChar('-')));
}

QString progressLine(const devicehost::Progress &progress)
{
    const QString start = QStringLiteral("reading %1  ").arg(harmless(progress.path));
    if (progress.totalBytes <= 0)
        return start + humanSize(progress.bytesRead);
    const qint64 read = std::clamp<qint64>(progress.bytesRead, 0, progress.totalBytes);
    return start + QStringLiteral("%1  %2 of %3")
                       .arg(barCells(read, progress.totalBytes), humanSize(read), humanSize(progress.totalBytes));
}

QString writingLine(int done, int total)
{
    return QStringLiteral("writing  %1  %2 of %3 photos and videos").arg(barCells(done, total)).arg(done).arg(total);
}

QString barText(const devicehost::Progress &progress, int columns)
{
    const QString text = isAtEnd(progress) ? QStringLiteral("reading the library...") : progressLine(progress);
    return cutToColumns(text, columns);
}

void ProgressBar::show(const devicehost::Progress &progress)
{
    replace(barText(progress, terminalColumns()));
}

void ProgressBar::show(int done, int total)
{
    show(writingLine(done, total));
}

void ProgressBar::show(const QString &line)
{
    replace(cutToColumns(line, terminalColumns()));
}

void ProgressBar::replace(const QString &line)
{
    if (::isatty(STDERR_FILENO) != 1)
        return;
    shown = true;
    toTerminal("\r\033[K" + line.toUtf8());
}

void ProgressBar::erase()
{
    if (shown.exchange(false))
        toTerminal("\r\033[K");
}

} // namespace photocli
