#include "apps/browser/viewer/film_player.h"

#include "apps/browser/library/background.h"

#include <QDesktopServices>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QUrl>

#include <algorithm>
#include <atomic>
#include <functional>
#include <new>

namespace browser
{

namespace
{

constexpr std::size_t mostKept = 4;
constexpr qint64 reportInterval = 100; // milliseconds

} // namespace

/// One film that is wanted; shared with the thread that fetches it.
struct FilmPlayer::Job {
    qint64 id;
    FilmPart part;
    Film copy; ///< one that was kept
    std::atomic<bool> cancelled{false};

    Film fetch(OpenedLibrary &library, const CopyProgress &tell)
    {
        // Cleaners of temporary files may have taken it.
        if (copy.state == CopyEnd::Complete && QFileInfo::exists(copy.path))
            return copy;
        QElapsedTimer sinceReport;
        return fetchFilm(library, id, part, [&](qint64 done, qint64 total) {
            if (!sinceReport.isValid() || sinceReport.elapsed() >= reportInterval) {
                sinceReport.start();
                tell(done, total);
            }
            return !cancelled.load();
        });
    }
};

FilmPlayer::FilmPlayer(std::shared_ptr<OpenedLibrary> library, QObject *parent)
    : QObject(parent), opening(std::move(library)), mailbox(std::make_shared<Mailbox>(this))
{
}

FilmPlayer::~FilmPlayer()
{
    mailbox->close();
    cancel();
}

void FilmPlayer::cancel()
{
    if (job)
        job->cancelled.store(true);
    job.reset();
}

void FilmPlayer::play(qint64 id, FilmPart part)
{
    cancel();
    job = std::make_shared<Job>();
    job->id = id;
    job->part = part;
    const auto known =
        std::find_if(kept.begin(), kept.end(), [&](const Kept &other) { return other.id == id && other.part == part; });
    if (known != kept.end())
        job->copy = known->film;
    const auto answer = [this, box = mailbox, mine = job](const Film &film) {
        box->post([this, mine, film] { finish(*mine, film); });
    };
    const auto tell = [this, box = mailbox, mine = job](qint64 done, qint64 total) {
        return box->post([this, mine, done, total] {
            if (job == mine)
                Q_EMIT progress(done, total);
        });
    };
    const bool started = startBackground([answer, tell, mine = job, library = opening] {
        Film film;
        try {
            film = mine->fetch(*library, tell);
        } catch (const std::bad_alloc &) {
            film = Film();
            film.state = CopyEnd::ReadFailed;
        }
        answer(film);
    });
    if (!started) {
        Film none;
        none.state = CopyEnd::ReadFailed;
        answer(none);
    }
}

void FilmPlayer::finish(const Job &ended, const Film &film)
{
    if (job.get() != &ended)
        return;
    job.reset();
    if (film.state != CopyEnd::Complete) {
        Q_EMIT failed(ended.id, film);
        return;
    }
    const auto isSame = [&ended](const Kept &other) { return other.id == ended.id && other.part == ended.part; };
    kept.erase(std::remove_if(kept.begin(), kept.end(), isSame), kept.end());
    kept.push_back({ended.id, ended.part, film});
    if (kept.size() > mostKept)
        kept.pop_front();
    open(ended.id, film.path);
}

void FilmPlayer::open(qint64 id, const QString &path)
{
    if (QDesktopServices::openUrl(QUrl::fromLocalFile(path)))
        Q_EMIT opened(id);
    else
        Q_EMIT noPlayer(id);
}

} // namespace browser
