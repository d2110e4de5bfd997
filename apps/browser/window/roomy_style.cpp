#include "apps/browser/window/roomy_style.h"

#include <QStyleOption>

namespace browser
{

namespace
{

// With an arrow of its own: buttons of two halves have another one, which is left to the desktop's style.
const QStyleOptionToolButton *menuButton(const QStyleOption *option)
{
    const auto *const button = qstyleoption_cast<const QStyleOptionToolButton *>(option);
    if (button == nullptr || (button->features & QStyleOptionToolButton::HasMenu) == 0 ||
        (button->features & QStyleOptionToolButton::MenuButtonPopup) != 0)
        return nullptr;
    return button;
}

int arrowSide(const QStyleOption *option)
{
    return option->fontMetrics.height() * 2 / 3;
}

} // namespace

QSize RoomyStyle::sizeFromContents(ContentsType type, const QStyleOption *option, const QSize &size,
                                   const QWidget *widget) const
{
    const QSize result = QProxyStyle::sizeFromContents(type, option, size, widget);
    if (option == nullptr)
        return result;
    if (type == CT_PushButton)
        return result + QSize(option->fontMetrics.averageCharWidth() * 2, option->fontMetrics.height() / 4);
    if (type == CT_ToolButton && menuButton(option) != nullptr)
        return result + QSize(arrowSide(option) / 2, 0);
    return result;
}

void RoomyStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex *option, QPainter *painter,
                                    const QWidget *widget) const
{
    const QStyleOptionToolButton *const button = control == CC_ToolButton ? menuButton(option) : nullptr;
    if (button == nullptr) {
        QProxyStyle::drawComplexControl(control, option, painter, widget);
        return;
    }
    QStyleOptionToolButton plain(*button);
    plain.features &= ~QStyleOptionToolButton::HasMenu;
    QProxyStyle::drawComplexControl(control, &plain, painter, widget);
    const int side = arrowSide(option);
    const QSize space(side, side);
    plain.rect = alignedRect(button->direction, Qt::AlignRight | Qt::AlignVCenter, space,
                             button->rect.adjusted(side / 3, 0, -side / 3, 0));
    proxy()->drawPrimitive(PE_IndicatorArrowDown, &plain, painter, widget);
}

} // namespace browser
