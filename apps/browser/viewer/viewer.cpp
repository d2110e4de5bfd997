#include "apps/browser/viewer/viewer.h"

#include "apps/browser/page/facts_pane.h"
#include "apps/browser/viewer/film_player.h"
#include "apps/browser/viewer/orientation.h"
#include "apps/browser/viewer/overlays.h"
#include "apps/browser/viewer/picture_loader.h"
#include "apps/browser/viewer/picture_view.h"
#include "apps/browser/viewer/viewer_bar.h"
#include "apps/browser/viewer/viewer_texts.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLocale>
#include <QVBoxLayout>

#include <algorithm>

namespace browser
{

namespace
{

constexpr qint32 videoType = 1;     // photoItem::mediaType
constexpr qint32 livePhotoKind = 2; // photoItem::kindSubtype
constexpr int barStays = 2500;      // milliseconds, in full screen
constexpr double panStep = 0.15;    // of the view

} // namespace

Viewer::Viewer(std::shared_ptr<OpenedLibrary> library, QWidget *parent)
    : Viewer(library, std::make_shared<LibraryPictures>(library), parent)
{
}

Viewer::Viewer(std::shared_ptr<OpenedLibrary> library, std::shared_ptr<PictureSource> pictures, QWidget *parent)
    : QWidget(parent), opened(std::move(library)), bar(new ViewerBar(this)), view(new PictureView(this)),
      facts(new FactsPane(opened, this)), spinner(new BusySpinner(view)), play(new PlayButton(view)),
      problem(new ProblemPanel(view)), filmPanel(new FilmPanel(view)),
      loader(new PictureLoader(std::move(pictures), this)), player(new FilmPlayer(opened, this))
{
    setObjectName(QStringLiteral("viewer"));
    arrange();
    connectBar();
    connectLoading();
    connectFilms();
}

Viewer::~Viewer() = default;

void Viewer::arrange()
{
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(bar);
    auto *line = new QHBoxLayout;
    line->setSpacing(0);
    line->addWidget(view, 1);
    line->addWidget(facts);
    column->addLayout(line, 1);
    facts->setFixedWidth(facts->sizeHint().width());
    facts->hide();
    auto *over = new QGridLayout(view);
    for (QWidget *widget : {static_cast<QWidget *>(spinner), static_cast<QWidget *>(play),
                            static_cast<QWidget *>(problem), static_cast<QWidget *>(filmPanel)})
        over->addWidget(widget, 0, 0, widget == filmPanel ? Qt::AlignHCenter | Qt::AlignBottom : Qt::AlignCenter);
    view->setFocusPolicy(Qt::StrongFocus);
    view->setMouseTracking(true);
    view->installEventFilter(this);
    setFocusProxy(view);
    barTimer.setSingleShot(true);
    barTimer.setInterval(barStays);
    connect(&barTimer, &QTimer::timeout, this, [this] { bar->setVisible(!fillsScreen()); });
}

void Viewer::connectBar()
{
    connect(bar->back, &QToolButton::clicked, this, &Viewer::leave);
    connect(bar->previous, &QToolButton::clicked, this, [this] { goTo(index - 1); });
    connect(bar->next, &QToolButton::clicked, this, [this] { goTo(index + 1); });
    connect(bar->zoomIn, &QToolButton::clicked, view, &PictureView::zoomIn);
    connect(bar->zoomOut, &QToolButton::clicked, view, &PictureView::zoomOut);
    connect(bar->fit, &QToolButton::clicked, view, &PictureView::fit);
    connect(bar->actualSize, &QToolButton::clicked, view, &PictureView::showActualSize);
    connect(bar->original, &QToolButton::clicked, this, &Viewer::loadCurrent);
    connect(bar->facts, &QToolButton::toggled, this, &Viewer::showFacts);
    connect(bar->playLive, &QToolButton::clicked, this, [this] { playCurrent(FilmPart::Live); });
    connect(bar->exportPhoto, &QToolButton::clicked, this,
            [this] { Q_EMIT exportRequested(QVector<qint64>(1, currentId())); });
    connect(bar->fullScreen, &QToolButton::clicked, this, [this] { setFullScreen(!fillsScreen()); });
    connect(view, &PictureView::changed, this,
            [this] { bar->showZoom(view->transform().zoom(), view->transform().isFitted()); });
}

void Viewer::connectLoading()
{
    connect(loader, &PictureLoader::thumbnailLoaded, this, &Viewer::showThumbnail);
    connect(loader, &PictureLoader::pictureLoaded, this, &Viewer::showPicture);
    connect(problem, &ProblemPanel::tryAgain, this, &Viewer::loadCurrent);
}

void Viewer::connectFilms()
{
    connect(play, &PlayButton::clicked, this, [this] { playCurrent(FilmPart::Original); });
    connect(filmPanel, &FilmPanel::cancelled, this, [this] {
        player->cancel();
        filmPanel->hide();
        view->setFocus();
    });
    connect(player, &FilmPlayer::progress, filmPanel, &FilmPanel::showProgress);
    connect(player, &FilmPlayer::opened, filmPanel, &FilmPanel::hide);
    connect(player, &FilmPlayer::failed, this, &Viewer::filmFailed);
    connect(player, &FilmPlayer::noPlayer, this, [this] {
        filmPanel->hide();
        problem->showText(noPlayerText(), false);
    });
}

void Viewer::showPhotos(const QVector<qint64> &ids, int current)
{
    photos.assign(ids.begin(), ids.end());
    index = -1;
    if (!photos.empty())
        goTo(std::clamp(current, 0, count() - 1));
}

void Viewer::goTo(int wanted)
{
    if (wanted < 0 || wanted >= count() || wanted == index)
        return;
    index = wanted;
    item = opened->item(currentId()).value_or(photoItem());
    film = item.mediaType == videoType;
    showCurrent();
    Q_EMIT currentChanged(currentId());
}

void Viewer::showCurrent()
{
    player->cancel();
    filmPanel->hide();
    view->clear();
    describeCurrent();
    loadCurrent();
}

void Viewer::describeCurrent()
{
    date = item.dateCreated.isValid() ? QLocale().toString(item.dateCreated.toLocalTime(), QLocale::LongFormat)
                                      : tr("Unknown date");
    bar->showPhoto(item.fileName, date, QString());
    bar->showPosition(index + 1, count());
    showFacts(bar->facts->isChecked());
    bar->original->setChecked(false);
    bar->original->setVisible(!film && item.hasAdjustments != 0);
    bar->playLive->setVisible(!film && item.kindSubtype == livePhotoKind);
    view->setAccessibleName(item.fileName);
    view->setAccessibleDescription(date);
    play->setVisible(film);
}

PictureRequest Viewer::requestFor(int at) const
{
    const Photo *const photo = opened->snapshot().find(idAt(at));
    if (at != index)
        return {idAt(at), photo != nullptr && photo->kind == MediaKind::Video};
    return {idAt(at), film, bar->original->isChecked() ? PictureVersion::Original : PictureVersion::Latest};
}

void Viewer::toggleOriginal()
{
    if (!bar->original->isHidden())
        bar->original->click();
}

void Viewer::showFacts(bool shown)
{
    facts->setVisible(shown);
    if (shown)
        facts->showPhoto(currentId());
}

QString Viewer::noteOn(const Picture &picture) const
{
    if (picture.edits == PictureEdits::Shown)
        return tr("edited on the device");
    if (picture.edits == PictureEdits::Hidden)
        return tr("original; edited on the device");
    return picture.isPreview ? tr("preview of a RAW photo") : QString();
}

void Viewer::loadCurrent()
{
    problem->hide();
    QVector<PictureRequest> neighbours;
    for (const int at : {index + 1, index - 1})
        if (at >= 0 && at < count())
            neighbours.append(requestFor(at));
    const PictureRequest current = requestFor(index);
    const SharedPicture ready = loader->cached(current.id, current.version);
    loader->load(current, neighbours);
    if (ready != nullptr && !film)
        showPicture(currentId(), ready);
    else
        spinner->start();
}

void Viewer::showThumbnail(qint64 id, const QImage &thumbnail)
{
    if (id != currentId())
        return;
    if (film)
        spinner->stop();
    if (!view->hasPicture() && !thumbnail.isNull())
        view->setPlaceholder(thumbnail, uprightSize({item.width, item.height}, item.orientation));
}

void Viewer::showPicture(qint64 id, const SharedPicture &picture)
{
    if (id != currentId())
        return;
    spinner->stop();
    if (picture->isGood()) {
        const QString note = noteOn(*picture);
        view->setPicture(picture);
        bar->showPhoto(item.fileName, date, note);
        return;
    }
    problem->showText(problemText(*picture, placeOfCurrent()), true);
    if (picture->problem == PictureProblem::ReadFailed || picture->problem == PictureProblem::DeviceGone)
        Q_EMIT readFailed();
}

PhotoPlace Viewer::placeOfCurrent() const
{
    const Photo *const photo = opened->snapshot().find(currentId());
    const bool inCloud = item.cloudLocalState == 1 || (photo != nullptr && photo->is(CloudOnly));
    return {item.fileName, inCloud, opened->deviceName().startsWith(QLatin1String("backup:"))};
}

void Viewer::playCurrent(FilmPart part)
{
    problem->hide();
    filmPanel->start(item.fileName);
    player->play(currentId(), part);
}

void Viewer::filmFailed(qint64 id, const Film &failed)
{
    filmPanel->hide();
    if (id != currentId())
        return;
    problem->showText(problemText(failed, placeOfCurrent()), false);
    if (failed.state == CopyEnd::ReadFailed || failed.state == CopyEnd::DeviceGone)
        Q_EMIT readFailed();
}

void Viewer::leave()
{
    if (fillsScreen())
        setFullScreen(false);
    player->cancel();
    filmPanel->hide();
    Q_EMIT closed(currentId());
}

bool Viewer::fillsScreen() const
{
    return window()->isFullScreen();
}

void Viewer::setFullScreen(bool full)
{
    if (full == fillsScreen())
        return;
    window()->setWindowState(full ? window()->windowState() | Qt::WindowFullScreen
                                  : window()->windowState() & ~Qt::WindowFullScreen);
    bar->show();
    if (full)
        showBarForAWhile();
    else
        view->setCursor(Qt::ArrowCursor);
    Q_EMIT fullScreenChanged(full);
}

void Viewer::showBarForAWhile()
{
    bar->show();
    barTimer.start();
}

bool Viewer::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::MouseMove && fillsScreen())
        showBarForAWhile();
    return QWidget::eventFilter(watched, event);
}

void Viewer::hideEvent(QHideEvent *event)
{
    if (!event->spontaneous()) { // the library is shown again, not only the window minimised
        spinner->stop();
        loader->forgetAll();
    }
    QWidget::hideEvent(event);
}

bool Viewer::handleNavigation(int key)
{
    const bool zoomed = view->transform().isLargerThanView();
    switch (key) {
    case Qt::Key_Left:
    case Qt::Key_Right:
        if (zoomed)
            view->pan(key == Qt::Key_Right ? panStep : -panStep, 0);
        else
            goTo(key == Qt::Key_Right ? index + 1 : index - 1);
        return true;
    case Qt::Key_Up:
    case Qt::Key_Down:
        if (zoomed)
            view->pan(0, key == Qt::Key_Down ? panStep : -panStep);
        return zoomed;
    case Qt::Key_PageUp:
    case Qt::Key_Backspace:
        goTo(index - 1);
        return true;
    case Qt::Key_PageDown:
    case Qt::Key_Space:
        goTo(index + 1);
        return true;
    case Qt::Key_Home:
        goTo(0);
        return true;
    case Qt::Key_End:
        goTo(count() - 1);
        return true;
    default:
        return false;
    }
}

bool Viewer::handleZoom(int key)
{
    switch (key) {
    case Qt::Key_Plus:
    case Qt::Key_Equal:
        view->zoomIn();
        return true;
    case Qt::Key_Minus:
        view->zoomOut();
        return true;
    case Qt::Key_0:
        view->fit();
        return true;
    case Qt::Key_1:
        view->showActualSize();
        return true;
    default:
        return false;
    }
}

void Viewer::keyPressEvent(QKeyEvent *event)
{
    const int key = event->key();
    const bool control = (event->modifiers() & Qt::ControlModifier) != 0;
    if ((!control && handleNavigation(key)) || handleZoom(key))
        return;
    if (key == Qt::Key_Escape && fillsScreen())
        setFullScreen(false);
    else if (key == Qt::Key_Escape || event->matches(QKeySequence::Back))
        leave();
    else if (key == Qt::Key_F9)
        bar->facts->toggle();
    else if (key == Qt::Key_F11 || (!control && key == Qt::Key_F))
        setFullScreen(!fillsScreen());
    else if (film && (key == Qt::Key_Return || key == Qt::Key_Enter || key == Qt::Key_P))
        playCurrent(FilmPart::Original);
    else if (!bar->playLive->isHidden() && key == Qt::Key_P)
        playCurrent(FilmPart::Live);
    else if (!control && key == Qt::Key_O)
        toggleOriginal();
    else if (control && key == Qt::Key_E)
        Q_EMIT exportRequested(QVector<qint64>(1, currentId()));
    else
        QWidget::keyPressEvent(event);
}

} // namespace browser
