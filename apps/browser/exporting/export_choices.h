#ifndef APPS_BROWSER_EXPORTING_EXPORT_CHOICES_H
#define APPS_BROWSER_EXPORTING_EXPORT_CHOICES_H

#include "exporter/options.h"

#include <QStringList>
#include <QVector>

class QSettings;
struct photoItem;

namespace browser
{

/// What a person has chosen for an export. A plain value.
struct ExportChoices {
    QString destination;
    QString layout;
    bool albums = false;
    bool edited = false;

    exporter::ExportOptions options() const;
};

/// Where files go, by a name that people understand.
struct LayoutPreset {
    QString name;
    QString layout; ///< as exporter/layout.h describes it
};

/// The first is the one for those who do not care.
QVector<LayoutPreset> layoutPresets();

/// Where the original of this photo would go; empty for a layout that is not valid.
QString layoutExample(const QString &layout, const photoItem &photo);

/// Empty for a valid layout, else a sentence for people.
QString layoutError(const QString &layout);

/// The choices of the last time, and the folders used lately, the newest first.
ExportChoices loadChoices(const QSettings &settings);
QStringList recentDestinations(const QSettings &settings);
void saveChoices(QSettings &settings, const ExportChoices &choices);

} // namespace browser

#endif
