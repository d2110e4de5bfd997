#include "apps/browser/viewer/screen_form.h"

#include <QColorSpace>

#include <algorithm>
#include <new>

namespace browser
{

namespace
{

constexpr int smallEnough = 1024; // pixels of the longer side

} // namespace

QImage forScreen(QImage image)
{
    const QImage::Format format = image.hasAlphaChannel() ? QImage::Format_ARGB32_Premultiplied : QImage::Format_RGB32;
    image = std::move(image).convertToFormat(format);
    if (image.isNull())
        throw std::bad_alloc();
    const QColorSpace screen(QColorSpace::SRgb);
    if (image.colorSpace().isValid() && image.colorSpace() != screen)
        image.convertToColorSpace(screen);
    image.setDevicePixelRatio(1);
    return image;
}

std::vector<QImage> levelsOf(QImage image, const GiveUp &givenUp)
{
    std::vector<QImage> levels{std::move(image)};
    while (std::max(levels.back().width(), levels.back().height()) > smallEnough) {
        if (givenUp())
            return {};
        const QSize half((levels.back().width() + 1) / 2, (levels.back().height() + 1) / 2);
        levels.push_back(levels.back().scaled(half, Qt::IgnoreAspectRatio, Qt::SmoothTransformation));
        if (levels.back().isNull())
            throw std::bad_alloc();
    }
    return levels;
}

} // namespace browser
