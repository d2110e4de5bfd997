#include "apps/browser/page/glyph_paths.h"

#include <QStringList>
#include <QVector>

namespace browser
{

namespace
{

// Letters, each with its numbers behind it: M x y (move), L x y (line), C and three points (curve), Z (close),
// R x y width height (frame with round corners), O x y radius (circle).
constexpr const char *frame = "R 1.5 3 13 10.5 ";

QString linesOf(Glyph glyph)
{
    const auto text = [](const char *lines) { return QString::fromLatin1(lines); };
    const QString person = text("O 8 5.5 2.8 M 2.5 14 C 2.5 9 13.5 9 13.5 14");
    const QString framed = text(frame);
    switch (glyph) {
    case Glyph::Photos:
        return framed + text("M 2.5 12 L 6 8 L 8.5 10.5 L 10.5 8.5 L 13.5 12 O 10.8 5.8 1");
    case Glyph::Heart:
        return text("M 8 13.5 C 1 9 1 3 5 3 C 6.5 3 7.5 4 8 5 C 8.5 4 9.5 3 11 3 C 15 3 15 9 8 13.5");
    case Glyph::Camera:
        return text("R 1.5 4.5 13 9 O 8 9 2.6 M 5.5 4.5 L 6.5 2.5 L 9.5 2.5 L 10.5 4.5");
    case Glyph::Person:
        return person;
    case Glyph::Pin:
        return text("M 8 14.5 C 5.5 11 3.5 9 3.5 6.2 C 3.5 0 12.5 0 12.5 6.2 C 12.5 9 10.5 11 8 14.5 O 8 6 1.5");
    case Glyph::Memory:
        return text("M 8 2 C 8.3 6 10 7.7 14 8 C 10 8.3 8.3 10 8 14 C 7.7 10 6 8.3 2 8 C 6 7.7 7.7 6 8 2");
    case Glyph::Film:
        return text("R 1.5 4 9 8 M 10.5 7.5 L 14.5 5 L 14.5 11 L 10.5 8.5");
    case Glyph::Live:
        return text("O 8 8 1.6 O 8 8 4 O 8 8 6.4");
    case Glyph::Portrait:
        return text("R 2 1.5 12 13 ") + person;
    case Glyph::Panorama:
        return text("R 0.8 5 14.4 6 M 3 9 L 6 7 L 9 9 L 11 8 L 13 9");
    case Glyph::Clock:
        return text("O 8 8 6.2 M 8 4.5 L 8 8 L 10.5 9.5");
    case Glyph::Screen:
        return text("R 4 1.2 8 13.6 M 7 12.5 L 9 12.5");
    default:
        return {};
    }
}

QString moreLinesOf(Glyph glyph)
{
    const auto text = [](const char *lines) { return QString::fromLatin1(lines); };
    const QString framed = text(frame);
    switch (glyph) {
    case Glyph::Burst:
        return text("R 1.5 5.5 9 9 M 4 3.4 L 12.6 3.4 L 12.6 12 M 6.5 1.4 L 14.6 1.4 L 14.6 9.5");
    case Glyph::Copies:
        return text("R 1.5 4.5 9 10 M 5.5 4.5 L 5.5 1.5 L 14.5 1.5 L 14.5 11.5 L 10.5 11.5");
    case Glyph::Hidden:
        return text("M 1.5 8 C 4.5 3 11.5 3 14.5 8 C 11.5 13 4.5 13 1.5 8 M 3 13 L 13 3");
    case Glyph::Trash:
        return text("M 2.5 4.5 L 13.5 4.5 R 4 4.5 8 9.5 M 6.5 2.5 L 9.5 2.5 M 6.7 7 L 6.7 11.5 M 9.3 7 L 9.3 11.5");
    case Glyph::Album:
        return text("R 2 5 12 9 M 3.5 3 L 12.5 3 M 5 1.2 L 11 1.2");
    case Glyph::Shared:
        return text("O 6 5.5 2.4 M 1.2 13.5 C 1.2 8.8 10.8 8.8 10.8 13.5 M 10.5 3.2 C 13 3.6 13 7.2 10.5 7.6 "
                    "M 12.2 9.8 C 14 10.5 14.8 12 14.8 13.5");
    case Glyph::Cloud:
        return text("M 4.5 12.5 C 0.8 12.5 0.8 7.8 4 7.6 C 4 3.2 10.5 2.8 11 6.8 C 15.4 6.4 15.4 12.5 11.8 12.5 Z");
    case Glyph::Import:
        return text("M 8 2 L 8 10 M 5 7 L 8 10 L 11 7 M 2.5 10 L 2.5 13.5 L 13.5 13.5 L 13.5 10");
    case Glyph::Raw:
        return framed + text("M 4.5 10.5 L 4.5 6 M 8 10.5 L 8 6 M 11.5 10.5 L 11.5 6");
    case Glyph::Moving:
        return framed + text("M 6.5 5.8 L 10.5 8.2 L 6.5 10.6 Z");
    case Glyph::NoPicture:
        return framed + text("M 2.5 15 L 13.5 1.5");
    case Glyph::Check:
        return text("M 3.5 8.5 L 6.8 11.8 L 12.8 4.8");
    case Glyph::Info:
        return text("O 8 8 6.4 M 8 7.2 L 8 11.5 M 8 4.6 L 8 4.9");
    case Glyph::Filter:
        return text("M 2 4 L 14 4 M 4.5 8 L 11.5 8 M 6.5 12 L 9.5 12");
    case Glyph::Search:
        return text("O 6.8 6.8 4.6 M 10.2 10.2 L 14 14");
    case Glyph::Sort:
        return text("M 4.5 3 L 4.5 13 L 2 10.5 M 4.5 13 L 7 10.5 M 9 4 L 14.5 4 M 9 8 L 13 8 M 9 12 L 11.5 12");
    default:
        return {};
    }
}

void addPart(QPainterPath &path, QChar letter, const QVector<double> &numbers)
{
    constexpr double corner = 1.5;
    const auto point = [&numbers](int at) { return QPointF(numbers.value(at), numbers.value(at + 1)); };
    switch (letter.unicode()) {
    case 'M':
        return path.moveTo(point(0));
    case 'L':
        return path.lineTo(point(0));
    case 'C':
        return path.cubicTo(point(0), point(2), point(4));
    case 'R':
        return path.addRoundedRect(QRectF(point(0), QSizeF(numbers.value(2), numbers.value(3))), corner, corner);
    case 'O':
        return path.addEllipse(point(0), numbers.value(2), numbers.value(2));
    default:
        return path.closeSubpath();
    }
}

} // namespace

QPainterPath glyphPath(Glyph glyph)
{
    QPainterPath path;
    const QStringList words = (linesOf(glyph) + moreLinesOf(glyph)).split(QLatin1Char(' '), Qt::SkipEmptyParts);
    for (int at = 0; at < words.size();) {
        const QChar letter = words[at++][0];
        QVector<double> numbers;
        while (at < words.size() && !words[at][0].isLetter())
            numbers += words[at++].toDouble();
        addPart(path, letter, numbers);
    }
    return path;
}

} // namespace browser
