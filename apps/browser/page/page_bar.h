#ifndef APPS_BROWSER_PAGE_PAGE_BAR_H
#define APPS_BROWSER_PAGE_PAGE_BAR_H

#include "apps/browser/page/photo_query.h"

#include <QTimer>
#include <QToolButton>

class QActionGroup;
class QLineEdit;
class QMenu;
class QSettings;
class QSlider;

namespace browser
{

/// Search, order, filters and the size of the thumbnails, above the grid.
class PageBar : public QWidget
{
    Q_OBJECT

public:
    explicit PageBar(QWidget *parent = nullptr);

    /// Everything of a query but its collection.
    PhotoQuery query() const;
    /// Without text and filters; the order stays.
    void clear();
    /// Other text and filters; the order stays, and queryChanged() is not sent.
    void narrow(const QString &text, quint32 filterBits);
    void focusSearch();
    /// Title of the collection that is searched; empty for all photos.
    void setPlace(const QString &title);

    void setCellSize(int side);
    void setFactsShown(bool shown);

    void saveState(QSettings &settings) const;
    void restoreState(const QSettings &settings);

Q_SIGNALS:
    /// The text a moment after the last key.
    void queryChanged();
    void cellSizeChosen(int side);
    void factsToggled(bool shown);
    /// Down or Enter in the search field.
    void left();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    QToolButton *makeButton(const char *name, const QIcon &icon, const QString &text, QMenu *menu);
    QMenu *makeSortMenu();
    QMenu *makeFilterMenu();
    void addFilter(QMenu *menu, const char *name, const QString &text, PhotoFilter filter);
    void markFilters();
    void setUpSearch();
    void setUpZoom();

    QActionGroup *keys = nullptr; ///< filled while the menus below are made
    QActionGroup *directions = nullptr;
    QList<QAction *> filters;
    QLineEdit *search;
    QToolButton *sortButton;
    QToolButton *filterButton;
    QToolButton *factsButton;
    QSlider *zoom;
    QTimer typing;
};

} // namespace browser

#endif
