#include "apps/browser/device/symbols.h"

#include <QGuiApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPainterPath>
#include <QPalette>

namespace browser
{

namespace
{

// All shapes are lines in a square of 16 by 16.

QPainterPath phone()
{
    QPainterPath path;
    path.addRoundedRect(QRectF(4.5, 1.5, 7, 13), 1.5, 1.5);
    path.moveTo(7, 12.5);
    path.lineTo(9, 12.5);
    return path;
}

QPainterPath folder()
{
    QPainterPath path;
    path.moveTo(1.5, 3.5);
    path.lineTo(6, 3.5);
    path.lineTo(7.5, 5.5);
    path.lineTo(14.5, 5.5);
    path.lineTo(14.5, 13.5);
    path.lineTo(1.5, 13.5);
    path.closeSubpath();
    return path;
}

QPainterPath backup()
{
    QPainterPath path;
    path.addRect(QRectF(1.5, 2.5, 13, 3));
    path.moveTo(2.5, 5.5);
    path.lineTo(2.5, 13.5);
    path.lineTo(13.5, 13.5);
    path.lineTo(13.5, 5.5);
    path.moveTo(6, 8.5);
    path.lineTo(10, 8.5);
    return path;
}

QPainterPath back()
{
    QPainterPath path;
    path.moveTo(10, 3);
    path.lineTo(5, 8);
    path.lineTo(10, 13);
    return path;
}

QPainterPath exportArrow()
{
    QPainterPath path;
    path.moveTo(8, 2);
    path.lineTo(8, 10);
    path.moveTo(4.5, 6.5);
    path.lineTo(8, 10);
    path.lineTo(11.5, 6.5);
    path.moveTo(2.5, 10.5);
    path.lineTo(2.5, 13.5);
    path.lineTo(13.5, 13.5);
    path.lineTo(13.5, 10.5);
    return path;
}

QPainterPath refresh()
{
    QPainterPath path;
    path.arcMoveTo(QRectF(3, 3, 10, 10), 40);
    path.arcTo(QRectF(3, 3, 10, 10), 40, 290);
    path.moveTo(12.5, 1.5);
    path.lineTo(12.5, 5);
    path.lineTo(9, 5);
    return path;
}

QPainterPath warning()
{
    QPainterPath path;
    path.moveTo(8, 2);
    path.lineTo(14.5, 13.5);
    path.lineTo(1.5, 13.5);
    path.closeSubpath();
    path.moveTo(8, 6);
    path.lineTo(8, 9.5);
    path.moveTo(8, 11.3);
    path.lineTo(8, 11.6);
    return path;
}

QPainterPath information()
{
    QPainterPath path;
    path.addEllipse(QRectF(1.5, 1.5, 13, 13));
    path.moveTo(8, 7.5);
    path.lineTo(8, 11.5);
    path.moveTo(8, 4.7);
    path.lineTo(8, 5);
    return path;
}

QPainterPath log()
{
    QPainterPath path;
    for (const double y : {4.0, 8.0, 12.0}) {
        path.moveTo(2.5, y);
        path.lineTo(13.5, y);
    }
    return path;
}

QPainterPath shapeOf(Symbol symbol)
{
    switch (symbol) {
    case Symbol::Phone:
        return phone();
    case Symbol::Folder:
        return folder();
    case Symbol::Backup:
        return backup();
    case Symbol::Back:
        return back();
    case Symbol::Export:
        return exportArrow();
    case Symbol::Refresh:
        return refresh();
    case Symbol::Warning:
        return warning();
    case Symbol::Information:
        return information();
    case Symbol::Log:
        return log();
    }
    return {};
}

class SymbolEngine final : public QIconEngine
{
public:
    explicit SymbolEngine(Symbol drawn) : symbol(drawn) {}

    void paint(QPainter *painter, const QRect &rect, QIcon::Mode mode, QIcon::State) override
    {
        const QPalette::ColorGroup group = mode == QIcon::Disabled ? QPalette::Disabled : QPalette::Active;
        const QPalette::ColorRole role = mode == QIcon::Selected ? QPalette::HighlightedText : QPalette::WindowText;
        painter->save();
        painter->setRenderHint(QPainter::Antialiasing);
        const double side = qMin(rect.width(), rect.height());
        painter->translate(rect.x() + (rect.width() - side) / 2, rect.y() + (rect.height() - side) / 2);
        painter->scale(side / 16, side / 16);
        painter->setPen(
            QPen(QGuiApplication::palette().color(group, role), 1.0, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        painter->drawPath(shapeOf(symbol));
        painter->restore();
    }

    QPixmap pixmap(const QSize &size, QIcon::Mode mode, QIcon::State state) override
    {
        QPixmap result(size);
        result.fill(Qt::transparent);
        QPainter painter(&result);
        paint(&painter, QRect(QPoint(), size), mode, state);
        return result;
    }

    QIconEngine *clone() const override { return new SymbolEngine(symbol); }

private:
    const Symbol symbol;
};

} // namespace

QIcon symbolIcon(Symbol symbol)
{
    return QIcon(new SymbolEngine(symbol));
}

QIcon themedIcon(const QString &name, Symbol fallback)
{
    return QIcon::fromTheme(name, symbolIcon(fallback));
}

} // namespace browser
