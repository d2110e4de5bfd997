#ifndef APPS_BROWSER_VIEWER_FILM_PLAYER_H
#define APPS_BROWSER_VIEWER_FILM_PLAYER_H

#include "apps/browser/library/mailbox.h"
#include "apps/browser/viewer/film_copy.h"

#include <QObject>

#include <deque>

namespace browser
{

/// Opens films in the system's player. What it copies for that goes with it. One film at a time.
///
/// User-interface thread. Nothing waits, the destructor neither: what is being copied is given up and removed.
class FilmPlayer : public QObject
{
    Q_OBJECT

public:
    explicit FilmPlayer(std::shared_ptr<OpenedLibrary> library, QObject *parent = nullptr);
    ~FilmPlayer() override;

    bool isBusy() const { return job != nullptr; }

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

    struct Job;

    void finish(const Job &ended, const Film &film);
    void open(qint64 id, const QString &path);

    const std::shared_ptr<OpenedLibrary> opening;
    const std::shared_ptr<Mailbox> mailbox;
    std::shared_ptr<Job> job; ///< null when nothing is wanted
    std::deque<Kept> kept;
};

} // namespace browser

#endif
