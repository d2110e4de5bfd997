#ifndef APPS_BROWSER_VIEWER_FILM_PLAYER_H
#define APPS_BROWSER_VIEWER_FILM_PLAYER_H

#include "apps/browser/viewer/film_copy.h"

#include <QObject>

#include <atomic>
#include <deque>
#include <list>
#include <thread>

namespace browser
{

/// Opens films in the system's player. What it copies for that goes with it. One film at a time.
///
/// User-interface thread, and no function waits; films are copied on threads of their own, for which the destructor
/// waits.
class FilmPlayer : public QObject
{
    Q_OBJECT

public:
    explicit FilmPlayer(std::shared_ptr<OpenedLibrary> library, QObject *parent = nullptr);
    ~FilmPlayer() override;

    bool isBusy() const { return busy; }

    /// Gives up what it is busy with.
    void play(qint64 id, FilmPart part);
    void cancel();

Q_SIGNALS:
    void progress(qint64 done, qint64 total);
    /// The film is with the player now.
    void opened(qint64 id);
    /// The film is at hand, and no program wants to play it.
    void noPlayer(qint64 id);
    void failed(qint64 id, const browser::Film &film);

private:
    struct Kept {
        qint64 id;
        FilmPart part;
        Film film;
    };

    struct Job {
        int number = 0;
        std::atomic<bool> cancelled{false};
        std::thread thread;
    };

    void work(qint64 id, FilmPart part, Job &job);
    void finish(int number, qint64 id, FilmPart part, const Film &film);
    void open(qint64 id, const QString &path);

    const std::shared_ptr<OpenedLibrary> opening;
    std::list<Job> jobs; ///< the newest is the last; the others were given up and end soon
    int lastNumber = 0;
    bool busy = false;
    std::deque<Kept> kept;
};

} // namespace browser

#endif
