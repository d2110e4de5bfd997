#include "apps/browser/exporting/export_choices.h"

#include "exporter/layout.h"
#include "photolib/photo_item.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QSettings>
#include <QStandardPaths>

namespace browser
{

namespace
{

constexpr int mostRecent = 8;

class ChoiceTexts
{
    Q_DECLARE_TR_FUNCTIONS(browser::ExportChoices)

public:
    static QString wrongLayout(const exporter::LayoutError &error)
    {
        return tr("The arrangement is wrong at character %1: %2.").arg(error.position + 1).arg(error.text);
    }

    static QVector<LayoutPreset> presets()
    {
        return {
            {tr("A folder for each year"), QString::fromLatin1(exporter::defaultLayout)},
            {tr("A folder for each month"), QStringLiteral("{created:yyyy}/{created:yyyy-MM}/{fileName}")},
            {tr("A folder for each day"), QStringLiteral("{created:yyyy}/{created:yyyy-MM-dd}/{fileName}")},
            {tr("All in one folder, by date and time"), QStringLiteral("{created:yyyy-MM-dd_HH-mm-ss}_{fileName}")},
            {tr("As on the device"), QStringLiteral("dcim")},
        };
    }
};

QString key(const char *name)
{
    return QStringLiteral("export/") + QLatin1String(name);
}

} // namespace

exporter::ExportOptions ExportChoices::options() const
{
    exporter::ExportOptions options;
    options.destination = destination;
    options.layout = layout;
    options.albums = albums;
    options.edited = edited;
    return options;
}

QVector<LayoutPreset> layoutPresets()
{
    return ChoiceTexts::presets();
}

QString layoutExample(const QString &layout, const photoItem &photo)
{
    const auto parsed = exporter::Layout::parse(layout, nullptr);
    if (parsed == nullptr)
        return {};
    const exporter::Place place = parsed->place(photo, false);
    QStringList path = place.folders;
    const QString extension = QFileInfo(photo.fileName).suffix();
    path += extension.isEmpty() ? place.stem : place.stem + QLatin1Char('.') + extension;
    return path.join(QLatin1Char('/'));
}

QString layoutError(const QString &layout)
{
    exporter::LayoutError error;
    return exporter::Layout::parse(layout, &error) == nullptr ? ChoiceTexts::wrongLayout(error) : QString();
}

ExportChoices loadChoices(const QSettings &settings)
{
    ExportChoices choices;
    const QStringList recent = recentDestinations(settings);
    const QString pictures = QStandardPaths::writableLocation(QStandardPaths::PicturesLocation);
    choices.destination = recent.isEmpty() ? pictures : recent.first();
    choices.layout = settings.value(key("layout")).toString();
    if (!layoutError(choices.layout).isEmpty())
        choices.layout = layoutPresets().first().layout;
    choices.albums = settings.value(key("albums"), false).toBool();
    choices.edited = settings.value(key("edited"), true).toBool();
    return choices;
}

QStringList recentDestinations(const QSettings &settings)
{
    return settings.value(key("recentDestinations")).toStringList();
}

void saveChoices(QSettings &settings, const ExportChoices &choices)
{
    QStringList recent = recentDestinations(settings);
    recent.removeAll(choices.destination);
    recent.prepend(choices.destination);
    settings.setValue(key("recentDestinations"), QStringList(recent.mid(0, mostRecent)));
    settings.setValue(key("layout"), choices.layout);
    settings.setValue(key("albums"), choices.albums);
    settings.setValue(key("edited"), choices.edited);
}

} // namespace browser
