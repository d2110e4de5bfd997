#include "apps/browser/viewer/overlays.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QLocale>
#include <QPainter>
#include <QPainterPath>
#include <QProgressBar>
#include <QPushButton>
#include <QVBoxLayout>

namespace browser
{

namespace
{

constexpr int patience = 200; // milliseconds: what is quicker needs no spinner
constexpr int turnInterval = 60;
constexpr int spinnerSteps = 12;
constexpr int spinnerSize = 44;
constexpr int playSize = 84;
constexpr int panelWidth = 380;
constexpr int barSteps = 1000;

void makePanel(QFrame *panel)
{
    panel->setFrameShape(QFrame::StyledPanel);
    panel->setBackgroundRole(QPalette::Window);
    panel->setAutoFillBackground(true);
    panel->setFixedWidth(panelWidth);
    panel->hide();
}

QVBoxLayout *panelLayout(QFrame *panel)
{
    auto *layout = new QVBoxLayout(panel);
    layout->setContentsMargins(20, 18, 20, 18);
    layout->setSpacing(14);
    return layout;
}

} // namespace

BusySpinner::BusySpinner(QWidget *parent) : QWidget(parent)
{
    setObjectName(QStringLiteral("busySpinner"));
    setAccessibleName(tr("Loading"));
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setFixedSize(sizeHint());
    hide();
    delay.setSingleShot(true);
    delay.setInterval(patience);
    turning.setInterval(turnInterval);
    connect(&delay, &QTimer::timeout, this, [this] {
        show();
        turning.start();
    });
    connect(&turning, &QTimer::timeout, this, [this] {
        step = (step + 1) % spinnerSteps;
        update();
    });
}

void BusySpinner::start()
{
    if (!delay.isActive() && !turning.isActive())
        delay.start();
}

void BusySpinner::stop()
{
    delay.stop();
    turning.stop();
    hide();
}

QSize BusySpinner::sizeHint() const
{
    return {spinnerSize, spinnerSize};
}

void BusySpinner::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    QColor back = palette().color(QPalette::Window);
    back.setAlphaF(0.7);
    painter.setPen(Qt::NoPen);
    painter.setBrush(back);
    painter.drawEllipse(rect());
    painter.translate(width() / 2.0, height() / 2.0);
    QColor ink = palette().color(QPalette::WindowText);
    for (int i = 0; i < spinnerSteps; ++i) {
        ink.setAlphaF(static_cast<double>((i - step + spinnerSteps) % spinnerSteps + 1) / spinnerSteps);
        painter.setPen(QPen(ink, 2.6, Qt::SolidLine, Qt::RoundCap));
        painter.save();
        painter.rotate(i * 360.0 / spinnerSteps);
        painter.drawLine(QPointF(0, -9), QPointF(0, -14));
        painter.restore();
    }
}

PlayButton::PlayButton(QWidget *parent) : QAbstractButton(parent)
{
    setObjectName(QStringLiteral("playButton"));
    setAccessibleName(tr("Play the video"));
    setToolTip(tr("Play in this computer's video player (Enter)"));
    setFixedSize(sizeHint());
    setCursor(Qt::PointingHandCursor);
    setFocusPolicy(Qt::TabFocus);
    setAttribute(Qt::WA_Hover);
    hide();
}

QSize PlayButton::sizeHint() const
{
    return {playSize, playSize};
}

bool PlayButton::hitButton(const QPoint &point) const
{
    const QPointF fromCentre = QPointF(point) - QRectF(rect()).center();
    return QPointF::dotProduct(fromCentre, fromCentre) <= playSize * playSize / 4.0;
}

void PlayButton::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    QColor disc = palette().color(underMouse() || isDown() ? QPalette::Highlight : QPalette::Window);
    disc.setAlphaF(underMouse() || isDown() ? 1 : 0.85);
    const QColor ink = palette().color(underMouse() || isDown() ? QPalette::HighlightedText : QPalette::WindowText);
    painter.setPen(hasFocus() ? QPen(palette().color(QPalette::Highlight), 3) : QPen(Qt::NoPen));
    painter.setBrush(disc);
    painter.drawEllipse(QRectF(rect()).adjusted(2, 2, -2, -2));
    painter.translate(width() / 2.0, height() / 2.0);
    QPainterPath triangle(QPointF(-10, -17));
    triangle.lineTo(18, 0);
    triangle.lineTo(-10, 17);
    triangle.closeSubpath();
    painter.setPen(QPen(ink, 3, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.setBrush(ink);
    painter.drawPath(triangle);
}

ProblemPanel::ProblemPanel(QWidget *parent)
    : QFrame(parent), label(new QLabel), button(new QPushButton(tr("Try again")))
{
    setObjectName(QStringLiteral("problemPanel"));
    makePanel(this);
    label->setWordWrap(true);
    label->setTextFormat(Qt::PlainText);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    label->setAlignment(Qt::AlignCenter);
    button->setObjectName(QStringLiteral("tryAgainButton"));
    QVBoxLayout *layout = panelLayout(this);
    layout->addWidget(label);
    layout->addWidget(button, 0, Qt::AlignCenter);
    connect(button, &QPushButton::clicked, this, &ProblemPanel::tryAgain);
}

void ProblemPanel::showText(const QString &text, bool canTryAgain)
{
    label->setText(text);
    setAccessibleName(text);
    button->setVisible(canTryAgain);
    show();
}

QString ProblemPanel::text() const
{
    return label->text();
}

FilmPanel::FilmPanel(QWidget *parent) : QFrame(parent), label(new QLabel), bar(new QProgressBar)
{
    setObjectName(QStringLiteral("filmPanel"));
    makePanel(this);
    label->setWordWrap(true);
    label->setTextFormat(Qt::PlainText);
    bar->setTextVisible(false);
    auto *cancel = new QPushButton(tr("Cancel"));
    cancel->setObjectName(QStringLiteral("cancelFilmButton"));
    QVBoxLayout *layout = panelLayout(this);
    layout->addWidget(label);
    auto *row = new QHBoxLayout;
    row->addWidget(bar, 1);
    row->addWidget(cancel);
    layout->addLayout(row);
    connect(cancel, &QPushButton::clicked, this, &FilmPanel::cancelled);
}

void FilmPanel::start(const QString &fileName)
{
    label->setText(tr("Getting %1 from the device…").arg(fileName));
    bar->setRange(0, 0);
    bar->setAccessibleName(label->text());
    show();
}

void FilmPanel::showProgress(qint64 done, qint64 total)
{
    bar->setRange(0, barSteps);
    bar->setValue(total > 0 ? static_cast<int>(done * barSteps / total) : 0);
    const QLocale locale;
    bar->setToolTip(tr("%1 of %2").arg(locale.formattedDataSize(done), locale.formattedDataSize(total)));
}

} // namespace browser
