#ifndef APPS_BROWSER_PAGE_TEXTS_H
#define APPS_BROWSER_PAGE_TEXTS_H

#include "apps/browser/library/snapshot.h"

#include <QCoreApplication>
#include <QDate>

namespace browser
{

/// Texts that several widgets show, in the locale's language.
class Texts
{
    Q_DECLARE_TR_FUNCTIONS(browser::Texts)

public:
    /// "June 2019"; of a null date "No date".
    static QString month(const QDate &month);
    /// "1:05", "1:00:05".
    static QString duration(qint32 seconds);
    /// "1.5 MB".
    static QString size(qint64 bytes);
    /// "about 1.5 MB": databases hold the sizes of other files of the photo.
    static QString roughSize(qint64 bytes);
    /// Local date and time with its zone, as the locale writes them; empty for Photo::noDate.
    static QString dateAndTime(qint64 date);
    /// "52.2053° N, 0.1218° E", with so many decimals.
    static QString coordinates(double latitude, double longitude, int decimals);
    /// "Live Photo", "Screenshot", "Video", ...
    static QString kind(const Photo &photo);
    /// Name, kind, date and what the marks in a cell say in one line, for tool tips and screen readers.
    static QString description(const Photo &photo, bool lacksOriginal);
    static QString photoCount(int count);
};

} // namespace browser

#endif
