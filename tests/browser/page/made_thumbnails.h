#ifndef TESTS_BROWSER_PAGE_MADE_THUMBNAILS_H
#define TESTS_BROWSER_PAGE_MADE_THUMBNAILS_H

#include "apps/browser/page/thumbnail_source.h"

#include <QBuffer>
#include <QImage>
#include <QVector>

#include <condition_variable>
#include <mutex>

inline QByteArray pictureBytes(const QImage &image, const char *format = "JPG")
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, format, 95);
    return bytes;
}

inline QImage plainPicture(int width, int height, const QColor &color)
{
    QImage image(width, height, QImage::Format_RGB32);
    image.fill(color);
    return image;
}

/// Gives the same picture for every photo, and remembers what was asked for. Can be made to hang, to fail, or to have
/// none.
class MadeThumbnails : public browser::ThumbnailSource
{
public:
    browser::ThumbnailAnswer thumbnail(qint64 id) override
    {
        std::unique_lock<std::mutex> lock(mutex);
        asked += id;
        changed.wait(lock, [this] { return !held || stopped || mayEnd > 0; });
        if (held && mayEnd > 0)
            --mayEnd;
        const bool none = failing || lacking || stopped;
        return {none ? QByteArray() : bytes, failing || stopped};
    }

    bool lacksOriginal(qint64 id) override { return id == away; }

    bool isStopped() const override
    {
        const std::lock_guard<std::mutex> lock(mutex);
        return stopped;
    }

    const qint64 away = 77; ///< of this photo the original is not on the device

    void hold(bool on) { set(held, on); }
    void fail(bool on) { set(failing, on); }
    void lack(bool on) { set(lacking, on); }
    void stop() { set(stopped, true); }
    /// One of the reads that hang, or the next one, ends.
    void letOneEnd()
    {
        const std::lock_guard<std::mutex> lock(mutex);
        ++mayEnd;
        changed.notify_all();
    }

    QVector<qint64> requests() const
    {
        const std::lock_guard<std::mutex> lock(mutex);
        QVector<qint64> copy = asked;
        copy.detach(); // now: what shares memory would be read without the lock
        return copy;
    }

private:
    void set(bool &flag, bool value)
    {
        const std::lock_guard<std::mutex> lock(mutex);
        flag = value;
        changed.notify_all();
    }

    const QByteArray bytes = pictureBytes(plainPicture(64, 48, QColor(200, 60, 20)));
    mutable std::mutex mutex;
    std::condition_variable changed;
    QVector<qint64> asked;
    int mayEnd = 0;
    bool held = false;
    bool failing = false;
    bool lacking = false;
    bool stopped = false;
};

#endif
