#include "apps/browser/window/notice_bar.h"

#include <QAccessible>
#include <QBoxLayout>
#include <QEvent>
#include <QLabel>
#include <QPushButton>
#include <QStyle>
#include <QToolButton>

namespace browser
{

namespace
{

QColor between(const QColor &one, const QColor &other, double share)
{
    return QColor::fromRgbF(one.redF() * (1 - share) + other.redF() * share,
                            one.greenF() * (1 - share) + other.greenF() * share,
                            one.blueF() * (1 - share) + other.blueF() * share);
}

} // namespace

NoticeBar::NoticeBar(QWidget *parent)
    : QFrame(parent), icon(new QLabel(this)), label(new QLabel(this)), action(new QPushButton(this)),
      closing(new QToolButton(this))
{
    setObjectName(QStringLiteral("noticeBar"));
    setAutoFillBackground(true);
    label->setObjectName(QStringLiteral("noticeText"));
    label->setWordWrap(true);
    label->setTextFormat(Qt::PlainText);
    action->setObjectName(QStringLiteral("noticeButton"));
    action->hide();
    closing->setObjectName(QStringLiteral("noticeClose"));
    closing->setAutoRaise(true);
    closing->setIcon(style()->standardIcon(QStyle::SP_DockWidgetCloseButton));
    closing->setToolTip(tr("Hide this message"));
    closing->setAccessibleName(tr("Hide this message"));
    closing->setFocusPolicy(Qt::TabFocus);
    auto *const layout = new QHBoxLayout(this);
    layout->addWidget(icon);
    layout->addWidget(label, 1);
    layout->addWidget(action);
    layout->addWidget(closing);
    connect(action, &QPushButton::clicked, this, &NoticeBar::pressed);
    connect(closing, &QToolButton::clicked, this, [this] {
        hide();
        Q_EMIT dismissed();
    });
    updateColors();
    hide();
}

void NoticeBar::showNotice(Symbol symbol, const QString &text, const QString &button, const QString &details)
{
    shown = symbol;
    label->setText(text);
    label->setToolTip(details);
    setAccessibleName(text);
    action->setText(button);
    action->setVisible(!button.isEmpty());
    updateColors();
    show();
    QAccessibleEvent event(this, QAccessible::Alert);
    QAccessible::updateAccessibility(&event);
}

QString NoticeBar::text() const
{
    return isHidden() ? QString() : label->text();
}

void NoticeBar::updateColors()
{
    QPalette colors = parentWidget() != nullptr ? parentWidget()->palette() : palette();
    const double share = 0.22;
    colors.setColor(QPalette::Window,
                    between(colors.color(QPalette::Window), colors.color(QPalette::Highlight), share));
    setPalette(colors);
    const int side = fontMetrics().height() * 5 / 4;
    icon->setPixmap(symbolIcon(shown).pixmap(window()->windowHandle(), QSize(side, side)));
}

void NoticeBar::changeEvent(QEvent *event)
{
    QFrame::changeEvent(event);
    if (event->type() == QEvent::ApplicationPaletteChange)
        updateColors();
}

} // namespace browser
