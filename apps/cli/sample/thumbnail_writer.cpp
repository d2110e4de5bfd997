#include "apps/cli/sample/thumbnail_writer.h"

#include "apps/cli/sample/frame_container.h"
#include "apps/cli/sample/picture_files.h"

namespace sample
{

namespace
{

QByteArray smallJpeg(const QImage &picture, int box)
{
    return jpegFile(picture.scaled(box, box, Qt::KeepAspectRatio, Qt::SmoothTransformation), 80);
}

} // namespace

void ThumbnailWriter::writeOwnFile(const PlannedAsset &asset, const QImage &picture)
{
    const QString directory = asset.row.directory, file = asset.row.fileName;
    const QString folder = QStringLiteral("PhotoData/Thumbnails/V2/%1/%2/").arg(directory, file);
    const qint64 key = *asset.row.key;
    if (asset.form == FileForm::Film && key % 3 == 0) {
        store.write(
            QStringLiteral("PhotoData/Thumbnails/VideoKeyFrames/%1/%2/LocalVideoKeyFrame.jpg").arg(directory, file),
            smallJpeg(picture, 320));
        return;
    }
    if (asset.form == FileForm::Film && key % 3 == 1) {
        const QString stem = file.left(file.lastIndexOf(QLatin1Char('.')));
        store.write(QStringLiteral("PhotoData/Thumbnails/V2/%1/%2.THM").arg(directory, stem), smallJpeg(picture, 160));
        return;
    }
    const bool onlySmall = key % 6 == 0;
    if (!onlySmall)
        store.write(folder + QStringLiteral("5005.JPG"), smallJpeg(picture, 256));
    if (onlySmall || key % 4 == 1)
        store.write(folder + QStringLiteral("5003.JPG"), smallJpeg(picture, 128));
}

void ThumbnailWriter::add(const PlannedAsset &asset, const QImage &picture)
{
    if (asset.selfContained)
        writeOwnFile(asset, picture);
    if (*asset.row.thumbnailIndex < 0)
        return;
    large += frameRecord(picture, largeFrames);
    small += frameRecord(picture, smallFrames);
}

void ThumbnailWriter::finish()
{
    const QString folder = QStringLiteral("PhotoData/Thumbnails/");
    store.write(folder + QLatin1String(largeFrames.fileName), large);
    store.write(folder + QLatin1String(smallFrames.fileName), small);
}

} // namespace sample
