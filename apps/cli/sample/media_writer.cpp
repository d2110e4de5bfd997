#include "apps/cli/sample/media_writer.h"

#include "apps/cli/sample/film_file.h"
#include "apps/cli/sample/picture_files.h"
#include "apps/cli/sample/property_lists.h"

namespace sample
{

namespace
{

constexpr int pictureQuality = 85;
constexpr int filmQuality = 72;

QString pathOf(const PlannedAsset &asset)
{
    return asset.row.directory + QLatin1Char('/') + asset.row.fileName;
}

QString stemOf(const PlannedAsset &asset)
{
    return asset.row.fileName.left(asset.row.fileName.lastIndexOf(QLatin1Char('.')));
}

PictureFacts factsOf(const PlannedAsset &asset)
{
    return {asset.row.orientation, asset.taken, asset.row.latitude, asset.row.longitude};
}

QVector<QImage> framesOf(const PlannedAsset &asset, const QSize &size)
{
    QVector<QImage> frames;
    Scene scene = asset.scene;
    for (int i = 0; i < asset.frames; ++i) {
        scene.phase = static_cast<double>(i) / asset.frames;
        frames.append(paintScene(scene, size));
    }
    return frames;
}

QByteArray filmOf(const PlannedAsset &asset, const QSize &size)
{
    QVector<QByteArray> pictures;
    for (const QImage &frame : framesOf(asset, size))
        pictures.append(jpegFile(frame, filmQuality));
    const QDateTime epoch(QDate(1904, 1, 1), QTime(0, 0), Qt::UTC);
    return filmFile(pictures, size, asset.framesPerSecond, static_cast<quint32>(epoch.secsTo(asset.taken)));
}

QByteArray originalOf(const PlannedAsset &asset, const QImage &upright)
{
    const QImage stored = turnedForStorage(upright, asset.row.orientation);
    switch (asset.form) {
    case FileForm::Jpeg:
        return jpegFile(stored, pictureQuality, factsOf(asset));
    case FileForm::Png:
        return pngFile(upright);
    case FileForm::Gif:
        return gifFile(framesOf(asset, asset.shown), 100 / asset.framesPerSecond);
    case FileForm::Raw:
        return rawFile(stored, factsOf(asset));
    case FileForm::Film:
        return filmOf(asset, asset.shown);
    }
    return QByteArray();
}

// An edit leaves the original alone: what was done and the result lie in folders of their own.
void writeEdit(FileStore &files, const PlannedAsset &asset, const QImage &upright)
{
    const QString stem = stemOf(asset);
    files.write(asset.row.directory + QLatin1Char('/') + stem + QStringLiteral(".AAE"), adjustmentList(asset.taken));
    const QString folder = QStringLiteral("PhotoData/Mutations/%1/%2/Adjustments/").arg(asset.row.directory, stem);
    files.write(folder + QStringLiteral("Adjustments.plist"), adjustmentList(asset.taken));
    const QImage mono = upright.convertToFormat(QImage::Format_Grayscale8);
    files.write(folder + QStringLiteral("FullSizeRender.jpg"), jpegFile(mono, pictureQuality));
}

} // namespace

QImage writeMedia(FileStore &files, PlannedAsset &asset)
{
    const QImage upright = paintScene(asset.scene, asset.shown);
    const QByteArray original = originalOf(asset, upright);
    if (original.isEmpty())
        throw FileError(QStringLiteral("cannot encode %1").arg(files.absolute(pathOf(asset))));
    const bool lies = asset.row.orientation >= 5;
    asset.row.width = lies ? asset.shown.height() : asset.shown.width();
    asset.row.height = lies ? asset.shown.width() : asset.shown.height();
    asset.row.fileSize = original.size();
    if (asset.onDevice)
        files.write(pathOf(asset), original);
    if (asset.row.kindSubtype == 2)
        files.write(asset.row.directory + QLatin1Char('/') + stemOf(asset) + QStringLiteral(".MOV"),
                    filmOf(asset, QSize(320, 240)));
    if (asset.edited)
        writeEdit(files, asset, upright);
    return upright;
}

} // namespace sample
