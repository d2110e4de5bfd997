#ifndef EXPORTER_LAYOUT_H
#define EXPORTER_LAYOUT_H

#include <QString>
#include <QStringList>

#include <memory>
#include <vector>

struct photoItem;

namespace exporter
{

/// Why a layout is not valid.
struct LayoutError {
    QString text;      ///< one line without full stop, with the list of fields where that helps
    int position = -1; ///< where in the layout, in characters from 0
};

/// Where the files of a photo go: folders and one name without extension.
struct Place {
    QStringList folders; ///< each a name that is safe on every file system
    QString stem;        ///< the same
};

/// A layout such as "{created:yyyy}/{created:yyyy-MM-dd}_{fileName}", ready for use.
///
/// - {field} stands for a value of the photo, {field:format} for a date in a format of QDateTime::toString(), in
///   English. A date without format is "yyyy-MM-dd_HH-mm-ss"; an unknown one, or exactly the start of 2001
///   (UTC), which the library reads where it has no date, is "undated". A text without content is "unknown".
/// - {{ and }} stand for braces. "/" makes folders; a "/" that comes out of a value becomes "_".
/// - The extension is always the file's own. It need not be in the layout: {stem} and {fileName} at the end are the
/// same.
/// - The word "dcim" alone keeps the folders and names of the device.
///
/// Immutable: any thread may use it.
class Layout
{
public:
    /// Null, with `*error` filled, when the layout is not valid. `error` may be null.
    static std::unique_ptr<const Layout> parse(const QString &text, LayoutError *error);

    /// The names of the fields, in the order in which they are documented.
    static QStringList fields();

    /// One line that says what the field stands for; empty for an unknown one.
    static QString fieldDescription(const QString &field);

    /// Where this photo goes, before clashes are looked at. `utcDates`: dates in UTC, else in local time.
    Place place(const photoItem &photo, bool utcDates) const;

private:
    struct Part {
        int field = -1; ///< index of the field; -1 for plain text
        QString text;   ///< plain text, or the format of a date
    };
    using Parts = std::vector<Part>; ///< of one folder or file name

    Layout() = default;

    std::vector<Parts> components; ///< empty for "dcim"

    friend class LayoutParser;
};

} // namespace exporter

#endif
