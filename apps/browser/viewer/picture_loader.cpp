#include "apps/browser/viewer/picture_loader.h"

#include "apps/browser/library/background.h"
#include "apps/browser/viewer/picture_work.h"

namespace browser
{

namespace
{

constexpr int mostCachedKibibytes = 512 * 1024;

int kibibytes(const Picture &picture)
{
    return static_cast<int>(picture.bytes() / 1024) + 1;
}

} // namespace

PictureLoader::PictureLoader(std::shared_ptr<PictureSource> pictures, QObject *parent)
    : QObject(parent), cache(mostCachedKibibytes), mailbox(std::make_shared<Mailbox>(this)),
      work(std::make_shared<PictureWork>(std::move(pictures)))
{
    work->whenThumbnail = [this, box = mailbox](qint64 id, const QImage &thumbnail) {
        box->post([this, id, thumbnail] { Q_EMIT thumbnailLoaded(id, thumbnail); });
    };
    work->whenPicture = [this, box = mailbox](const PictureRequest &request, const SharedPicture &picture) {
        box->post([this, request, picture] { deliver(request, picture); });
    };
}

PictureLoader::~PictureLoader()
{
    mailbox->close();
    work->end();
}

SharedPicture PictureLoader::cached(qint64 id, PictureVersion version) const
{
    const SharedPicture *const picture = cache.object(keyOf({id, false, version}));
    return picture == nullptr ? nullptr : *picture;
}

void PictureLoader::load(const PictureRequest &current, const QVector<PictureRequest> &neighbours)
{
    wanted = current;
    const bool isThere = !current.thumbnailOnly && isAtHand(current);
    QVector<PictureRequest> missing;
    for (const PictureRequest &neighbour : neighbours)
        if (!neighbour.thumbnailOnly && !isAtHand(neighbour))
            missing.append(neighbour);
    if (work->want(current, isThere, missing) && !startBackground([work = work] { work->run(); }))
        work->refuse();
}

void PictureLoader::forgetAll()
{
    work->forget();
    cache.clear();
}

void PictureLoader::deliver(const PictureRequest &request, const SharedPicture &picture)
{
    if (picture->isGood())
        cache.insert(keyOf(request), new SharedPicture(picture), kibibytes(*picture));
    if (request.id != wanted.id || request == wanted)
        Q_EMIT pictureLoaded(request.id, picture);
}

} // namespace browser
