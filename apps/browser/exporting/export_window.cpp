#include "apps/browser/exporting/export_window.h"

#include "apps/browser/exporting/choices_page.h"
#include "apps/browser/exporting/export_job.h"
#include "apps/browser/exporting/export_texts.h"
#include "apps/browser/exporting/progress_page.h"
#include "apps/browser/exporting/result_page.h"
#include "apps/browser/exporting/show_in_folder.h"

#include <QDBusConnection>
#include <QHBoxLayout>
#include <QMessageBox>
#include <QPushButton>
#include <QSettings>
#include <QStackedWidget>
#include <QVBoxLayout>

#include <algorithm>

namespace browser
{

namespace
{

using exporter::RunEnd;

qint64 bytesOf(const Snapshot &snapshot, const QVector<qint64> &ids)
{
    qint64 sum = 0;
    for (const qint64 id : ids)
        if (const Photo *photo = snapshot.find(id))
            sum += std::max<qint64>(photo->fileSize, 0);
    return sum;
}

// Hidden and deleted photos that are not asked for together with all the others; 0 when others are left out as well.
int leftOutOf(const Snapshot &snapshot, const QVector<qint64> &ids)
{
    std::vector<bool> isAsked(snapshot.photos.size());
    for (const qint64 id : ids)
        if (const auto row = snapshot.rows.constFind(id); row != snapshot.rows.constEnd())
            isAsked[static_cast<std::size_t>(*row)] = true;
    int leftOut = 0;
    for (std::size_t row = 0; row < isAsked.size(); ++row) {
        if (isAsked[row])
            continue;
        if (!snapshot.photos[row].is(Hidden) && !snapshot.photos[row].is(Deleted))
            return 0;
        ++leftOut;
    }
    return leftOut;
}

photoItem firstOf(OpenedLibrary &library, const QVector<qint64> &ids)
{
    for (const qint64 id : ids)
        if (const std::optional<photoItem> photo = library.item(id))
            return *photo;
    return {};
}

} // namespace

ExportWindow::ExportWindow(std::shared_ptr<OpenedLibrary> library, const QVector<qint64> &ids, QWidget *parent)
    : QDialog(parent), opened(std::move(library)), photos(ids.begin(), ids.end()),
      choices(new ChoicesPage(opened->deviceName(), firstOf(*opened, ids), bytesOf(opened->snapshot(), ids))),
      progress(new ProgressPage), result(new ResultPage), pages(new QStackedWidget), job(new ExportJob(opened, this))
{
    setObjectName(QStringLiteral("exportWindow"));
    setWindowTitle(tr("Export %Ln photo(s) and video(s)", nullptr, static_cast<int>(photos.size())));
    arrange();
    connectButtons();
    connect(job, &ExportJob::progress, progress, &ProgressPage::showProgress);
    connect(job, &ExportJob::finished, this, &ExportWindow::finished);
    connect(choices, &ChoicesPage::validityChanged, this, [this] {
        if (step == Step::Choosing)
            nextButton->setEnabled(choices->isValid());
    });
    const QSettings settings;
    choices->setChoices(loadChoices(settings), recentDestinations(settings));
    choices->setLeftOut(leftOutOf(opened->snapshot(), ids));
    goTo(Step::Choosing);
}

ExportWindow::~ExportWindow()
{
    stopReads();
    disconnect(job, nullptr, this, nullptr); // which is a part of this no more when it ends
    delete job;
    retire(std::move(opened));
}

QPushButton *ExportWindow::addButton(const char *name, const QString &text)
{
    auto *button = new QPushButton(text, this);
    button->setObjectName(QLatin1String(name));
    button->setAutoDefault(false);
    return button;
}

void ExportWindow::arrange()
{
    pages->addWidget(choices);
    pages->addWidget(progress);
    pages->addWidget(result);
    folderButton = addButton("folderButton", tr("Show in &folder"));
    againButton = addButton("againButton", QString());
    backButton = addButton("backButton", tr("&Back"));
    pauseButton = addButton("pauseButton", QString());
    cancelButton = addButton("cancelButton", QString());
    nextButton = addButton("nextButton", QString());
    auto *buttons = new QHBoxLayout;
    buttons->addWidget(folderButton);
    buttons->addStretch(1);
    for (QPushButton *button : {againButton, backButton, pauseButton, cancelButton, nextButton})
        buttons->addWidget(button);
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(24, 20, 24, 16);
    column->setSpacing(20);
    column->addWidget(pages, 1);
    column->addLayout(buttons);
    resize(fontMetrics().averageCharWidth() * 100, fontMetrics().height() * 26);
}

void ExportWindow::connectButtons()
{
    connect(nextButton, &QPushButton::clicked, this, &ExportWindow::next);
    connect(cancelButton, &QPushButton::clicked, this, &ExportWindow::cancelOrClose);
    connect(pauseButton, &QPushButton::clicked, this, &ExportWindow::togglePause);
    connect(backButton, &QPushButton::clicked, this, [this] { goTo(Step::Choosing); });
    connect(againButton, &QPushButton::clicked, this, &ExportWindow::again);
    connect(folderButton, &QPushButton::clicked, this, &ExportWindow::showFolder);
}

void ExportWindow::goTo(Step to)
{
    step = to;
    const bool busy = step == Step::Planning || step == Step::Running;
    pages->setCurrentWidget(step == Step::Choosing ? static_cast<QWidget *>(choices)
                            : busy                 ? static_cast<QWidget *>(progress)
                                                   : static_cast<QWidget *>(result));
    folderButton->setVisible(step == Step::Done);
    againButton->setVisible(step == Step::Done && !repeat.empty());
    backButton->setVisible(step == Step::Planned);
    pauseButton->setVisible(step == Step::Running);
    pauseButton->setText(tr("&Pause"));
    cancelButton->setText(step == Step::Done ? tr("Close") : tr("Cancel"));
    cancelButton->setEnabled(true);
    nextButton->setVisible(step == Step::Choosing || step == Step::Planned);
    nextButton->setText(step == Step::Planned ? tr("&Start") : tr("&Continue"));
    nextButton->setEnabled(step == Step::Planned || choices->isValid());
    nextButton->setDefault(nextButton->isVisible());
}

void ExportWindow::next()
{
    if (step == Step::Choosing)
        plan();
    else if (step == Step::Planned)
        run(photos);
}

void ExportWindow::plan()
{
    QSettings settings;
    saveChoices(settings, choices->choices());
    exporter::ExportOptions options = choices->choices().options();
    options.dryRun = true;
    progress->startPlanning();
    goTo(Step::Planning);
    job->start(options, photos);
}

void ExportWindow::run(const std::vector<qint64> &ids)
{
    inHand = ids;
    progress->start(choices->choices().destination);
    goTo(Step::Running);
    job->start(choices->choices().options(), ids);
}

void ExportWindow::again()
{
    const std::vector<qint64> ids = repeat;
    run(ids);
}

void ExportWindow::finished(const Result &ended)
{
    if (closeAfterwards)
        QDialog::reject();
    if (ended->wasDryRun)
        showPlan(ended);
    else
        showEnd(ended);
}

QString ExportWindow::planNote(const ExportResult &planned) const
{
    const qint64 freeBytes = choices->freeBytes();
    if (freeBytes >= 0 && freeBytes < planned.outcome.bytesExported)
        return tr("There is not enough room: %1 free in “%2”. Choose another folder, or make room first.")
            .arg(sizeText(freeBytes), choices->choices().destination);
    if (planned.outcome.count(exporter::FileStatus::Exported) + planned.outcome.count(exporter::FileStatus::Adopted) ==
        0)
        return tr("There is nothing to copy.");
    const QString target = tr("To: %1").arg(choices->choices().destination);
    return planned.notThere > 0 ? target + QLatin1Char('\n') + advice(planned) : target;
}

void ExportWindow::showPlan(const Result &planned)
{
    if (planned->outcome.end == RunEnd::Cancelled) {
        goTo(Step::Choosing);
        return;
    }
    const bool isGood = planned->outcome.end == RunEnd::Completed;
    result->showResult(planned, isGood ? tr("This will be done:") : headline(*planned),
                       isGood ? planNote(*planned) : advice(*planned));
    goTo(Step::Planned);
    nextButton->setEnabled(isGood);
    nextButton->setFocus();
}

void ExportWindow::showEnd(const Result &ended)
{
    places = ended->places;
    repeat = ended->outcome.end == RunEnd::Completed ? ended->failed : inHand;
    againButton->setText(ended->outcome.end == RunEnd::Completed ? tr("&Export again what failed") : tr("&Go on"));
    result->showResult(ended, headline(*ended), advice(*ended));
    goTo(Step::Done);
    cancelButton->setFocus();
}

void ExportWindow::togglePause()
{
    const bool pause = !job->isPaused();
    if (pause)
        job->pause();
    else
        job->resume();
    progress->setPaused(pause);
    pauseButton->setText(pause ? tr("&Resume") : tr("&Pause"));
}

void ExportWindow::cancelOrClose()
{
    if (!job->isRunning()) {
        close();
        return;
    }
    cancelButton->setEnabled(false);
    job->cancel();
}

void ExportWindow::showFolder()
{
    const QString folder = choices->choices().destination;
    showInFolder(QDBusConnection::sessionBus(), folder, places, this, [this, folder] {
        QMessageBox::information(this, windowTitle(),
                                 tr("No file manager could be opened. The files are in %1.").arg(folder));
    });
}

bool ExportWindow::isRunning() const
{
    return step == Step::Running && job->isRunning();
}

// Only a window that goes with its library goes while something runs. Its library may be an earlier one, which nobody
// else stops.
void ExportWindow::stopReads()
{
    if (job->isRunning())
        opened->stop();
}

void ExportWindow::cancelAndWait()
{
    stopReads();
    job->cancelAndWait();
}

void ExportWindow::giveUp()
{
    setParent(nullptr, windowFlags());
    hide();
    if (!job->isRunning()) {
        deleteLater();
        return;
    }
    setAttribute(Qt::WA_DeleteOnClose);
    closeAfterwards = true;
    job->cancel();
}

// A run is ended first, without waiting for it here.
bool ExportWindow::mayClose()
{
    if (!job->isRunning())
        return true;
    if (isRunning() &&
        QMessageBox::question(this, windowTitle(), tr("An export is running. Cancel it? What is complete stays.")) !=
            QMessageBox::Yes)
        return false;
    if (!job->isRunning()) // it ended while the question was on the screen
        return true;
    closeAfterwards = true;
    job->cancel();
    return false;
}

void ExportWindow::reject()
{
    if (mayClose())
        QDialog::reject();
}

} // namespace browser
