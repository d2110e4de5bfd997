#include "apps/browser/window/about.h"

#include <QApplication>
#include <QIcon>
#include <QMessageBox>

namespace browser
{

namespace
{

class AboutWords
{
    Q_DECLARE_TR_FUNCTIONS(About)

public:
    static QString title() { return tr("About This Program"); }
    static QString name() { return tr("Photo Library Browser %1").arg(QApplication::applicationVersion()); }
    static QString text()
    {
        return tr("Shows the photos and videos of a phone as the phone itself sorts them, and copies them to this "
                  "computer. Nothing on the phone is ever changed.\n\nFree software under the MIT licence.");
    }
};

} // namespace

void showAbout(QWidget *parent)
{
    auto *const box =
        new QMessageBox(QMessageBox::NoIcon, AboutWords::title(), AboutWords::name(), QMessageBox::Close, parent);
    box->setObjectName(QStringLiteral("aboutBox"));
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->setInformativeText(AboutWords::text());
    box->setIconPixmap(QApplication::windowIcon().pixmap(parent->windowHandle(), QSize(64, 64)));
    box->open();
}

} // namespace browser
