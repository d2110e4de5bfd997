#ifndef APPS_BROWSER_VIEWER_PICTURE_LOADER_H
#define APPS_BROWSER_VIEWER_PICTURE_LOADER_H

#include "apps/browser/library/mailbox.h"
#include "apps/browser/viewer/picture_source.h"

#include <QCache>
#include <QObject>
#include <QVector>

#include <utility>

namespace browser
{

class PictureWork;

/// A photo that is wanted.
struct PictureRequest {
    qint64 id = 0;
    bool thumbnailOnly = false; ///< a film: its original is no picture
    PictureVersion version = PictureVersion::Latest;

    bool operator==(const PictureRequest &other) const { return id == other.id && version == other.version; }
};

/// Loads pictures on a thread of its own: the newest request first, then those beside it. What nobody waits for any
/// more is given up. Keeps the pictures that were loaded last.
///
/// User-interface thread. A read that is in hand when this goes ends by itself, and nobody waits for it.
class PictureLoader : public QObject
{
    Q_OBJECT

public:
    explicit PictureLoader(std::shared_ptr<PictureSource> pictures, QObject *parent = nullptr);
    ~PictureLoader() override;

    /// The picture if it is at hand; null otherwise.
    SharedPicture cached(qint64 id, PictureVersion version = PictureVersion::Latest) const;

    /// Loads `current` with its thumbnail, then the pictures in `neighbours`; replaces what was asked for before.
    void load(const PictureRequest &current, const QVector<PictureRequest> &neighbours);

    /// Gives up everything that is asked for, and frees the pictures that are kept.
    void forgetAll();

Q_SIGNALS:
    void thumbnailLoaded(qint64 id, const QImage &thumbnail);
    /// Also for what could not be loaded; never with PictureProblem::GivenUp. Of the current photo only in the version
    /// that is wanted now.
    void pictureLoaded(qint64 id, const browser::SharedPicture &picture);

private:
    using Key = std::pair<qint64, int>; ///< of a photo, and its version

    static Key keyOf(const PictureRequest &request) { return {request.id, static_cast<int>(request.version)}; }
    bool isAtHand(const PictureRequest &request) const { return cached(request.id, request.version) != nullptr; }
    void deliver(const PictureRequest &request, const SharedPicture &picture);

    QCache<Key, SharedPicture> cache; ///< cost in KiB
    const std::shared_ptr<Mailbox> mailbox;
    const std::shared_ptr<PictureWork> work;
    PictureRequest wanted;
};

} // namespace browser

#endif
