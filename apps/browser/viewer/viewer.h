#ifndef APPS_BROWSER_VIEWER_VIEWER_H
#define APPS_BROWSER_VIEWER_VIEWER_H

#include "apps/browser/library/opened_library.h"

#include <QTimer>
#include <QVector>
#include <QWidget>

#include <vector>

namespace browser
{

class BusySpinner;
class FactsPane;
class FilmPanel;
class FilmPlayer;
class PictureLoader;
class PictureSource;
class PictureView;
class PlayButton;
class ProblemPanel;
class ViewerBar;
enum class FilmPart;
struct Film;
struct Picture;
struct PictureRequest;
struct PhotoPlace;

/// One picture at a time, as large as the window; next and previous, zoom and pan. Videos open in the system's player.
class Viewer : public QWidget
{
    Q_OBJECT

public:
    explicit Viewer(std::shared_ptr<OpenedLibrary> library, QWidget *parent = nullptr);
    /// With pictures from elsewhere.
    Viewer(std::shared_ptr<OpenedLibrary> library, std::shared_ptr<PictureSource> pictures, QWidget *parent = nullptr);
    ~Viewer() override;

    /// Shows ids[current]; the others are the next and previous ones.
    void showPhotos(const QVector<qint64> &ids, int current);

Q_SIGNALS:
    /// Escape, or back to the library; `id` is the photo that was shown last.
    void closed(qint64 id);
    void currentChanged(qint64 id);
    void exportRequested(const QVector<qint64> &ids);
    /// The original could not be read: the device may be gone.
    void readFailed();
    /// The window fills the screen now, or does no more: other bars may hide.
    void fullScreenChanged(bool full);

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void hideEvent(QHideEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void arrange();
    void connectBar();
    void connectLoading();
    void connectFilms();
    void goTo(int index);
    void showCurrent();
    void describeCurrent();
    void toggleOriginal();
    void showFacts(bool shown);
    QString noteOn(const Picture &picture) const;
    void loadCurrent();
    void showThumbnail(qint64 id, const QImage &thumbnail);
    void showPicture(qint64 id, const std::shared_ptr<const Picture> &picture);
    void playCurrent(FilmPart part);
    void filmFailed(qint64 id, const Film &film);
    void leave();
    void setFullScreen(bool full);
    bool fillsScreen() const;
    bool handleNavigation(int key);
    bool handleZoom(int key);
    void showBarForAWhile();
    int count() const { return static_cast<int>(photos.size()); }
    qint64 idAt(int at) const { return photos[static_cast<std::size_t>(at)]; }
    qint64 currentId() const { return index < 0 ? 0 : idAt(index); }
    PictureRequest requestFor(int index) const;
    PhotoPlace placeOfCurrent() const;

    const std::shared_ptr<OpenedLibrary> opened;
    std::vector<qint64> photos;
    int index = -1;    ///< of the current one; -1 for none
    photoItem item;    ///< of the current photo
    bool film = false; ///< whether the current photo is a video
    QString date;      ///< of the current photo, as it is shown

    ViewerBar *const bar;
    PictureView *const view;
    FactsPane *const facts;
    BusySpinner *const spinner;
    PlayButton *const play;
    ProblemPanel *const problem;
    FilmPanel *const filmPanel;
    PictureLoader *const loader;
    FilmPlayer *const player;
    QTimer barTimer;
};

} // namespace browser

#endif
