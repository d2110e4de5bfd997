#include "apps/browser/viewer/picture.h"

namespace browser
{

qint64 Picture::bytes() const
{
    qint64 sum = 0;
    for (const QImage &level : levels)
        sum += level.sizeInBytes();
    for (const Frame &frame : frames)
        sum += frame.image.sizeInBytes();
    return sum;
}

SharedPicture noPicture(PictureProblem problem, const QString &reason)
{
    auto picture = std::make_shared<Picture>();
    picture->problem = problem;
    picture->reason = reason;
    return picture;
}

} // namespace browser
