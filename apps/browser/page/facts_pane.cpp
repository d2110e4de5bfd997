#include "apps/browser/page/facts_pane.h"

#include "apps/browser/library/snapshot_photo.h"
#include "apps/browser/page/collection_titles.h"
#include "apps/browser/page/texts.h"

#include <QClipboard>
#include <QFormLayout>
#include <QGuiApplication>
#include <QLabel>
#include <QLocale>
#include <QToolButton>
#include <QVBoxLayout>

namespace browser
{

namespace
{

qint64 millisecondsOf(const QDateTime &date)
{
    return date.isValid() ? date.toMSecsSinceEpoch() : Photo::noDate;
}

// As it is seen: half of the orientations lay a picture on its side.
QSize seenSize(const photoItem &item)
{
    const QSize stored(item.width, item.height);
    return item.orientation >= 5 && item.orientation <= 8 ? stored.transposed() : stored;
}

} // namespace

FactsPane::FactsPane(std::shared_ptr<OpenedLibrary> library, QWidget *parent)
    : QScrollArea(parent), opened(std::move(library)), form(nullptr), title(nullptr)
{
    setObjectName(QStringLiteral("factsPane"));
    setAccessibleName(tr("Facts of the current photo"));
    setFrameShape(QFrame::NoFrame);
    setWidgetResizable(true);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    auto *page = new QWidget;
    auto *column = new QVBoxLayout(page);
    column->setContentsMargins(16, 16, 16, 16);
    column->setSpacing(12);
    title = new QLabel(page);
    title->setObjectName(QStringLiteral("factTitle"));
    title->setTextFormat(Qt::PlainText);
    title->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    title->setWordWrap(true);
    QFont font = title->font();
    font.setBold(true);
    font.setPointSizeF(font.pointSizeF() * 1.2);
    title->setFont(font);
    column->addWidget(title);
    form = new QFormLayout;
    form->setRowWrapPolicy(QFormLayout::WrapAllRows);
    form->setVerticalSpacing(4);
    column->addLayout(form);
    column->addStretch(1);
    addFacts();
    setWidget(page);
    showPhoto(0);
}

void FactsPane::addFacts()
{
    kind = addFact("factKind", tr("Kind"));
    taken = addFact("factTaken", tr("Taken"));
    changed = addFact("factChanged", tr("Changed"));
    deleted = addFact("factDeleted", tr("Deleted"));
    dimensions = addFact("factDimensions", tr("Dimensions"));
    duration = addFact("factDuration", tr("Length"));
    size = addFact("factSize", tr("Size"));
    marks = addFact("factMarks", tr("Marks"));
    place = addFact("factPlace", tr("Place"));
    copyPlace = new QToolButton;
    copyPlace->setObjectName(QStringLiteral("copyPlaceButton"));
    copyPlace->setText(tr("Copy coordinates"));
    copyPlace->setAccessibleName(copyPlace->text());
    connect(copyPlace, &QToolButton::clicked, this,
            [this] { QGuiApplication::clipboard()->setText(copyPlace->property("coordinates").toString()); });
    form->addRow(copyPlace);
    collections = addFact("factCollections", tr("In"));
    path = addFact("factPath", tr("On the device"));
}

QLabel *FactsPane::addFact(const char *name, const QString &heading)
{
    auto *value = new QLabel;
    value->setObjectName(QLatin1String(name));
    value->setAccessibleName(heading);
    value->setTextFormat(Qt::PlainText);
    value->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    value->setWordWrap(true);
    value->setContentsMargins(0, 0, 0, 8);
    auto *label = new QLabel(heading);
    QFont font = label->font();
    font.setBold(true);
    label->setFont(font);
    label->setBuddy(value);
    form->addRow(label, value);
    return value;
}

void FactsPane::setFact(QLabel *value, const QString &text)
{
    value->setText(text);
    value->setVisible(!text.isEmpty());
    form->labelForField(value)->setVisible(!text.isEmpty());
}

void FactsPane::showPhoto(qint64 id)
{
    const Photo *photo = opened->snapshot().find(id);
    const std::optional<photoItem> item = photo != nullptr ? opened->item(id) : std::nullopt;
    if (!item) {
        title->setText(tr("Choose a photo to see its facts."));
        for (QLabel *value :
             {kind, taken, changed, deleted, dimensions, size, duration, marks, place, collections, path})
            setFact(value, QString());
        copyPlace->hide();
        return;
    }
    title->setText(photo->fileName);
    setFact(kind, Texts::kind(*photo));
    showDates(*photo, *item);
    showFile(*photo, *item);
    showPlace(*item);
    setFact(collections, collectionsOf(id));
}

void FactsPane::showDates(const Photo &photo, const photoItem &item)
{
    setFact(taken, Texts::dateAndTime(photo.created));
    setFact(changed, Texts::dateAndTime(millisecondsOf(item.modificationDate)));
    setFact(deleted, photo.is(Deleted) ? Texts::dateAndTime(millisecondsOf(item.trashedDate)) : QString());
}

void FactsPane::showFile(const Photo &photo, const photoItem &item)
{
    const QLocale locale;
    const QSize seen = seenSize(item);
    setFact(dimensions, seen.isEmpty()
                            ? QString()
                            : tr("%1 × %2 pixels").arg(locale.toString(seen.width()), locale.toString(seen.height())));
    setFact(duration, photo.kind == MediaKind::Video ? Texts::duration(photo.duration) : QString());
    setFact(size, photo.fileSize > 0 ? Texts::size(photo.fileSize) : QString());
    QStringList list;
    const auto add = [&list](bool holds, const QString &text) { list += holds ? QStringList(text) : QStringList(); };
    add(photo.is(Favorite), tr("Favorite"));
    add(photo.is(Hidden), tr("Hidden"));
    add(photo.is(Deleted), tr("Recently deleted"));
    add(photo.is(Edited), tr("Edited on the device"));
    add(photo.is(Burst), tr("Part of a burst"));
    add(item.cameraCaptureDevice == 1, tr("Taken with the front camera"));
    add(item.depthType == 1, tr("Taken in portrait mode"));
    add(photo.is(CloudOnly), tr("Only in the cloud, not on the device"));
    setFact(marks, list.join(QLatin1Char('\n')));
    setFact(path, item.directory + QLatin1Char('/') + item.fileName);
}

void FactsPane::showPlace(const photoItem &item)
{
    constexpr int decimals = 5; // a metre
    const bool isLocated = isOnGlobe(item.latitude, item.longitude);
    setFact(place, isLocated ? Texts::coordinates(item.latitude, item.longitude, decimals) : QString());
    copyPlace->setVisible(isLocated);
    // As maps read them in every language.
    copyPlace->setProperty("coordinates", QStringLiteral("%1, %2").arg(QString::number(item.latitude, 'f', decimals),
                                                                       QString::number(item.longitude, 'f', decimals)));
}

QString FactsPane::collectionsOf(qint64 id) const
{
    QStringList titles;
    const Snapshot &snapshot = opened->snapshot();
    for (const Collection &collection : snapshot.collections) {
        const bool isEverything = collection.albumId == 0 && collection.category == category::everything;
        if (!isEverything && !collection.isPart && collection.photoIds.contains(id))
            titles += CollectionTitles::of(collection, snapshot);
    }
    return titles.join(QLatin1Char('\n'));
}

} // namespace browser
