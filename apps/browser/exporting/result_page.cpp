#include "apps/browser/exporting/result_page.h"

#include "apps/browser/exporting/export_texts.h"

#include <QClipboard>
#include <QFileDialog>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QSaveFile>
#include <QTableView>
#include <QVBoxLayout>

namespace browser
{

namespace
{

QLabel *wrappedLabel(const char *name)
{
    auto *label = new QLabel;
    label->setObjectName(QLatin1String(name));
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    return label;
}

void prepare(QTableView *table, QAbstractItemModel *model)
{
    table->setObjectName(QStringLiteral("problemTable"));
    table->setAccessibleName(QCoreApplication::translate("browser::ResultPage", "What did not work"));
    table->setModel(model);
    table->setSelectionBehavior(QAbstractItemView::SelectRows);
    table->setWordWrap(false);
    table->setShowGrid(false);
    table->setAlternatingRowColors(true);
    table->setTabKeyNavigation(false);
    table->verticalHeader()->hide();
    table->horizontalHeader()->setStretchLastSection(true);
    table->horizontalHeader()->setHighlightSections(false);
    table->setTextElideMode(Qt::ElideMiddle);
    const int letter = table->fontMetrics().averageCharWidth();
    table->setColumnWidth(ProblemModel::KindColumn, 20 * letter);
    table->setColumnWidth(ProblemModel::FileColumn, 28 * letter);
    table->horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
}

} // namespace

ResultPage::ResultPage(QWidget *parent)
    : QWidget(parent), title(wrappedLabel("resultTitle")), counts(wrappedLabel("resultCounts")),
      note(wrappedLabel("resultNote")), problems(new QWidget), table(new QTableView),
      further(wrappedLabel("furtherProblems")), model(new ProblemModel(this))
{
    QFont large = title->font();
    large.setBold(true);
    title->setFont(large);
    prepare(table, model);
    auto *copy = new QPushButton(tr("Copy the &list"));
    auto *save = new QPushButton(tr("&Save the list…"));
    copy->setObjectName(QStringLiteral("copyProblemsButton"));
    save->setObjectName(QStringLiteral("saveProblemsButton"));
    connect(copy, &QPushButton::clicked, this, &ResultPage::copyProblems);
    connect(save, &QPushButton::clicked, this, &ResultPage::saveProblems);
    copy->setAutoDefault(false);
    save->setAutoDefault(false);
    auto *buttons = new QHBoxLayout;
    buttons->addWidget(further, 1);
    buttons->addWidget(copy);
    buttons->addWidget(save);
    auto *list = new QVBoxLayout(problems);
    list->setContentsMargins(0, 0, 0, 0);
    list->addWidget(table, 1);
    list->addLayout(buttons);
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(12);
    column->addWidget(title);
    column->addWidget(counts);
    column->addWidget(note);
    column->addWidget(problems, 1000); // all the room, when there are any
    column->addStretch(1);
}

void ResultPage::showResult(const std::shared_ptr<const ExportResult> &result, const QString &heading,
                            const QString &text)
{
    title->setText(heading);
    title->setVisible(!heading.isEmpty());
    counts->setText(summaryLines(*result).join(QLatin1Char('\n')));
    note->setText(text);
    note->setVisible(!text.isEmpty());
    model->setResult(result);
    problems->setVisible(model->rowCount() > 0);
    further->setText(result->furtherProblems > 0
                         ? tr("%Ln more not listed", nullptr, static_cast<int>(result->furtherProblems))
                         : QString());
}

QString ResultPage::text() const
{
    return title->text() + QLatin1Char('\n') + counts->text() + QLatin1Char('\n') + note->text();
}

void ResultPage::copyProblems() const
{
    QGuiApplication::clipboard()->setText(model->asText());
}

void ResultPage::saveProblems()
{
    const QString name =
        QFileDialog::getSaveFileName(this, tr("Save the list"), tr("export.csv"), tr("Tables (*.csv);;All files (*)"));
    if (name.isEmpty())
        return;
    QSaveFile file(name);
    const QByteArray csv = model->asCsv();
    if (!file.open(QIODevice::WriteOnly) || file.write(csv) != csv.size() || !file.commit())
        QMessageBox::warning(this, tr("Save the list"),
                             tr("“%1” could not be written: %2. Choose another place.").arg(name, file.errorString()));
}

} // namespace browser
