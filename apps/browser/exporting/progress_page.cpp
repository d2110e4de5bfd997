#include "apps/browser/exporting/progress_page.h"

#include "apps/browser/exporting/export_texts.h"

#include <QFileInfo>
#include <QLabel>
#include <QLocale>
#include <QProgressBar>
#include <QVBoxLayout>

namespace browser
{

namespace
{

constexpr int barSteps = 1000;

QLabel *plainLabel(const char *name)
{
    auto *label = new QLabel;
    label->setObjectName(QLatin1String(name));
    label->setTextFormat(Qt::PlainText);
    label->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    return label;
}

} // namespace

ProgressPage::ProgressPage(QWidget *parent)
    : QWidget(parent), title(plainLabel("progressTitle")), bar(new QProgressBar), photos(plainLabel("progressPhotos")),
      pace(plainLabel("progressPace")), file(plainLabel("progressFile"))
{
    bar->setObjectName(QStringLiteral("progressBar"));
    bar->setAccessibleName(tr("Progress of the export"));
    QFont large = title->font();
    large.setBold(true);
    title->setFont(large);
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(10);
    column->addStretch(1);
    for (QWidget *widget : {static_cast<QWidget *>(title), static_cast<QWidget *>(bar), static_cast<QWidget *>(photos),
                            static_cast<QWidget *>(pace), static_cast<QWidget *>(file)})
        column->addWidget(widget);
    column->addStretch(2);
}

void ProgressPage::start(const QString &folder)
{
    destination = folder;
    isPlanning = false;
    begin();
}

void ProgressPage::startPlanning()
{
    isPlanning = true;
    begin();
}

void ProgressPage::begin()
{
    clock.start();
    phase = exporter::Phase::Measuring;
    bar->setRange(0, 0);
    for (QLabel *label : {photos, pace, file})
        label->clear();
    setPaused(false);
}

void ProgressPage::setPaused(bool paused)
{
    isPaused = paused;
    rate.reset(); // what was before the pause says nothing
    pace->clear();
    showTitle();
}

void ProgressPage::showTitle()
{
    if (isPaused)
        title->setText(tr("Paused"));
    else if (isPlanning || phase == exporter::Phase::Measuring)
        title->setText(tr("Looking at the files on the device…"));
    else if (phase == exporter::Phase::Albums)
        title->setText(tr("Making album folders…"));
    else
        title->setText(tr("Copying to “%1”…").arg(destination));
}

void ProgressPage::showProgress(const exporter::ExportProgress &progress)
{
    if (isPaused)
        return;
    if (progress.phase != phase) {
        phase = progress.phase;
        rate.reset();
        showTitle();
    }
    const bool hasBytes = !isPlanning && progress.bytesTotal > 0 && phase == exporter::Phase::Copying;
    const qint64 done = hasBytes ? progress.bytesDone : progress.photosDone;
    const qint64 total = hasBytes ? progress.bytesTotal : progress.photosTotal;
    bar->setRange(0, total > 0 ? barSteps : 0);
    bar->setValue(total > 0 ? static_cast<int>(static_cast<double>(done) / static_cast<double>(total) * barSteps) : 0);
    file->setText(QFileInfo(progress.currentFile).fileName());
    showCounts(progress);
}

void ProgressPage::showCounts(const exporter::ExportProgress &progress)
{
    const QLocale locale;
    const QString done = locale.toString(progress.photosDone), total = locale.toString(progress.photosTotal);
    if (phase == exporter::Phase::Albums)
        photos->setText(tr("%1 of %2 albums").arg(done, total));
    else
        photos->setText(tr("%1 of %2 photos and videos").arg(done, total));
    if (isPlanning || phase != exporter::Phase::Copying || progress.bytesTotal < 0) {
        pace->clear();
        return;
    }
    rate.note(progress.bytesDone, clock.elapsed());
    const QString bytes = tr("%1 of %2", "sizes").arg(sizeText(progress.bytesDone), sizeText(progress.bytesTotal));
    const QString speed = paceText(rate.bytesPerSecond(), rate.secondsFor(progress.bytesTotal - progress.bytesDone));
    pace->setText(speed.isEmpty() ? bytes : tr("%1 — %2", "how much, and how fast").arg(bytes, speed));
}

} // namespace browser
