#include "apps/browser/device/start_page.h"

#include "apps/browser/device/device_delegate.h"
#include "apps/browser/device/recent_devices.h"

#include <QAction>
#include <QBoxLayout>
#include <QFileDialog>
#include <QLabel>
#include <QListView>
#include <QMenu>
#include <QPushButton>

namespace browser
{

namespace
{

constexpr int widest = 720; ///< of the column, in pixels of the desktop's scale

QLabel *titleLabel(const QString &text, QWidget *parent)
{
    auto *const label = new QLabel(text, parent);
    QFont font = label->font();
    font.setPointSizeF(font.pointSizeF() * 1.8);
    label->setFont(font);
    return label;
}

} // namespace

StartPage::StartPage(QWidget *parent)
    : QWidget(parent), model(new DeviceListModel(this)), watcher(new DeviceWatcher(this))
{
    setObjectName(QStringLiteral("startPage"));
    auto *const column = new QWidget(this);
    column->setMaximumWidth(widest);
    auto *const inside = new QVBoxLayout(column);
    inside->setSpacing(inside->spacing() * 2);
    inside->addSpacing(fontMetrics().height());
    inside->addWidget(titleLabel(tr("Choose a phone"), column));
    auto *const hint = new QLabel(tr("Its photos and videos are only read. Nothing on it is ever changed."), column);
    hint->setWordWrap(true);
    inside->addWidget(hint);
    makeList();
    inside->addWidget(list, 1);
    inside->addWidget(makeButtons());
    inside->addSpacing(fontMetrics().height() / 2);
    auto *const across = new QHBoxLayout(this);
    across->addStretch(1);
    across->addWidget(column, 100);
    across->addStretch(1);

    connect(watcher, &DeviceWatcher::phonesFound, this,
            [this](const FoundPhones &phones) { changeList([&] { model->setPhones(phones); }); });
    connect(watcher, &DeviceWatcher::foldersFound, this,
            [this](const QVector<FoundDevice> &devices) { changeList([&] { model->setFolders(devices); }); });
    model->setPhones({});
    updateRecent();
}

void StartPage::makeList()
{
    list = new QListView(this);
    list->setObjectName(QStringLiteral("deviceList"));
    list->setAccessibleName(tr("Phones, backups and folders"));
    list->setModel(model);
    list->setItemDelegate(new DeviceDelegate(list));
    list->setResizeMode(QListView::Adjust);
    list->setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    list->setContextMenuPolicy(Qt::CustomContextMenu);
    list->setFrameShape(QFrame::StyledPanel);
    auto *const forget = new QAction(tr("Remove from This List"), list);
    forget->setShortcut(QKeySequence::Delete);
    forget->setShortcutContext(Qt::WidgetShortcut);
    list->addAction(forget);
    connect(forget, &QAction::triggered, this, &StartPage::forgetCurrent);
    connect(list, &QListView::activated, this, &StartPage::openCurrent);
    connect(list, &QWidget::customContextMenuRequested, this, &StartPage::showMenu);
    connect(list->selectionModel(), &QItemSelectionModel::currentChanged, this, &StartPage::updateButtons);
}

QWidget *StartPage::makeButtons()
{
    auto *const row = new QWidget(this);
    auto *const layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    auto *const folderButton = new QPushButton(tr("Open &Folder…"), row);
    folderButton->setObjectName(QStringLiteral("openFolderButton"));
    folderButton->setToolTip(tr("A folder of a phone that is mounted or copied, or a backup of a phone"));
    forgetButton = new QPushButton(tr("&Remove from List"), row);
    forgetButton->setObjectName(QStringLiteral("forgetButton"));
    openButton = new QPushButton(tr("&Open"), row);
    openButton->setObjectName(QStringLiteral("openButton"));
    openButton->setDefault(true);
    layout->addWidget(folderButton);
    layout->addStretch(1);
    layout->addWidget(forgetButton);
    layout->addWidget(openButton);
    connect(folderButton, &QPushButton::clicked, this, &StartPage::chooseFolder);
    connect(forgetButton, &QPushButton::clicked, this, &StartPage::forgetCurrent);
    connect(openButton, &QPushButton::clicked, this, &StartPage::openCurrent);
    return row;
}

// The current device stays the current one when the list is made anew.
template <class Change>
void StartPage::changeList(const Change &change)
{
    const QString current = list->currentIndex().data(DeviceListModel::DeviceRole).toString();
    change();
    const QModelIndex same = current.isEmpty() ? QModelIndex() : model->indexOf(current);
    const QModelIndex chosenNow = same.isValid() ? same : model->firstDevice();
    if (chosenNow.isValid() && chosenNow != list->currentIndex())
        list->setCurrentIndex(chosenNow);
    updateButtons();
}

void StartPage::updateRecent()
{
    watcher->setBackupFolders(recent::folders());
    changeList([this] { model->setRecent(recent::devices()); });
}

void StartPage::updateButtons()
{
    const QModelIndex current = list->currentIndex();
    openButton->setEnabled(!current.data(DeviceListModel::DeviceRole).toString().isEmpty());
    forgetButton->setVisible(current.data(DeviceListModel::ForgettableRole).toBool());
}

void StartPage::openCurrent()
{
    const QString device = list->currentIndex().data(DeviceListModel::DeviceRole).toString();
    if (!device.isEmpty())
        Q_EMIT chosen(device);
}

void StartPage::forgetCurrent()
{
    const QModelIndex current = list->currentIndex();
    if (!current.data(DeviceListModel::ForgettableRole).toBool())
        return;
    recent::forget(current.data(DeviceListModel::DeviceRole).toString());
    updateRecent();
}

void StartPage::showMenu(const QPoint &position)
{
    const QModelIndex index = list->indexAt(position);
    if (!index.isValid() || (index.flags() & Qt::ItemIsEnabled) == 0)
        return;
    auto *const menu = new QMenu(list);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->addAction(tr("Open"), this, &StartPage::openCurrent);
    if (index.data(DeviceListModel::ForgettableRole).toBool())
        menu->addAction(tr("Remove from This List"), this, &StartPage::forgetCurrent);
    menu->popup(list->viewport()->mapToGlobal(position));
}

void StartPage::chooseFolder()
{
    auto *const dialog = new QFileDialog(this, tr("Open the folder or backup of a phone"));
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setObjectName(QStringLiteral("folderDialog"));
    dialog->setFileMode(QFileDialog::Directory);
    dialog->setOption(QFileDialog::ShowDirsOnly);
    connect(dialog, &QFileDialog::fileSelected, this, &StartPage::chosen);
    dialog->open();
}

void StartPage::showEvent(QShowEvent *event)
{
    QWidget::showEvent(event);
    updateRecent();
    watcher->start();
    list->setFocus();
}

void StartPage::hideEvent(QHideEvent *event)
{
    watcher->stop();
    QWidget::hideEvent(event);
}

} // namespace browser
