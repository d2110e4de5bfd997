#ifndef APPS_BROWSER_PAGE_FACTS_PANE_H
#define APPS_BROWSER_PAGE_FACTS_PANE_H

#include "apps/browser/library/opened_library.h"

#include <QScrollArea>

class QFormLayout;
class QLabel;
class QToolButton;

namespace browser
{

struct FileLook;

/// Everything that is known of one photo, as texts that can be selected.
class FactsPane : public QScrollArea
{
    Q_OBJECT

public:
    explicit FactsPane(std::shared_ptr<OpenedLibrary> library, QWidget *parent = nullptr);

    /// 0: none.
    void showPhoto(qint64 id);

    QSize sizeHint() const override { return {280, 400}; }

Q_SIGNALS:
    /// The device said that it does not have the original.
    void originalLacking(qint64 id);

private:
    QLabel *addFact(const char *name, const QString &title);
    void addFacts();
    void setFact(QLabel *value, const QString &text);
    void showDates(const Photo &photo, const photoItem &item);
    void showFile(const Photo &photo, const photoItem &item);
    void showPlace(const photoItem &item);
    void showMarks(const Photo &photo, const photoItem &item, bool lacksOriginal);
    void askForOriginal();
    void takeLook(qint64 id, const FileLook &look);
    static QString orientationText(int orientation);
    QString collectionsOf(qint64 id) const;

    const std::shared_ptr<OpenedLibrary> opened;
    qint64 shown = 0;    ///< id
    bool asking = false; ///< the device; one question at a time, however fast the photos change
    QFormLayout *form;
    QLabel *title;
    QLabel *kind;
    QLabel *type;
    QLabel *taken;
    QLabel *changed;
    QLabel *deleted;
    QLabel *dimensions;
    QLabel *orientation;
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
