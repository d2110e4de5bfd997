#ifndef APPS_BROWSER_PAGE_FACTS_PANE_H
#define APPS_BROWSER_PAGE_FACTS_PANE_H

#include "apps/browser/library/opened_library.h"

#include <QScrollArea>

class QFormLayout;
class QLabel;
class QToolButton;

namespace browser
{

/// Everything that is known of one photo, as texts that can be selected.
class FactsPane : public QScrollArea
{
    Q_OBJECT

public:
    explicit FactsPane(std::shared_ptr<OpenedLibrary> library, QWidget *parent = nullptr);

    /// 0: none.
    void showPhoto(qint64 id);

    QSize sizeHint() const override { return {280, 400}; }

private:
    QLabel *addFact(const char *name, const QString &title);
    void addFacts();
    void setFact(QLabel *value, const QString &text);
    void showDates(const Photo &photo, const photoItem &item);
    void showFile(const Photo &photo, const photoItem &item);
    void showPlace(const photoItem &item);
    QString collectionsOf(qint64 id) const;

    const std::shared_ptr<OpenedLibrary> opened;
    QFormLayout *form;
    QLabel *title;
    QLabel *kind;
    QLabel *taken;
    QLabel *changed;
    QLabel *deleted;
    QLabel *dimensions;
    QLabel *size;
    QLabel *duration;
    QLabel *marks;
    QLabel *place;
    QToolButton *copyPlace;
    QLabel *collections;
    QLabel *path;
};

} // namespace browser

#endif
