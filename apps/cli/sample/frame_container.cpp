#include "apps/cli/sample/frame_container.h"

#include "apps/cli/sample/tiff_writer.h"

namespace sample
{

namespace
{

quint32 rgb555(QRgb pixel)
{
    const auto five = [](int channel) { return static_cast<quint32>(channel) >> 3; };
    return five(qRed(pixel)) << 10 | five(qGreen(pixel)) << 5 | five(qBlue(pixel));
}

} // namespace

QByteArray frameRecord(const QImage &picture, const FrameLayout &layout)
{
    const QImage fitted = picture.scaled(layout.columns, layout.rows, Qt::KeepAspectRatio, Qt::SmoothTransformation);
    // Centring counts from the bottom row of the frame, so an odd spare row lies above the picture.
    const int top = layout.rows - fitted.height() - (layout.rows - fitted.height()) / 2;
    const int left = (layout.columns - fitted.width()) / 2;
    QByteArray record;
    record.reserve(layout.recordBytes());
    for (int row = 0; row < layout.rows; ++row)
        for (int column = 0; column < layout.rowPixels; ++column) {
            const QPoint at(column - left, row - top);
            appendLittle(record, fitted.valid(at) ? rgb555(fitted.pixel(at)) : 0, 2);
        }
    record += QByteArray(16, '\0');
    appendLittle(record, static_cast<quint32>(fitted.width()), 4);
    appendLittle(record, static_cast<quint32>(fitted.height()), 4);
    appendLittle(record, 0, 4);
    return record;
}

} // namespace sample
