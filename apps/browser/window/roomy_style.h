#ifndef APPS_BROWSER_WINDOW_ROOMY_STYLE_H
#define APPS_BROWSER_WINDOW_ROOMY_STYLE_H

#include <QProxyStyle>

namespace browser
{

/// The desktop's style, with more room round the text of buttons and with the arrow of a button that opens a menu
/// beside its text instead of in a corner.
class RoomyStyle final : public QProxyStyle
{
public:
    /// `base` names a style of QStyleFactory.
    explicit RoomyStyle(const QString &base) : QProxyStyle(base) {}

    QSize sizeFromContents(ContentsType type, const QStyleOption *option, const QSize &size,
                           const QWidget *widget) const override;
    void drawComplexControl(ComplexControl control, const QStyleOptionComplex *option, QPainter *painter,
                            const QWidget *widget) const override;
};

} // namespace browser

#endif
