#include "apps/browser/exporting/choices_page.h"

#include "apps/browser/exporting/export_texts.h"
#include "exporter/layout.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QFileDialog>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace browser
{

namespace
{

QLabel *noteLabel(const char *name)
{
    auto *label = new QLabel;
    label->setObjectName(QLatin1String(name));
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    return label;
}

QString fieldHelp()
{
    QStringList lines;
    for (const QString &field : exporter::Layout::fields())
        lines += QStringLiteral("{%1}  %2").arg(field, exporter::Layout::fieldDescription(field));
    return lines.join(QLatin1Char('\n'));
}

} // namespace

ChoicesPage::ChoicesPage(const QString &deviceName, photoItem examplePhoto, qint64 allBytes, QWidget *parent)
    : QWidget(parent), example(std::move(examplePhoto)), bytes(allBytes), destination(new QComboBox),
      destinationNote(noteLabel("destinationNote")), leftOutNote(noteLabel("leftOutNote")), layouts(new QComboBox),
      ownLayout(new QLineEdit), layoutNote(noteLabel("layoutNote")),
      edited(new QCheckBox(tr("Also as &edited on the device, beside the original"))),
      albums(new QCheckBox(tr("Also a folder for each &album, with links to the files"))),
      checker(new DestinationChecker(deviceName, this))
{
    auto *form = new QFormLayout(this);
    form->setContentsMargins(0, 0, 0, 0);
    form->setVerticalSpacing(18);
    form->setHorizontalSpacing(16);
    form->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
    addDestination(form);
    addLayoutChoice(form);
    addFurtherChoices(form);
    connect(checker, &DestinationChecker::checked, this, &ChoicesPage::destinationChecked);
}

void ChoicesPage::addDestination(QFormLayout *form)
{
    destination->setObjectName(QStringLiteral("destinationBox"));
    destination->setEditable(true);
    destination->setInsertPolicy(QComboBox::NoInsert);
    destination->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    destination->setMinimumContentsLength(30);
    destination->setAccessibleName(tr("Folder for the export"));
    auto *choose = new QPushButton(tr("&Choose…"));
    choose->setObjectName(QStringLiteral("chooseButton"));
    choose->setAutoDefault(false);
    auto *row = new QHBoxLayout;
    row->setSpacing(8);
    row->addWidget(destination, 1);
    row->addWidget(choose);
    auto *label = new QLabel(tr("Export &to:"));
    label->setBuddy(destination);
    auto *column = new QVBoxLayout;
    column->addLayout(row);
    column->addWidget(destinationNote);
    form->addRow(label, column);
    connect(choose, &QPushButton::clicked, this, &ChoicesPage::chooseDestination);
    connect(destination, &QComboBox::editTextChanged, this, &ChoicesPage::destinationEdited);
}

void ChoicesPage::addLayoutChoice(QFormLayout *form)
{
    layouts->setObjectName(QStringLiteral("layoutBox"));
    for (const LayoutPreset &preset : layoutPresets())
        layouts->addItem(preset.name, preset.layout);
    layouts->addItem(tr("My own arrangement"));
    ownLayout->setObjectName(QStringLiteral("layoutEdit"));
    ownLayout->setAccessibleName(tr("My own arrangement of folders and names"));
    ownLayout->setToolTip(fieldHelp());
    ownLayout->setVisible(false);
    auto *column = new QVBoxLayout;
    for (QWidget *widget :
         {static_cast<QWidget *>(layouts), static_cast<QWidget *>(ownLayout), static_cast<QWidget *>(layoutNote)})
        column->addWidget(widget);
    auto *label = new QLabel(tr("&Arrange:"));
    label->setBuddy(layouts);
    form->addRow(label, column);
    connect(layouts, QOverload<int>::of(&QComboBox::currentIndexChanged), this, &ChoicesPage::layoutChosen);
    connect(ownLayout, &QLineEdit::textChanged, this, &ChoicesPage::layoutEdited);
}

void ChoicesPage::addFurtherChoices(QFormLayout *form)
{
    edited->setObjectName(QStringLiteral("editedCheck"));
    albums->setObjectName(QStringLiteral("albumsCheck"));
    auto *column = new QVBoxLayout;
    column->addWidget(edited);
    column->addWidget(albums);
    column->addWidget(leftOutNote);
    leftOutNote->hide();
    form->addRow(new QLabel(tr("Include:")), column);
    auto *existing = noteLabel("existingNote");
    existing->setText(
        tr("No file that is there already is ever replaced: what was exported before is recognised and not "
           "copied again, and a different file of the same name gets a number."));
    form->addRow(tr("Existing files:"), existing);
}

ExportChoices ChoicesPage::choices() const
{
    ExportChoices choices;
    const QString path = destination->currentText().trimmed();
    choices.destination = path.isEmpty() ? path : QDir::cleanPath(path);
    const QVariant preset = layouts->currentData();
    choices.layout = preset.isValid() ? preset.toString() : ownLayout->text();
    choices.albums = albums->isChecked();
    choices.edited = edited->isChecked();
    return choices;
}

void ChoicesPage::setChoices(const ExportChoices &choices, const QStringList &recentDestinations)
{
    destination->clear();
    destination->addItems(recentDestinations);
    destination->setEditText(choices.destination);
    const int preset = layouts->findData(choices.layout);
    ownLayout->setText(choices.layout);
    layouts->setCurrentIndex(preset >= 0 ? preset : layouts->count() - 1);
    edited->setChecked(choices.edited);
    albums->setChecked(choices.albums);
    layoutChosen();
    destinationEdited();
}

void ChoicesPage::setLeftOut(int count)
{
    leftOutNote->setText(tr("%Ln hidden or recently deleted photo(s) are left out. To export those, choose "
                            "“Hidden” or “Recently deleted” in the list of albums.",
                            nullptr, count));
    leftOutNote->setVisible(count > 0);
}

void ChoicesPage::chooseDestination()
{
    const QString folder =
        QFileDialog::getExistingDirectory(this, tr("Choose a folder for the export"), destination->currentText());
    if (!folder.isEmpty())
        destination->setEditText(folder);
}

void ChoicesPage::destinationEdited()
{
    destinationIsValid = false;
    checker->request(choices().destination);
    Q_EMIT validityChanged();
}

void ChoicesPage::destinationChecked(const DestinationState &state)
{
    if (state.path != choices().destination)
        return;
    destinationIsValid = state.problem.isEmpty();
    freeAtDestination = state.freeBytes;
    showDestinationNote(state);
    Q_EMIT validityChanged();
}

void ChoicesPage::showDestinationNote(const DestinationState &state)
{
    if (!state.problem.isEmpty())
        destinationNote->setText(state.problem);
    else if (state.freeBytes >= 0 && bytes > 0)
        destinationNote->setText(
            tr("%1 free there, about %2 to export").arg(sizeText(state.freeBytes), sizeText(bytes)));
    else if (state.freeBytes >= 0)
        destinationNote->setText(tr("%1 free there").arg(sizeText(state.freeBytes)));
    else
        destinationNote->clear();
}

void ChoicesPage::layoutChosen()
{
    const bool own = !layouts->currentData().isValid();
    ownLayout->setVisible(own);
    if (!own)
        ownLayout->setText(layouts->currentData().toString()); // where an arrangement of one's own begins
    layoutEdited();
}

void ChoicesPage::layoutEdited()
{
    const QString layout = choices().layout;
    const QString error = layoutError(layout);
    layoutIsValid = error.isEmpty();
    layoutNote->setText(layoutIsValid ? tr("For example: %1").arg(layoutExample(layout, example)) : error);
    Q_EMIT validityChanged();
}

} // namespace browser
