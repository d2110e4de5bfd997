#ifndef APPS_BROWSER_EXPORTING_EXPORT_WINDOW_H
#define APPS_BROWSER_EXPORTING_EXPORT_WINDOW_H

#include "apps/browser/library/opened_library.h"

#include <QDialog>
#include <QStringList>
#include <QVector>

#include <vector>

class QPushButton;
class QStackedWidget;

namespace browser
{

class ChoicesPage;
class ExportJob;
class ProgressPage;
class ResultPage;
struct ExportChoices;
struct ExportResult;

/// Exports photos step by step: where and how, what would be done, progress, result. Not modal: the library can be
/// browsed meanwhile.
class ExportWindow : public QDialog
{
    Q_OBJECT

public:
    ExportWindow(std::shared_ptr<OpenedLibrary> library, const QVector<qint64> &ids, QWidget *parent = nullptr);
    ~ExportWindow() override;

    /// Whether an export is running; closing the window then asks first.
    bool isRunning() const;
    /// Ends a running export in good order, and every read of its library, and waits for it: what is complete stays.
    /// The destructor does the same without waiting.
    void cancelAndWait();
    /// Hides this, ends a running export in good order, and deletes this once it is over: what is complete stays. Does
    /// not wait. Nobody's child from now on.
    void giveUp();

public Q_SLOTS:
    /// Also when the window is closed.
    void reject() override;

private:
    enum class Step { Choosing, Planning, Planned, Running, Done };
    using Result = std::shared_ptr<const ExportResult>;

    void arrange();
    QPushButton *addButton(const char *name, const QString &text);
    void connectButtons();
    void goTo(Step next);
    void plan();
    void run(const std::vector<qint64> &ids);
    void finished(const Result &result);
    void showPlan(const Result &result);
    void showEnd(const Result &result);
    QString planNote(const ExportResult &result) const;
    void next();
    void again();
    void cancelOrClose();
    void togglePause();
    void showFolder();
    void stopReads();
    bool mayClose();

    std::shared_ptr<OpenedLibrary> opened;
    const std::vector<qint64> photos;
    std::vector<qint64> inHand; ///< what the last run was asked for
    std::vector<qint64> repeat; ///< what remains to be done after it
    QStringList places;         ///< where the last run put files, below the destination
    Step step = Step::Choosing;
    bool closeAfterwards = false;

    ChoicesPage *choices;
    ProgressPage *const progress;
    ResultPage *const result;
    QStackedWidget *const pages;
    ExportJob *const job;
    QPushButton *folderButton;
    QPushButton *againButton;
    QPushButton *backButton;
    QPushButton *pauseButton;
    QPushButton *cancelButton;
    QPushButton *nextButton;
};

} // namespace browser

#endif
