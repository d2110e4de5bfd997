#include "apps/browser/page/thumbnail_loader.h"

#include "apps/browser/library/background.h"
#include "apps/browser/page/thumbnail_work.h"

namespace browser
{

namespace
{

constexpr int threadCount = 2; // while one reads, the other decodes

} // namespace

ThumbnailLoader::ThumbnailLoader(std::shared_ptr<ThumbnailSource> source, QObject *parent)
    : QObject(parent), mailbox(std::make_shared<Mailbox>(this)),
      work(std::make_shared<ThumbnailWork>(std::move(source),
                                           [this, box = mailbox] { box->post([this] { deliver(); }); }))
{
}

ThumbnailLoader::~ThumbnailLoader()
{
    mailbox->close();
    work->end();
}

void ThumbnailLoader::want(const QVector<qint64> &ids, int side)
{
    int missing = work->want(ids, side, threadCount);
    while (missing > 0 && startBackground([work = work] { work->run(); }))
        --missing;
    work->lack(missing);
}

void ThumbnailLoader::deliver()
{
    const ThumbnailWork::Batch batch = work->takeBatch();
    Q_EMIT loaded(batch.thumbnails);
    if (batch.failing)
        Q_EMIT readsFailing();
}

} // namespace browser
