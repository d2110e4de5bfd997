#include "photolib/media/thumbnail_places.h"

#include "photolib/db/records.h"
#include "photolib/media/media_path.h"

namespace photolib
{

namespace
{

constexpr qint32 videoKind = 1;

QString withoutExtension(const QString &fileName)
{
    return fileName.left(fileName.lastIndexOf(QLatin1Char('.')));
}

} // namespace

std::vector<QByteArray> thumbnailFiles(const assetRecord &asset)
{
    std::vector<QByteArray> paths;
    const auto add = [&](const QString &pattern, const QString &fileName) {
        paths.push_back(mediaPath(pattern, asset.directory, fileName));
    };
    add(QStringLiteral("/PhotoData/Thumbnails/V2/%1/%2/5005.JPG"), asset.fileName); // largest first
    add(QStringLiteral("/PhotoData/Thumbnails/V2/%1/%2/5003.JPG"), asset.fileName);
    add(QStringLiteral("/PhotoData/Thumbnails/V2/%1/%2/3507.JPG"), asset.fileName);
    add(QStringLiteral("/PhotoData/Thumbnails/V2/%1/%2/3505.JPG"), asset.fileName);
    add(QStringLiteral("/PhotoData/Thumbnails/VideoKeyFrames/%1/%2/LocalVideoKeyFrame.jpg"), asset.fileName);
    if (asset.kind == videoKind) {
        paths.emplace_back(""); // hosts that record what is opened expect it in its place; no device opens it
        add(QStringLiteral("/PhotoData/Thumbnails/V2/%1/%2.THM"), withoutExtension(asset.fileName));
    }
    return paths;
}

const std::array<ThumbnailContainer, 8> &thumbnailContainers()
{
    static const std::array<ThumbnailContainer, 8> containers = {{
        {"/PhotoData/Thumbnails/332x332.ithmb", {223104, 336, 332, 332}},
        {"/PhotoData/Thumbnails/240x240.ithmb", {115200, 240, 240, 240}},
        {"/PhotoData/Thumbnails/166x166.ithmb", {55776, 168, 166, 166}},
        {"/PhotoData/Thumbnails/158x158.ithmb", {50560, 160, 158, 158}},
        {"/PhotoData/Thumbnails/120x120.ithmb", {28800, 120, 120, 120}},
        {"/PhotoData/Thumbnails/3319.ithmb", {50240, 160, 157, 157}},
        {"/PhotoData/Thumbnails/4031.ithmb", {28800, 120, 120, 120}},
        {"/PhotoData/Thumbnails/3309.ithmb", {8192, 64, 64, 64}},
    }};
    return containers;
}

} // namespace photolib
