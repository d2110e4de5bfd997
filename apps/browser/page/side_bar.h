#ifndef APPS_BROWSER_PAGE_SIDE_BAR_H
#define APPS_BROWSER_PAGE_SIDE_BAR_H

#include "apps/browser/page/collection_model.h"

#include <QTreeView>

class QSettings;

namespace browser
{

/// The collections of a library, one of which is chosen.
class SideBar : public QTreeView
{
    Q_OBJECT

public:
    explicit SideBar(std::shared_ptr<const Snapshot> snapshot, QWidget *parent = nullptr);

    /// Index in Snapshot::collections.
    int chosen() const { return last; }
    void choose(int collection);

    /// Which sections are folded.
    void saveState(QSettings &settings) const;
    void restoreState(const QSettings &settings);

    QSize sizeHint() const override { return {fontMetrics().averageCharWidth() * 32, 400}; }

Q_SIGNALS:
    void collectionChosen(int collection);

protected:
    void currentChanged(const QModelIndex &current, const QModelIndex &previous) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    template <class Action>
    void forEachSection(const Action &action) const;

    CollectionModel collections;
    int last = 0;
};

} // namespace browser

#endif
