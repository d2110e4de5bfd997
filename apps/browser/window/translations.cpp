#include "apps/browser/window/translations.h"

#include <QCoreApplication>
#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>

namespace browser
{

void installTranslations(QCoreApplication &application)
{
    const QLocale locale;
    auto *const ofQt = new QTranslator(&application);
    if (ofQt->load(locale, QStringLiteral("qtbase"), QStringLiteral("_"),
                   QLibraryInfo::location(QLibraryInfo::TranslationsPath)))
        QCoreApplication::installTranslator(ofQt);
    auto *const own = new QTranslator(&application);
    const QString folder = QStringLiteral(":/i18n");
    // English needs a catalogue, too: for its plural forms.
    if (own->load(locale, QStringLiteral("photolib-browser"), QStringLiteral("_"), folder) ||
        own->load(QStringLiteral("photolib-browser_en"), folder))
        QCoreApplication::installTranslator(own);
}

} // namespace browser
