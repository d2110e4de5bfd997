#ifndef APPS_BROWSER_VIEWER_OVERLAYS_H
#define APPS_BROWSER_VIEWER_OVERLAYS_H

#include <QAbstractButton>
#include <QFrame>
#include <QTimer>

class QLabel;
class QProgressBar;
class QPushButton;

namespace browser
{

/// A turning circle. It appears only when something takes long enough to be noticed.
class BusySpinner : public QWidget
{
    Q_OBJECT

public:
    explicit BusySpinner(QWidget *parent = nullptr);

    void start();
    void stop();
    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    QTimer delay;
    QTimer turning;
    int step = 0;
};

/// A large round button over a film's picture.
class PlayButton : public QAbstractButton
{
    Q_OBJECT

public:
    explicit PlayButton(QWidget *parent = nullptr);
    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;
    bool hitButton(const QPoint &point) const override;
};

/// A panel over the picture that says why it cannot be seen, with a button to try again.
class ProblemPanel : public QFrame
{
    Q_OBJECT

public:
    explicit ProblemPanel(QWidget *parent = nullptr);

    void showText(const QString &text, bool canTryAgain);
    QString text() const;

Q_SIGNALS:
    void tryAgain();

private:
    QLabel *label;
    QPushButton *button;
};

/// How far the copying of a film has come.
class FilmPanel : public QFrame
{
    Q_OBJECT

public:
    explicit FilmPanel(QWidget *parent = nullptr);

    void start(const QString &fileName);
    void showProgress(qint64 done, qint64 total);

Q_SIGNALS:
    void cancelled();

private:
    QLabel *label;
    QProgressBar *bar;
};

} // namespace browser

#endif
