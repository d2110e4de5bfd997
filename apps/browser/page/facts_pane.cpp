#include "apps/browser/page/facts_pane.h"

#include "apps/browser/library/background.h"
#include "apps/browser/library/snapshot_photo.h"
#include "apps/browser/media/device_read.h"
#include "apps/browser/page/collection_titles.h"
#include "apps/browser/page/texts.h"
#include "devicehost/device_host.h"

#include <QClipboard>
#include <QFileInfo>
#include <QFormLayout>
#include <QGuiApplication>
#include <QLabel>
#include <QLocale>
#include <QMimeDatabase>
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

QString fileType(const QString &fileName)
{
    const QMimeType type = QMimeDatabase().mimeTypeForFile(fileName, QMimeDatabase::MatchExtension);
    return type.isDefault() ? QFileInfo(fileName).suffix().toUpper() : type.comment();
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
    type = addFact("factType", tr("File type"));
    taken = addFact("factTaken", tr("Taken"));
    changed = addFact("factChanged", tr("Changed"));
    deleted = addFact("factDeleted", tr("Deleted"));
    dimensions = addFact("factDimensions", tr("Dimensions"));
    orientation = addFact("factOrientation", tr("Orientation"));
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
    auto *below = new QVBoxLayout;
    below->setContentsMargins(0, 0, 0, 12);
    below->addWidget(copyPlace, 0, Qt::AlignLeft);
    form->addRow(below);
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
    shown = id;
    const Photo *photo = opened->snapshot().find(id);
    const std::optional<photoItem> item = photo != nullptr ? opened->item(id) : std::nullopt;
    if (!item) {
        title->setText(tr("Choose a photo to see its facts."));
        for (QLabel *value : {kind, type, taken, changed, deleted, dimensions, orientation, size, duration, marks,
                              place, collections, path})
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
    askForOriginal();
}

// The database may hold the size of another file of the photo, and leave open whether the original is on the device.
void FactsPane::askForOriginal()
{
    const std::optional<photoItem> item = opened->item(shown);
    if (asking || !item)
        return;
    asking = true;
    inBackground<FileLook>(
        this, [library = opened, path = originalPathOf(*item)] { return lookAtDeviceFile(library->host(), path); },
        [this, id = shown](const FileLook &look) {
            asking = false;
            if (id == shown)
                takeLook(id, look);
            else
                askForOriginal();
        });
}

void FactsPane::takeLook(qint64 id, const FileLook &look)
{
    const Photo *photo = opened->snapshot().find(id);
    const std::optional<photoItem> item = opened->item(id);
    if (look.end == ReadEnd::Complete && look.size >= 0)
        setFact(size, Texts::size(look.size));
    if (look.end != ReadEnd::Absent || photo == nullptr || !item)
        return;
    setFact(size, QString());
    const bool isInCloud = photo->is(InCloud) || photo->is(CloudOnly);
    showMarks(*photo, *item, isInCloud);
    if (isInCloud)
        Q_EMIT originalLacking(id);
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
    setFact(type, fileType(photo.fileName));
    setFact(orientation, orientationText(item.orientation));
    setFact(duration, photo.kind == MediaKind::Video ? Texts::duration(photo.duration) : QString());
    setFact(size, photo.fileSize > 0 ? Texts::roughSize(photo.fileSize) : QString());
    showMarks(photo, item, photo.is(CloudOnly));
    setFact(path, item.directory + QLatin1Char('/') + item.fileName);
}

void FactsPane::showMarks(const Photo &photo, const photoItem &item, bool lacksOriginal)
{
    QStringList list;
    const auto add = [&list](bool holds, const QString &text) { list += holds ? QStringList(text) : QStringList(); };
    add(photo.is(Favorite), tr("Favorite"));
    add(photo.is(Hidden), tr("Hidden"));
    add(photo.is(Deleted), tr("Recently deleted"));
    add(photo.is(Edited), tr("Edited on the device"));
    add(photo.is(Burst), tr("Part of a burst"));
    add(item.cameraCaptureDevice == 1, tr("Taken with the front camera"));
    add(item.depthType == 1, tr("Taken in portrait mode"));
    add(lacksOriginal, tr("Only in the cloud, not on the device"));
    setFact(marks, list.join(QLatin1Char('\n')));
}

QString FactsPane::orientationText(int orientation)
{
    switch (orientation) {
    case 1:
        return tr("Upright");
    case 2:
        return tr("Mirrored");
    case 3:
        return tr("Stored upside down");
    case 4:
        return tr("Stored upside down, mirrored");
    case 5:
    case 7:
        return tr("Stored on its side, mirrored");
    case 6:
    case 8:
        return tr("Stored on its side");
    default:
        return {};
    }
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
