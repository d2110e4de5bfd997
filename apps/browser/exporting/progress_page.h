#ifndef APPS_BROWSER_EXPORTING_PROGRESS_PAGE_H
#define APPS_BROWSER_EXPORTING_PROGRESS_PAGE_H

#include "exporter/observer.h"
#include "exporter/transfer_rate.h"

#include <QElapsedTimer>
#include <QWidget>

class QLabel;
class QProgressBar;

namespace browser
{

/// How far an export has come.
class ProgressPage : public QWidget
{
    Q_OBJECT

public:
    explicit ProgressPage(QWidget *parent = nullptr);

    void start(const QString &destination);
    /// For a run that only finds out what would be done.
    void startPlanning();
    void showProgress(const exporter::ExportProgress &progress);
    void setPaused(bool paused);

private:
    void begin();
    void showTitle();
    void showCounts(const exporter::ExportProgress &progress);

    QLabel *const title;
    QProgressBar *const bar;
    QLabel *const photos;
    QLabel *const pace;
    QLabel *const file;
    exporter::TransferRate rate;
    exporter::Phase phase = exporter::Phase::Measuring;
    bool isPaused = false;
    bool isPlanning = false;
    QElapsedTimer clock;
    QString destination;
};

} // namespace browser

#endif
