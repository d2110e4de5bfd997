#include "apps/browser/viewer/viewer_bar.h"

#include <QHBoxLayout>
#include <QKeySequence>
#include <QLocale>
#include <QVBoxLayout>

#include <cmath>

namespace browser
{

namespace
{

QString keyText(Qt::Key key)
{
    return QKeySequence(key).toString(QKeySequence::NativeText);
}

QLabel *namedLabel(const char *name)
{
    auto *label = new QLabel;
    label->setObjectName(QLatin1String(name));
    label->setTextFormat(Qt::PlainText);
    return label;
}

} // namespace

ViewerBar::ViewerBar(QWidget *parent)
    : QWidget(parent),
      back(makeButton(ViewerGlyph::Back, "backButton", tr("Back to the library"), keyText(Qt::Key_Escape))),
      previous(makeButton(ViewerGlyph::Previous, "previousButton", tr("Previous"), keyText(Qt::Key_PageUp))),
      next(makeButton(ViewerGlyph::Next, "nextButton", tr("Next"), keyText(Qt::Key_PageDown))),
      zoomOut(makeButton(ViewerGlyph::ZoomOut, "zoomOutButton", tr("Smaller"), keyText(Qt::Key_Minus))),
      zoomIn(makeButton(ViewerGlyph::ZoomIn, "zoomInButton", tr("Larger"), keyText(Qt::Key_Plus))),
      fit(makeButton(ViewerGlyph::Fit, "fitButton", tr("Fit into the window"), keyText(Qt::Key_0))),
      actualSize(makeButton(ViewerGlyph::ActualSize, "actualSizeButton", tr("Actual size"), keyText(Qt::Key_1))),
      original(makeButton(ViewerGlyph::Compare, "originalButton", tr("Show the original"), keyText(Qt::Key_O))),
      playLive(makeButton(ViewerGlyph::Play, "playLiveButton", tr("Play the Live Photo"), keyText(Qt::Key_P))),
      exportPhoto(makeButton(ViewerGlyph::Export, "exportButton", tr("Export…"),
                             QKeySequence(Qt::CTRL | Qt::Key_E).toString(QKeySequence::NativeText))),
      facts(makeButton(ViewerGlyph::Info, "viewerFactsButton", tr("Facts"), keyText(Qt::Key_F9))),
      fullScreen(makeButton(ViewerGlyph::FullScreen, "fullScreenButton", tr("Full screen"), keyText(Qt::Key_F))),
      name(namedLabel("photoName")), details(namedLabel("photoDetails")), position(namedLabel("photoPosition")),
      zoomText(namedLabel("zoomText"))
{
    setObjectName(QStringLiteral("viewerBar"));
    QFont strong = name->font();
    strong.setBold(true);
    name->setFont(strong);
    details->setForegroundRole(QPalette::WindowText);
    zoomText->setAlignment(Qt::AlignCenter);
    zoomText->setMinimumWidth(fontMetrics().horizontalAdvance(QStringLiteral("1600 %")));
    original->setCheckable(true);
    facts->setCheckable(true);
    original->hide();
    playLive->hide();
    arrange();
}

QToolButton *ViewerBar::makeButton(ViewerGlyph glyph, const char *objectName, const QString &text, const QString &key)
{
    auto *button = new QToolButton(this);
    button->setObjectName(QLatin1String(objectName));
    button->setIcon(viewerIcon(glyph));
    button->setIconSize(QSize(22, 22));
    button->setAutoRaise(true);
    button->setText(text);
    button->setAccessibleName(text);
    button->setToolTip(tr("%1 (%2)", "what a button does, and its key").arg(text, key));
    return button;
}

void ViewerBar::arrange()
{
    auto *titles = new QVBoxLayout;
    titles->setSpacing(0);
    titles->addWidget(name);
    titles->addWidget(details);
    for (QLabel *label : {name, details})
        label->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    auto *row = new QHBoxLayout(this);
    row->setContentsMargins(8, 6, 8, 6);
    row->setSpacing(4);
    row->addWidget(back);
    row->addSpacing(6);
    row->addLayout(titles, 1);
    row->addWidget(previous);
    row->addWidget(position);
    row->addWidget(next);
    row->addSpacing(12);
    row->addWidget(zoomOut);
    row->addWidget(zoomText);
    row->addWidget(zoomIn);
    row->addWidget(fit);
    row->addWidget(actualSize);
    row->addSpacing(12);
    row->addWidget(original);
    row->addWidget(playLive);
    row->addWidget(exportPhoto);
    row->addWidget(facts);
    row->addWidget(fullScreen);
}

void ViewerBar::showPhoto(const QString &fileName, const QString &date, const QString &note)
{
    name->setText(fileName);
    name->setToolTip(fileName);
    details->setText(note.isEmpty() ? date : tr("%1 — %2", "a note about the photo, and its date").arg(note, date));
    details->setToolTip(details->text());
}

void ViewerBar::showPosition(int number, int count)
{
    const QLocale locale;
    position->setText(
        tr("%1 of %2", "number of the photo and of all photos").arg(locale.toString(number), locale.toString(count)));
    previous->setEnabled(number > 1);
    next->setEnabled(number < count);
}

void ViewerBar::showZoom(double zoom, bool fitted)
{
    zoomText->setText(tr("%1 %", "size of the picture").arg(QLocale().toString(std::lround(zoom * 100))));
    fit->setEnabled(!fitted);
}

} // namespace browser
