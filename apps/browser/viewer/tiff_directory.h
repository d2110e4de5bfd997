#ifndef APPS_BROWSER_VIEWER_TIFF_DIRECTORY_H
#define APPS_BROWSER_VIEWER_TIFF_DIRECTORY_H

#include <QByteArray>

#include <optional>
#include <vector>

namespace browser
{

/// The structure of TIFF, which EXIF data and most RAW files have, too. Reads hostile bytes: whatever lies outside of
/// them is as if it were not there, and a chain of directories ends.
class TiffFile
{
public:
    struct Entry {
        quint16 tag = 0;
        quint16 type = 0;
        quint32 count = 0;
        qint64 valuesAt = 0; ///< where its values begin
    };
    struct Directory {
        std::vector<Entry> entries;
        qint64 next = 0; ///< where the next directory is; 0 for none
    };

    /// Keeps a share of the bytes.
    explicit TiffFile(const QByteArray &bytes);

    bool isValid() const { return valid; }

    /// 0 for none.
    qint64 firstDirectory() const { return valid ? long32(4).value_or(0) : 0; }
    std::optional<Directory> directory(qint64 at) const;

    /// First value of an entry of whole numbers.
    std::optional<quint32> number(const Directory &directory, quint16 tag) const;
    /// All of them, at most 64.
    std::vector<quint32> numbers(const Directory &directory, quint16 tag) const;
    static bool has(const Directory &directory, quint16 tag);

private:
    std::optional<quint32> short16(qint64 at) const;
    std::optional<quint32> long32(qint64 at) const;
    std::optional<quint32> valueAt(const Entry &entry, quint32 index) const;

    const QByteArray data;
    bool bigEndian = false;
    bool valid = false;
};

} // namespace browser

#endif
