#include "apps/browser/viewer/film_player.h"

#include <QDesktopServices>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QUrl>

#include <algorithm>
#include <new>

namespace browser
{

namespace
{

constexpr std::size_t mostKept = 4;
constexpr qint64 reportInterval = 100; // milliseconds

} // namespace

FilmPlayer::FilmPlayer(std::shared_ptr<OpenedLibrary> library, QObject *parent)
    : QObject(parent), opening(std::move(library))
{
}

FilmPlayer::~FilmPlayer()
{
    cancel();
    for (Job &job : jobs)
        job.thread.join();
}

void FilmPlayer::cancel()
{
    busy = false;
    for (Job &job : jobs)
        job.cancelled.store(true);
}

void FilmPlayer::play(qint64 id, FilmPart part)
{
    cancel();
    const auto known = std::find_if(kept.begin(), kept.end(), [&](const Kept &other) {
        return other.id == id && other.part == part && QFileInfo::exists(other.film.path);
    });
    if (known != kept.end()) {
        open(id, known->film.path);
        return;
    }
    busy = true;
    Job &job = jobs.emplace_back();
    job.number = ++lastNumber;
    job.thread = std::thread([this, id, part, &job] { work(id, part, job); });
}

void FilmPlayer::work(qint64 id, FilmPart part, Job &job)
{
    Film film;
    QElapsedTimer sinceReport;
    const int number = job.number;
    try {
        film = fetchFilm(*opening, id, part, [&](qint64 done, qint64 total) {
            if (!sinceReport.isValid() || sinceReport.elapsed() >= reportInterval) {
                sinceReport.start();
                QMetaObject::invokeMethod(this, [this, done, total, number] {
                    if (busy && number == lastNumber)
                        Q_EMIT progress(done, total);
                });
            }
            return !job.cancelled.load();
        });
    } catch (const std::bad_alloc &) {
        film = Film();
        film.state = CopyEnd::ReadFailed;
    }
    QMetaObject::invokeMethod(this, [this, number, id, part, film] { finish(number, id, part, film); });
}

void FilmPlayer::finish(int number, qint64 id, FilmPart part, const Film &film)
{
    const bool isWanted = busy && number == lastNumber;
    const auto job =
        std::find_if(jobs.begin(), jobs.end(), [number](const Job &other) { return other.number == number; });
    job->thread.join();
    jobs.erase(job);
    if (!isWanted)
        return;
    busy = false;
    if (film.state != CopyEnd::Complete) {
        Q_EMIT failed(id, film);
        return;
    }
    kept.push_back({id, part, film});
    if (kept.size() > mostKept)
        kept.pop_front();
    open(id, film.path);
}

void FilmPlayer::open(qint64 id, const QString &path)
{
    if (QDesktopServices::openUrl(QUrl::fromLocalFile(path)))
        Q_EMIT opened(id);
    else
        Q_EMIT noPlayer(id);
}

} // namespace browser
