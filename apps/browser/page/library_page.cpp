#include "apps/browser/page/library_page.h"

#include "apps/browser/exporting/copy_files.h"
#include "apps/browser/exporting/drag_out.h"
#include "apps/browser/page/collection_titles.h"
#include "apps/browser/page/facts_pane.h"
#include "apps/browser/page/page_bar.h"
#include "apps/browser/page/photo_grid.h"
#include "apps/browser/page/query_runner.h"
#include "apps/browser/page/side_bar.h"
#include "apps/browser/page/texts.h"

#include <QAction>
#include <QClipboard>
#include <QDrag>
#include <QGuiApplication>
#include <QLabel>
#include <QMenu>
#include <QMimeData>
#include <QPushButton>
#include <QSettings>
#include <QSignalBlocker>
#include <QSplitter>
#include <QStackedWidget>
#include <QVBoxLayout>

#include <tuple>

namespace browser
{

namespace
{

QString splitterSetting()
{
    return QStringLiteral("page/splitter");
}

QString factsSetting()
{
    return QStringLiteral("page/facts");
}

QString collectionSetting()
{
    return QStringLiteral("page/collection");
}

QString cellSetting()
{
    return QStringLiteral("page/cellSize");
}

} // namespace

LibraryPage::LibraryPage(std::shared_ptr<OpenedLibrary> library, QWidget *parent)
    : LibraryPage(library, std::make_shared<LibraryThumbnails>(library), parent)
{
}

LibraryPage::LibraryPage(std::shared_ptr<OpenedLibrary> library, std::shared_ptr<ThumbnailSource> thumbnails,
                         QWidget *parent)
    : QWidget(parent), opened(std::move(library)), model(new PhotoModel(opened->sharedSnapshot(), this)),
      loader(new ThumbnailLoader(std::move(thumbnails), this)), runner(new QueryRunner(opened->sharedSnapshot(), this)),
      sideBar(new SideBar(opened->sharedSnapshot())), bar(new PageBar), grid(new PhotoGrid(*model, *loader)),
      facts(new FactsPane(opened)), splitter(new QSplitter), centre(new QStackedWidget)
{
    setObjectName(QStringLiteral("libraryPage"));
    setUpCentre();
    setUpSplitter();
    setUpActions();
    connectAll();
    bar->setCellSize(grid->cellSize());
    showFacts(false);
    search();
}

// The grid asks the loader and the model until it is gone.
LibraryPage::~LibraryPage()
{
    delete splitter;
}

void LibraryPage::setUpCentre()
{
    centre->addWidget(grid);
    centre->addWidget(makeEmptyState());
}

QWidget *LibraryPage::makeEmptyState()
{
    auto *page = new QWidget;
    page->setBackgroundRole(QPalette::Base);
    page->setAutoFillBackground(true);
    emptyText = new QLabel(page);
    emptyText->setObjectName(QStringLiteral("emptyText"));
    emptyText->setAlignment(Qt::AlignCenter);
    emptyText->setWordWrap(true);
    emptyText->setTextFormat(Qt::PlainText);
    auto *clear = new QPushButton(tr("&Clear search and filters"), page);
    clear->setObjectName(QStringLiteral("clearSearchButton"));
    connect(clear, &QPushButton::clicked, bar, &PageBar::clear);
    clearButton = clear;
    auto *column = new QVBoxLayout(page);
    column->setContentsMargins(48, 48, 48, 48);
    column->setSpacing(16);
    column->addStretch(2);
    column->addWidget(emptyText);
    column->addWidget(clear, 0, Qt::AlignHCenter);
    column->addStretch(3);
    return page;
}

void LibraryPage::setUpSplitter()
{
    auto *middle = new QWidget;
    auto *column = new QVBoxLayout(middle);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(bar);
    column->addWidget(centre, 1);
    splitter->setObjectName(QStringLiteral("pageSplitter"));
    splitter->addWidget(sideBar);
    splitter->addWidget(middle);
    splitter->addWidget(facts);
    splitter->setStretchFactor(1, 1);
    splitter->setCollapsible(1, false);
    splitter->setHandleWidth(1);
    splitter->setSizes({sideBar->sizeHint().width(), 3 * sideBar->sizeHint().width(), facts->sizeHint().width()});
    auto *line = new QVBoxLayout(this);
    line->setContentsMargins(0, 0, 0, 0);
    line->addWidget(splitter);
    setFocusProxy(grid);
}

void LibraryPage::setUpActions()
{
    const auto add = [this](const char *name, const QString &text, const QKeySequence &key) {
        auto *action = new QAction(text, this);
        action->setObjectName(QLatin1String(name));
        action->setShortcut(key);
        action->setShortcutContext(Qt::WidgetWithChildrenShortcut);
        addAction(action);
        return action;
    };
    exportAction = add("exportAction", tr("&Export…"), QKeySequence()); // the window has the keys for it
    connect(exportAction, &QAction::triggered, this, &LibraryPage::exportSelected);
    copyFilesAction = add("copyFilesAction", tr("Copy &photos"), QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_C));
    connect(copyFilesAction, &QAction::triggered, this, [this] { copyFiles(opened, grid->selectedIds(), window()); });
    copyAction = new QAction(tr("&Copy file name"), this);
    copyAction->setObjectName(QStringLiteral("copyNameAction"));
    copyAction->setShortcut(QKeySequence::Copy);
    copyAction->setShortcutContext(Qt::WidgetShortcut); // facts are copied by the same keys
    grid->addAction(copyAction);
    connect(copyAction, &QAction::triggered, this, &LibraryPage::copyNames);
    factsAction = add("factsAction", tr("Show &facts"), QKeySequence(Qt::Key_F9));
    factsAction->setCheckable(true);
    connect(factsAction, &QAction::triggered, this, &LibraryPage::showFacts);
    QAction *find = add("findAction", tr("&Search"), QKeySequence::Find);
    connect(find, &QAction::triggered, bar, &PageBar::focusSearch);
}

void LibraryPage::connectAll()
{
    for (QTimer *pause : {&statusPause, &factsPause, &lackingPause})
        pause->setSingleShot(true);
    statusPause.setInterval(0);
    factsPause.setInterval(40); // keys that repeat
    lackingPause.setInterval(500);
    connect(&lackingPause, &QTimer::timeout, this, &LibraryPage::search);
    connect(grid, &PhotoGrid::originalLacking, this, &LibraryPage::noteLacking);
    connect(facts, &FactsPane::originalLacking, this, &LibraryPage::noteLacking);
    connect(&statusPause, &QTimer::timeout, this, &LibraryPage::updateStatus);
    connect(&factsPause, &QTimer::timeout, this, &LibraryPage::updateFacts);
    connect(runner, &QueryRunner::found, this, &LibraryPage::showFound);
    connect(sideBar, &SideBar::collectionChosen, this, &LibraryPage::search);
    connect(bar, &PageBar::queryChanged, this, &LibraryPage::search);
    connect(bar, &PageBar::cellSizeChosen, grid, &PhotoGrid::setCellSize);
    connect(bar, &PageBar::factsToggled, this, &LibraryPage::showFacts);
    connect(bar, &PageBar::left, grid, [this] { grid->setFocus(Qt::TabFocusReason); });
    connect(grid, &PhotoGrid::cellSizeChanged, bar, &PageBar::setCellSize);
    connect(grid, &PhotoGrid::photoActivated, this, [this](int row) { Q_EMIT photosActivated(model->ids(), row); });
    connect(grid, &PhotoGrid::menuRequested, this, &LibraryPage::showMenu);
    connect(grid, &PhotoGrid::dragRequested, this, &LibraryPage::startDrag);
    const auto restart = [](QTimer &timer) { return [&timer] { timer.start(); }; };
    connect(grid->selectionModel(), &QItemSelectionModel::selectionChanged, this, restart(statusPause));
    connect(grid->selectionModel(), &QItemSelectionModel::currentChanged, this, restart(factsPause));
    connect(loader, &ThumbnailLoader::readsFailing, this, &LibraryPage::readsFailing);
}

bool LibraryPage::isSearching() const
{
    return runner->isBusy();
}

void LibraryPage::search()
{
    PhotoQuery query = bar->query();
    query.collection = sideBar->chosen();
    const Snapshot &snapshot = opened->snapshot();
    const Collection &place = snapshot.collections[static_cast<std::size_t>(query.collection)];
    bar->setPlace(query.collection == 0 ? QString() : CollectionTitles::of(place, snapshot));
    query.lacking = std::make_shared<const QSet<qint64>>(model->lackingOriginals());
    runner->run(query);
}

void LibraryPage::showFound(const std::shared_ptr<const PhotoList> &photos)
{
    const bool keep = model->photos() != nullptr && model->photos()->query.collection == photos->query.collection;
    grid->show(photos, keep);
    const bool isNarrowed = photos->query.isNarrowed();
    const QString text = photos->query.text.trimmed();
    if (!isNarrowed)
        emptyText->setText(tr("There are no photos here."));
    else
        emptyText->setText(text.isEmpty() ? tr("Nothing matches the filters.") : tr("Nothing matches “%1”.").arg(text));
    clearButton->setVisible(isNarrowed);
    const bool hadFocus = grid->hasFocus();
    centre->setCurrentIndex(photos->rows.empty() ? 1 : 0);
    if (hadFocus && photos->rows.empty() && isNarrowed)
        clearButton->setFocus();
    if (awaited != 0)
        setCurrentPhoto(std::exchange(awaited, 0));
    if (awaitedPlace)
        arrive(*std::exchange(awaitedPlace, std::nullopt));
    statusPause.start();
    factsPause.start();
}

QVector<qint64> LibraryPage::selectedPhotos() const
{
    return grid->selectedIds();
}

QVector<qint64> LibraryPage::shownPhotos() const
{
    return model->ids();
}

void LibraryPage::setCurrentPhoto(qint64 id)
{
    if (runner->isBusy()) {
        awaited = id;
        return;
    }
    if (const int row = model->rowOf(id); row >= 0)
        grid->makeCurrent(row);
}

PagePlace LibraryPage::place() const
{
    const PhotoQuery query = bar->query();
    const auto &collections = opened->snapshot().collections;
    PagePlace here;
    here.collection = collectionName(collections[static_cast<std::size_t>(sideBar->chosen())]);
    here.text = query.text;
    here.filters = query.filters;
    here.selected = grid->selectedIds();
    here.current = grid->currentIndex().isValid() ? model->idAt(grid->currentIndex().row()) : 0;
    std::tie(here.first, here.above) = grid->topPhoto();
    return here;
}

void LibraryPage::goTo(const PagePlace &place)
{
    bar->narrow(place.text, place.filters);
    awaitedPlace = place;
    const QSignalBlocker oneSearch(sideBar);
    sideBar->choose(findCollection(opened->snapshot(), place.collection));
    search();
}

void LibraryPage::arrive(const PagePlace &place)
{
    grid->selectIds(place.selected);
    grid->setCurrentId(place.current);
    grid->scrollToTop(place.first, place.above);
}

void LibraryPage::updateStatus()
{
    const QVector<int> rows = grid->selectedRows();
    const QString shown = Texts::photoCount(model->rowCount());
    if (rows.isEmpty()) {
        Q_EMIT statusChanged(shown);
        return;
    }
    qint64 bytes = 0;
    for (const int row : rows)
        bytes += std::max<qint64>(0, model->photo(row).fileSize);
    const QString selected = tr("%Ln selected (%1)", "photos", rows.size()).arg(Texts::roughSize(bytes));
    Q_EMIT statusChanged(tr("%1  ·  %2", "photos shown, photos selected").arg(shown, selected));
}

void LibraryPage::updateFacts()
{
    const QModelIndex current = grid->currentIndex();
    if (facts->isVisibleTo(this))
        facts->showPhoto(current.isValid() ? model->idAt(current.row()) : 0);
}

void LibraryPage::showFacts(bool shown)
{
    facts->setVisible(shown);
    factsAction->setChecked(shown);
    bar->setFactsShown(shown);
    updateFacts();
}

void LibraryPage::showMenu(const QPoint &globalPosition)
{
    auto *menu = new QMenu(this);
    menu->setObjectName(QStringLiteral("photoMenu"));
    menu->setAttribute(Qt::WA_DeleteOnClose);
    QAction *open = menu->addAction(tr("&Open"));
    const QModelIndex current = grid->currentIndex();
    open->setEnabled(current.isValid());
    const qint64 id = current.isValid() ? model->idAt(current.row()) : 0;
    connect(open, &QAction::triggered, this, [this, id] { openPhoto(id); });
    menu->setDefaultAction(open);
    menu->addAction(exportAction);
    menu->addSeparator();
    menu->addAction(copyFilesAction);
    menu->addAction(copyAction);
    menu->addAction(factsAction);
    menu->popup(globalPosition);
}

// A search may have ended since the menu was opened.
void LibraryPage::openPhoto(qint64 id)
{
    const int row = model->rowOf(id);
    if (row >= 0)
        Q_EMIT photosActivated(model->ids(), row);
    else
        Q_EMIT photosActivated({id}, 0);
}

void LibraryPage::startDrag()
{
    const QVector<qint64> ids = grid->selectedIds();
    if (ids.isEmpty())
        return;
    auto *drag = new QDrag(grid);
    drag->setMimeData(dragData(opened, ids));
    const QModelIndex current = grid->currentIndex();
    if (current.isValid())
        drag->setPixmap(grid->viewport()
                            ->grab(grid->visualRect(current))
                            .scaledToWidth(qRound(96 * devicePixelRatioF()), Qt::SmoothTransformation));
    drag->exec(Qt::CopyAction);
}

void LibraryPage::exportSelected()
{
    const QVector<qint64> ids = grid->selectedIds();
    if (!ids.isEmpty())
        Q_EMIT exportRequested(ids);
}

void LibraryPage::copyNames()
{
    QStringList names;
    const QVector<int> rows = grid->selectedRows();
    for (const int row : rows)
        names += model->photo(row).fileName;
    if (!names.isEmpty())
        QGuiApplication::clipboard()->setText(names.join(QLatin1Char('\n')));
}

void LibraryPage::noteLacking(qint64 id)
{
    if (model->setLacking(id) && (bar->query().filters & OnlyOnDevice) != 0 && !lackingPause.isActive())
        lackingPause.start();
}

void LibraryPage::saveState(QSettings &settings) const
{
    settings.setValue(splitterSetting(), splitter->saveState());
    settings.setValue(factsSetting(), factsAction->isChecked());
    settings.setValue(cellSetting(), grid->cellSize());
    const Snapshot &snapshot = opened->snapshot();
    const Collection &chosen = snapshot.collections[static_cast<std::size_t>(sideBar->chosen())];
    settings.setValue(collectionSetting(), QStringList{snapshot.libraryUuid, collectionName(chosen)});
    sideBar->saveState(settings);
    bar->saveState(settings);
}

void LibraryPage::restoreState(const QSettings &settings)
{
    splitter->restoreState(settings.value(splitterSetting()).toByteArray());
    showFacts(settings.value(factsSetting(), false).toBool());
    grid->setCellSize(settings.value(cellSetting(), grid->cellSize()).toInt());
    sideBar->restoreState(settings);
    const QStringList collection = settings.value(collectionSetting()).toStringList();
    const Snapshot &snapshot = opened->snapshot();
    if (collection.value(0) == snapshot.libraryUuid)
        sideBar->choose(findCollection(snapshot, collection.value(1)));
    bar->restoreState(settings);
}

} // namespace browser
