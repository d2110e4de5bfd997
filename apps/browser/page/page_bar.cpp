#include "apps/browser/page/page_bar.h"

#include "apps/browser/page/photo_grid.h"

#include <QActionGroup>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMenu>
#include <QSettings>
#include <QSlider>

namespace browser
{

namespace
{

constexpr int typingPause = 150; // milliseconds

QString sortSetting()
{
    return QStringLiteral("page/sort");
}

QString directionSetting()
{
    return QStringLiteral("page/descending");
}

QAction *actionFor(const QActionGroup *group, const QVariant &value)
{
    const QList<QAction *> actions = group->actions();
    for (QAction *action : actions) {
        if (action->data() == value)
            return action;
    }
    return actions.first();
}

} // namespace

PageBar::PageBar(QWidget *parent)
    : QWidget(parent), search(new QLineEdit(this)),
      sortButton(makeButton("sortButton", glyphIcon(Glyph::Sort), tr("Sort"), makeSortMenu())),
      filterButton(makeButton("filterButton", glyphIcon(Glyph::Filter), tr("Filter"), makeFilterMenu())),
      factsButton(makeButton("factsButton", glyphIcon(Glyph::Info), tr("Info"), nullptr)),
      zoom(new QSlider(Qt::Horizontal, this))
{
    setUpSearch();
    setUpZoom();
    factsButton->setCheckable(true);
    factsButton->setToolTip(tr("Show or hide all facts of the current photo (F9)"));
    connect(factsButton, &QToolButton::toggled, this, &PageBar::factsToggled);
    auto *line = new QHBoxLayout(this);
    line->setContentsMargins(12, 8, 12, 8);
    line->setSpacing(8);
    line->addWidget(search, 1);
    line->addStretch(0);
    line->addWidget(sortButton);
    line->addWidget(filterButton);
    line->addWidget(zoom);
    line->addWidget(factsButton);
    markFilters();
}

void PageBar::setUpSearch()
{
    search->setObjectName(QStringLiteral("searchField"));
    search->setAccessibleName(tr("Search photos"));
    setPlace(QString());
    search->setToolTip(tr("Names of files, titles of albums, and dates such as June 2019 or 2019-06 (Ctrl+F)"));
    search->addAction(glyphIcon(Glyph::Search), QLineEdit::LeadingPosition);
    search->setClearButtonEnabled(true);
    search->setMaximumWidth(420);
    search->installEventFilter(this);
    typing.setSingleShot(true);
    typing.setInterval(typingPause);
    connect(search, &QLineEdit::textChanged, &typing, QOverload<>::of(&QTimer::start));
    connect(&typing, &QTimer::timeout, this, &PageBar::queryChanged);
}

void PageBar::setPlace(const QString &title)
{
    search->setPlaceholderText(title.isEmpty() ? tr("Search name, album or date") : tr("Search in “%1”").arg(title));
}

void PageBar::setUpZoom()
{
    zoom->setObjectName(QStringLiteral("zoomSlider"));
    zoom->setAccessibleName(tr("Size of the thumbnails"));
    zoom->setToolTip(tr("Size of the thumbnails (Ctrl++ and Ctrl+-)"));
    zoom->setRange(PhotoGrid::smallestCell, PhotoGrid::largestCell);
    zoom->setSingleStep(16);
    zoom->setPageStep(32);
    zoom->setFixedWidth(120);
    connect(zoom, &QSlider::valueChanged, this, &PageBar::cellSizeChosen);
}

QToolButton *PageBar::makeButton(const char *name, const QIcon &icon, const QString &text, QMenu *menu)
{
    auto *button = new QToolButton(this);
    button->setObjectName(QLatin1String(name));
    button->setIcon(icon);
    button->setText(text);
    button->setAccessibleName(text);
    button->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    button->setAutoRaise(true);
    button->setFocusPolicy(Qt::TabFocus);
    button->setPopupMode(QToolButton::InstantPopup);
    button->setMenu(menu);
    return button;
}

QMenu *PageBar::makeSortMenu()
{
    auto *menu = new QMenu(this);
    menu->setObjectName(QStringLiteral("sortMenu"));
    keys = new QActionGroup(this);
    directions = new QActionGroup(this);
    const auto add = [menu](QActionGroup *group, const QString &text, const QVariant &value) {
        QAction *action = menu->addAction(text);
        action->setCheckable(true);
        action->setData(value);
        group->addAction(action);
        return action;
    };
    add(keys, tr("Date &taken"), int(SortKey::Taken))->setChecked(true);
    add(keys, tr("Date &added"), int(SortKey::Added));
    add(keys, tr("&Name"), int(SortKey::Name));
    add(keys, tr("&Size"), int(SortKey::Size));
    add(keys, tr("&Kind"), int(SortKey::Kind));
    menu->addSeparator();
    add(directions, tr("&Last or largest first"), true)->setChecked(true);
    add(directions, tr("&First or smallest first"), false);
    for (QActionGroup *group : {keys, directions})
        connect(group, &QActionGroup::triggered, this, &PageBar::queryChanged);
    return menu;
}

QMenu *PageBar::makeFilterMenu()
{
    auto *menu = new QMenu(this);
    menu->setObjectName(QStringLiteral("filterMenu"));
    addFilter(menu, "onlyPhotos", tr("Only &photos"), OnlyPhotos);
    addFilter(menu, "onlyVideos", tr("Only &videos"), OnlyVideos);
    menu->addSeparator();
    addFilter(menu, "onlyFavorites", tr("Only &favorites"), OnlyFavorites);
    addFilter(menu, "onlyLivePhotos", tr("Only &Live Photos"), OnlyLivePhotos);
    addFilter(menu, "onlyEdited", tr("Only &edited ones"), OnlyEdited);
    addFilter(menu, "onlyLocated", tr("Only with a p&lace"), OnlyLocated);
    addFilter(menu, "onlyOnDevice", tr("Only what is on the &device"), OnlyOnDevice);
    menu->addSeparator();
    QAction *none = menu->addAction(tr("&Clear filters"));
    connect(none, &QAction::triggered, this, [this] {
        for (QAction *filter : qAsConst(filters))
            filter->setChecked(false);
        markFilters();
        Q_EMIT queryChanged();
    });
    return menu;
}

void PageBar::addFilter(QMenu *menu, const char *name, const QString &text, PhotoFilter filter)
{
    QAction *action = menu->addAction(text);
    action->setObjectName(QLatin1String(name));
    action->setCheckable(true);
    action->setData(uint(filter));
    filters += action;
    connect(action, &QAction::triggered, this, [this, filter](bool checked) {
        // Nothing is both.
        const uint other = filter == OnlyPhotos ? OnlyVideos : filter == OnlyVideos ? OnlyPhotos : 0U;
        for (QAction *one : qAsConst(filters)) {
            if (checked && one->data().toUInt() == other)
                one->setChecked(false);
        }
        markFilters();
        Q_EMIT queryChanged();
    });
}

void PageBar::markFilters()
{
    const bool any = query().filters != 0;
    filterButton->setText(any ? tr("Filtered") : tr("Filter"));
    QFont font = this->font();
    font.setBold(any);
    filterButton->setFont(font);
}

PhotoQuery PageBar::query() const
{
    PhotoQuery query;
    query.text = search->text();
    query.sort = static_cast<SortKey>(keys->checkedAction()->data().toInt());
    query.descending = directions->checkedAction()->data().toBool();
    for (const QAction *filter : filters)
        query.filters |= filter->isChecked() ? filter->data().toUInt() : 0U;
    return query;
}

void PageBar::clear()
{
    narrow(QString(), 0);
    Q_EMIT queryChanged();
}

void PageBar::narrow(const QString &text, quint32 filterBits)
{
    search->setText(text);
    for (QAction *filter : qAsConst(filters))
        filter->setChecked((filter->data().toUInt() & filterBits) != 0);
    markFilters();
    typing.stop();
}

void PageBar::focusSearch()
{
    search->setFocus(Qt::ShortcutFocusReason);
    search->selectAll();
}

void PageBar::setCellSize(int side)
{
    zoom->setValue(side);
}

void PageBar::setFactsShown(bool shown)
{
    factsButton->setChecked(shown);
}

bool PageBar::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == search && event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent *>(event)->key();
        if (key == Qt::Key_Escape && !search->text().isEmpty()) {
            search->clear();
            return true;
        }
        if (key == Qt::Key_Down || key == Qt::Key_Return || key == Qt::Key_Enter || key == Qt::Key_Escape) {
            Q_EMIT left();
            return true;
        }
    }
    return QWidget::eventFilter(watched, event);
}

void PageBar::saveState(QSettings &settings) const
{
    settings.setValue(sortSetting(), keys->checkedAction()->data());
    settings.setValue(directionSetting(), directions->checkedAction()->data());
}

void PageBar::restoreState(const QSettings &settings)
{
    actionFor(keys, settings.value(sortSetting(), int(SortKey::Taken)).toInt())->setChecked(true);
    actionFor(directions, settings.value(directionSetting(), true).toBool())->setChecked(true);
    Q_EMIT queryChanged();
}

} // namespace browser
