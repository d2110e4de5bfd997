#ifndef APPS_BROWSER_VIEWER_VIEWER_BAR_H
#define APPS_BROWSER_VIEWER_VIEWER_BAR_H

#include "apps/browser/viewer/glyph.h"

#include <QLabel>
#include <QToolButton>
#include <QWidget>

class QHBoxLayout;

namespace browser
{

/// Above the picture: what it is, and the buttons.
class ViewerBar : public QWidget
{
    Q_OBJECT

public:
    explicit ViewerBar(QWidget *parent = nullptr);

    /// `note` is something special about what is shown; may be empty.
    void showPhoto(const QString &name, const QString &date, const QString &note);
    void showPosition(int number, int count);
    void showZoom(double zoom, bool fitted);

    QToolButton *const back;
    QToolButton *const previous;
    QToolButton *const next;
    QToolButton *const zoomOut;
    QToolButton *const zoomIn;
    QToolButton *const fit;
    QToolButton *const actualSize;
    QToolButton *const original; ///< checked: shown as it was before it was edited
    QToolButton *const playLive;
    QToolButton *const exportPhoto;
    QToolButton *const facts;
    QToolButton *const fullScreen;

private:
    QToolButton *makeButton(ViewerGlyph glyph, const char *name, const QString &text, const QString &key);
    void arrange();

    QLabel *const name;
    QLabel *const details;
    QLabel *const position;
    QLabel *const zoomText;
};

} // namespace browser

#endif
