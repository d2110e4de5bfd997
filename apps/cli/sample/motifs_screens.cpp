#include "apps/cli/sample/canvas.h"
#include "apps/cli/sample/motifs.h"
#include "apps/cli/sample/stroke_font.h"

#include <QPainterPath>

namespace sample
{

namespace
{

void write(Canvas &canvas, double x, double y, double height, const QColor &colour, const QString &text)
{
    canvas.painter.setPen(colour);
    drawStrokeText(canvas.painter, QPointF(x, y), height, text);
}

void paintStatusBar(Canvas &canvas, const QColor &ink)
{
    const int minute = static_cast<int>(canvas.scene.seed % 60);
    write(canvas, 3, 2.2, 1.5, ink, QStringLiteral("9:%1").arg(minute, 2, 10, QLatin1Char('0')));
    canvas.painter.setPen(QPen(ink, 0.25));
    canvas.painter.setBrush(Qt::NoBrush);
    canvas.painter.drawRoundedRect(QRectF(canvas.width - 7, 2.1, 3.6, 1.7), 0.4, 0.4);
    canvas.painter.fillRect(QRectF(canvas.width - 6.7, 2.4, 2.3, 1.1), ink);
    for (int i = 0; i < 4; ++i)
        canvas.painter.fillRect(QRectF(canvas.width - 12 + i * 0.9, 3.6 - i * 0.4, 0.55, 0.4 + i * 0.4), ink);
}

void paintCard(Canvas &canvas, const QRectF &box, const QColor &colour)
{
    canvas.painter.setPen(Qt::NoPen);
    canvas.painter.setBrush(colour);
    canvas.painter.drawRoundedRect(box, 2, 2);
}

} // namespace

void paintChatScreen(Canvas &canvas)
{
    canvas.painter.fillRect(QRectF(0, 0, canvas.width, 100), QColor(0xf5f6fa));
    canvas.painter.fillRect(QRectF(0, 0, canvas.width, 11), QColor(0xffffff));
    paintStatusBar(canvas, QColor(0x22262e));
    write(canvas, 4, 6.8, 1.9, QColor(0x22262e), QStringLiteral("Weekend plans"));
    const char *lines[] = {"See you at noon",     "Yes, by the harbour", "Bring a warm coat",
                           "And the good camera", "Cake is on me",       "Train leaves 10:40"};
    const int first = canvas.random.below(6);
    double y = 15;
    for (int i = 0; i < 6; ++i) {
        const QString line = QString::fromLatin1(lines[(first + i) % 6]);
        const double width = strokeTextWidth(line, 1.3) + 4;
        const bool mine = canvas.random.chance(0.5);
        const double x = mine ? canvas.width - width - 3 : 3;
        paintCard(canvas, QRectF(x, y, width, 5), mine ? QColor(0x3b82f6) : QColor(0xe3e7ef));
        write(canvas, x + 2, y + 1.9, 1.3, mine ? QColor(0xffffff) : QColor(0x22262e), line);
        y += canvas.random.between(7, 13);
    }
    paintCard(canvas, QRectF(3, 91, canvas.width - 6, 5), QColor(0xffffff));
    write(canvas, 5, 92.9, 1.2, QColor(0xa0a7b4), QStringLiteral("Message"));
}

void paintMapScreen(Canvas &canvas)
{
    canvas.painter.fillRect(QRectF(0, 0, canvas.width, 100), QColor(0xeef0e6));
    for (int i = 0; i < 7; ++i)
        paintCard(canvas,
                  QRectF(canvas.random.between(-5, canvas.width), canvas.random.between(0, 80),
                         canvas.random.between(6, 16), canvas.random.between(6, 18)),
                  i % 3 == 0 ? QColor(0xb9dcf2) : QColor(0xcfe6b8));
    for (int pass = 0; pass < 2; ++pass) {
        Random streets(canvas.scene.seed);
        for (int i = 0; i < 16; ++i) {
            const bool wide = i % 5 == 0;
            const double at = streets.between(0, 100), bend = streets.between(-14, 14);
            const QColor paved = wide ? QColor(0xfbd77a) : QColor(0xffffff);
            canvas.painter.setPen(
                QPen(pass == 0 ? QColor(0xcbc8bb) : paved, (wide ? 2.2 : 1.3) + (pass == 0 ? 0.4 : 0)));
            if (i % 2 == 0)
                canvas.painter.drawLine(QPointF(-2, at), QPointF(canvas.width + 2, at + bend));
            else
                canvas.painter.drawLine(QPointF(at * canvas.width / 100, -2),
                                        QPointF(at * canvas.width / 100 + bend, 102));
        }
    }
    const double x = canvas.width * 0.55, y = 46;
    const double start = canvas.scene.phase * 0.8; // how much of the way lies behind
    canvas.painter.setPen(QPen(QColor(0x3b82f6), 1.4, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    canvas.painter.setBrush(Qt::NoBrush);
    canvas.painter.drawPolyline(Points{{canvas.width * (0.2 + 0.1 * start), 84 - 18 * start},
                                       {canvas.width * 0.3, 66},
                                       {canvas.width * 0.48, 62},
                                       {x, y}});
    fillCircle(canvas, x, y - 4, 2.8, QColor(0xe4483c));
    canvas.painter.drawPolygon(Points{{x - 2, y - 2.4}, {x + 2, y - 2.4}, {x, y}});
    fillCircle(canvas, x, y - 4, 1.1, Qt::white);
    paintCard(canvas, QRectF(3, 4.5, canvas.width - 6, 6.5), QColor(0xffffff));
    write(canvas, 6, 6.9, 1.6, QColor(0x5a6270), canvas.scene.subtitle);
}

void paintWeatherScreen(Canvas &canvas)
{
    QLinearGradient back(0, 0, 0, 100);
    back.setColorAt(0, canvas.colours.skyTop);
    back.setColorAt(1, canvas.colours.skyMiddle);
    canvas.painter.fillRect(QRectF(0, 0, canvas.width, 100), back);
    paintStatusBar(canvas, Qt::white);
    const auto centred = [&canvas](double y, double height, const QString &text) {
        write(canvas, (canvas.width - strokeTextWidth(text, height)) / 2, y, height, Qt::white, text);
    };
    centred(11, 2.2, canvas.scene.subtitle);
    centred(17, 10, QString::number(8 + canvas.random.below(20)));
    centred(30, 1.5, QStringLiteral("Mostly sunny"));
    for (int day = 0; day < 7; ++day) {
        const double y = 40 + day * 7.4 - canvas.scene.phase * 4; // the list is being scrolled
        paintCard(canvas, QRectF(4, y, canvas.width - 8, 6.2), QColor(255, 255, 255, 46));
        const char *names[] = {"Mon", "Tue", "Wed", "Thu", "Fri", "Sat", "Sun"};
        write(canvas, 6.5, y + 2.3, 1.6, Qt::white, QString::fromLatin1(names[day]));
        fillCircle(canvas, canvas.width * 0.45, y + 3.1, 1.7,
                   canvas.random.chance(0.6) ? QColor(0xffd65c) : QColor(0xe6edf5));
        write(canvas, canvas.width - 12, y + 2.3, 1.6, Qt::white, QString::number(9 + canvas.random.below(18)));
    }
}

} // namespace sample
