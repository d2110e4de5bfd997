// bench_browser FOLDER: shows the library of a device folder as the browser does, scrolls through all of it in the ways
// in which people do, and prints as Markdown how long the window hung at most. With --thumbnails, first gives every
// photo a thumbnail.

#include "apps/browser/page/library_page.h"
#include "apps/browser/page/photo_grid.h"
#include "bench/browser/watchdog.h"
#include "devicehost/device_host.h"
#include "photolib/photolib.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QImage>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPainter>
#include <QScrollBar>
#include <QWheelEvent>

#include <unistd.h>

#include <cstdio>
#include <functional>

namespace
{

using bench::Stalls;
using bench::Watchdog;
using browser::LibraryPage;
using browser::OpenedLibrary;
using browser::PhotoGrid;

constexpr int picturesMade = 20; // each is the thumbnail of every twentieth photo

long long memory(const char *name)
{
    QFile status(QStringLiteral("/proc/self/status"));
    if (!status.open(QIODevice::ReadOnly))
        return -1;
    const QList<QByteArray> lines = status.readAll().split('\n');
    for (const QByteArray &line : lines) {
        if (line.startsWith(name))
            return line.mid(int(qstrlen(name))).simplified().split(' ').value(0).toLongLong() / 1024;
    }
    return -1;
}

std::shared_ptr<OpenedLibrary> open(const QString &folder)
{
    auto device = std::make_unique<devicehost::DeviceHost>(QStringLiteral("folder:") + folder);
    photo_manager_int *manager = getPhotolib(device.get());
    if (manager == nullptr || !manager->openLibrary())
        return nullptr;
    const double start = bench::wallNow();
    auto snapshot = browser::readSnapshot(*manager, std::atomic<bool>(false));
    std::printf("| reading the snapshot | %.0f ms | | | |\n", (bench::wallNow() - start) * 1000);
    return std::make_shared<OpenedLibrary>(std::move(device), manager, snapshot);
}

QImage pictureOf(int number)
{
    QImage picture(480, 360, QImage::Format_RGB32);
    QPainter painter(&picture);
    QLinearGradient sky(0, 0, 480, 360);
    sky.setColorAt(0, QColor::fromHsv(number * 17 % 360, 120, 240));
    sky.setColorAt(1, QColor::fromHsv(number * 41 % 360, 200, 90));
    painter.fillRect(picture.rect(), sky);
    for (int i = 0; i < 400; ++i) // details, as photos have them
        painter.fillRect(i * 97 % 480, i * 61 % 360, 9, 7, QColor::fromHsv(i * 53 % 360, 90, i * 31 % 255));
    return picture;
}

// Links to the same few files: what a photo's thumbnail costs is its own opening and decoding all the same.
bool makeThumbnails(OpenedLibrary &library, const QString &folder)
{
    const QString base = folder + QStringLiteral("/PhotoData/Thumbnails/V2/");
    QDir().mkpath(base);
    for (int number = 0; number < picturesMade; ++number)
        pictureOf(number).save(base + QString::number(number) + QStringLiteral(".jpg"), "JPG", 80);
    for (const browser::Photo &photo : library.snapshot().photos) {
        const QString place = base + library.devicePath(photo.id);
        const QString source = base + QString::number(photo.id % picturesMade) + QStringLiteral(".jpg");
        const QString target = place + QStringLiteral("/5005.JPG");
        QDir().mkpath(place);
        if (!QFile::exists(target) && link(QFile::encodeName(source), QFile::encodeName(target)) != 0)
            return false;
    }
    return true;
}

bool turnUntil(const std::function<bool()> &condition, double seconds)
{
    for (const double end = bench::wallNow() + seconds; !condition() && bench::wallNow() < end;)
        QCoreApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents);
    return condition();
}

void report(const char *what, const Stalls &stalls, int steps)
{
    std::printf("| %s | %.1f s | %.1f ms | %.1f ms | %.2f ms |\n", what, stalls.wall, stalls.longestWall * 1000,
                stalls.longestCpu * 1000, stalls.cpu * 1000 / std::max(1, steps));
    std::fflush(stdout);
}

// Everything of one step is drawn before the next.
void measure(const char *what, Watchdog &watchdog, const std::function<bool(int)> &step)
{
    watchdog.take();
    int steps = 0;
    while (step(steps)) {
        QCoreApplication::processEvents();
        ++steps;
    }
    report(what, watchdog.take(), steps);
}

bool allThumbnailsShown(LibraryPage &page, PhotoGrid &grid)
{
    const auto [first, behind] = grid.visibleRows();
    const QVector<qint64> shown = page.shownPhotos();
    for (int row = first; row < behind; ++row) {
        if (grid.thumbnails().find(shown[row]) == nullptr)
            return false;
    }
    return behind > first;
}

void beginPage(LibraryPage &page, PhotoGrid &grid, Watchdog &watchdog)
{
    const double start = bench::wallNow();
    page.resize(1440, 900);
    page.show();
    turnUntil([&] { return grid.thumbnails().count() > 0; }, 60);
    std::printf("| until the first thumbnail | %.0f ms | | | |\n", (bench::wallNow() - start) * 1000);
    turnUntil([&] { return allThumbnailsShown(page, grid); }, 60);
    std::printf("| until the screen is full | %.0f ms | | | |\n", (bench::wallNow() - start) * 1000);
    report("opening the page", watchdog.take(), 1);
}

void scroll(PhotoGrid &grid, Watchdog &watchdog)
{
    QScrollBar *bar = grid.verticalScrollBar();
    measure("wheel, all the way down", watchdog, [&](int) {
        const QPointF middle(grid.viewport()->rect().center());
        QWheelEvent event(middle, grid.viewport()->mapToGlobal(middle.toPoint()), QPoint(), QPoint(0, -480),
                          Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(grid.viewport(), &event);
        return bar->value() < bar->maximum();
    });
    measure("scroll bar dragged up and down", watchdog, [&](int step) {
        constexpr int steps = 1000;
        const double place = step < steps ? 1.0 - double(step) / steps : double(step - steps) / steps;
        bar->setSliderDown(true);
        bar->setSliderPosition(int(place * bar->maximum()));
        return step < 2 * steps;
    });
    bar->setSliderDown(false);
    const auto press = [&grid](int key) {
        QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier);
        QCoreApplication::sendEvent(&grid, &event);
    };
    press(Qt::Key_Home);
    measure("PageDown through all", watchdog, [&](int) {
        const int before = grid.currentIndex().row();
        press(Qt::Key_PageDown);
        return grid.currentIndex().row() != before;
    });
    measure("zoom in and out", watchdog, [&](int step) {
        grid.setCellSize(80 + (step < 60 ? step : 120 - step) * 4);
        return step < 120;
    });
    measure("select all, 20 times", watchdog, [&](int step) {
        grid.selectAll();
        grid.clearSelection();
        return step < 20;
    });
}

void search(LibraryPage &page, Watchdog &watchdog)
{
    auto *field = page.findChild<QLineEdit *>(QStringLiteral("searchField"));
    const int all = page.shownPhotos().size();
    watchdog.take();
    field->setText(QStringLiteral("IMG_00"));
    turnUntil([&] { return page.shownPhotos().size() < all; }, 60);
    report("search by name", watchdog.take(), 1);
    field->clear();
    turnUntil([&] { return page.shownPhotos().size() == all; }, 60);
    report("clearing the search", watchdog.take(), 1);
}

} // namespace

int main(int argc, char **argv)
{
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    devicehost::watchDatabaseErrors();
    const QApplication application(argc, argv);
    const QStringList arguments = QApplication::arguments();
    if (arguments.size() < 2) {
        std::fputs("usage: bench_browser FOLDER [--thumbnails]\n", stderr);
        return 2;
    }
    std::printf("| what | time | longest wait | longest computing | a step |\n| --- | --- | --- | --- | --- |\n");
    const std::shared_ptr<OpenedLibrary> library = open(arguments[1]);
    if (!library || (arguments.contains(QStringLiteral("--thumbnails")) && !makeThumbnails(*library, arguments[1]))) {
        std::fputs("bench_browser: the library cannot be opened, or its folder not be written\n", stderr);
        return 1;
    }
    const long long before = memory("VmRSS:");
    Watchdog watchdog;
    {
        LibraryPage page(library);
        auto *grid = page.findChild<PhotoGrid *>(QStringLiteral("photoGrid"));
        beginPage(page, *grid, watchdog);
        scroll(*grid, watchdog);
        search(page, watchdog);
        std::printf("| memory: library, now, most | %lld MiB | %lld MiB | %lld MiB | |\n", before, memory("VmRSS:"),
                    memory("VmHWM:"));
        library->stop();
    }
    return 0;
}
