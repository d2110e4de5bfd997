#ifndef TESTING_QT_PRINTERS_H
#define TESTING_QT_PRINTERS_H

#include <QByteArray>
#include <QDateTime>
#include <QString>
#include <QStringList>

#include <ostream>

// GoogleTest finds these by their argument's namespace, and so shows Qt's values readably when a comparison fails.

inline void PrintTo(const QString &text, std::ostream *out)
{
    if (text.isNull())
        *out << "(null QString)";
    else
        *out << '"' << text.toStdString() << '"';
}

inline void PrintTo(const QByteArray &bytes, std::ostream *out)
{
    constexpr int shownBytes = 200;
    if (bytes.isNull())
        *out << "(null QByteArray)";
    else
        *out << bytes.size() << " bytes \"" << bytes.left(shownBytes).toPercentEncoding(" /:.-_").toStdString() << '"';
}

inline void PrintTo(const QDateTime &time, std::ostream *out)
{
    *out << (time.isValid() ? time.toString(Qt::ISODateWithMs).toStdString() : "(invalid QDateTime)");
}

inline void PrintTo(const QStringList &lines, std::ostream *out)
{
    *out << lines.size() << " lines";
    for (const QString &line : lines)
        *out << "\n    " << line.toStdString();
}

#endif
