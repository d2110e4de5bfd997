#ifndef APPS_BROWSER_DEVICE_START_PAGE_H
#define APPS_BROWSER_DEVICE_START_PAGE_H

#include "apps/browser/device/device_list_model.h"
#include "apps/browser/device/device_watcher.h"

#include <QWidget>

class QListView;
class QPushButton;

namespace browser
{

/// Where a device is chosen. It looks for devices only while it is shown.
class StartPage : public QWidget
{
    Q_OBJECT

public:
    explicit StartPage(QWidget *parent = nullptr);

    /// Asks for a folder and opens it.
    void chooseFolder();
    /// Reads the settings again, after something was opened.
    void updateRecent();

Q_SIGNALS:
    void chosen(const QString &device);

protected:
    void showEvent(QShowEvent *event) override;
    void hideEvent(QHideEvent *event) override;

private:
    QWidget *makeButtons();
    void makeList();
    void openCurrent();
    void forgetCurrent();
    void showMenu(const QPoint &position);
    void updateButtons();
    template <class Change>
    void changeList(const Change &change);

    DeviceListModel *model;
    DeviceWatcher *watcher;
    QListView *list = nullptr;
    QPushButton *openButton = nullptr;
    QPushButton *forgetButton = nullptr;
};

} // namespace browser

#endif
