#ifndef APPS_BROWSER_VIEWER_PICTURE_H
#define APPS_BROWSER_VIEWER_PICTURE_H

#include <QImage>
#include <QMetaType>

#include <functional>
#include <memory>
#include <vector>

namespace browser
{

/// Asked now and then by what takes long; true ends it.
using GiveUp = std::function<bool()>;

/// Why there is no picture.
enum class PictureProblem {
    None,
    OriginalAbsent,    ///< the device has no file for it
    ReadFailed,        ///< see Picture::reason
    DeviceGone,        ///< the device cannot be opened any more
    GivenUp,           ///< nobody waits for it any more
    Empty,             ///< the file has no bytes
    UnknownFormat,     ///< no picture, or one of a kind that is not supported
    RawWithoutPreview, ///< sensor data, and nothing ready to be shown beside it
    Damaged,
    TooLarge,    ///< its bytes, or its width and height
    OutOfMemory, ///< memory ran short
};

/// One picture of an animation.
struct Frame {
    QImage image;
    int milliseconds = 0; ///< how long it is shown
};

/// What a picture shows of the edits that were made on the device.
enum class PictureEdits {
    None,   ///< there are none
    Shown,  ///< their result
    Hidden, ///< the original, though there are edits
};

/// A decoded picture, upright, in colours of the screen. Never changed once it is made, so that threads share it.
struct Picture {
    PictureProblem problem = PictureProblem::None;
    QString reason;             ///< for ReadFailed: a clause without full stop; may be empty
    QSize size;                 ///< pixels of the picture as it is shown
    std::vector<QImage> levels; ///< the whole picture, half of it in each direction, a quarter, ...
    std::vector<Frame> frames;  ///< of an animation, else empty; may be smaller than `size`
    bool isPreview = false;     ///< the small picture that a RAW file brings along
    PictureEdits edits = PictureEdits::None;

    bool isGood() const { return problem == PictureProblem::None; }

    /// Memory of the pixels.
    qint64 bytes() const;
};

using SharedPicture = std::shared_ptr<const Picture>;

/// A picture that is none, and why.
SharedPicture noPicture(PictureProblem problem, const QString &reason = QString());

} // namespace browser

Q_DECLARE_METATYPE(browser::SharedPicture)

#endif
