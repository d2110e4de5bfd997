#include "apps/browser/page/library_page.h"

namespace browser
{

LibraryPage::LibraryPage(std::shared_ptr<OpenedLibrary> library, QWidget *parent)
    : QWidget(parent), opened(std::move(library))
{
}

LibraryPage::~LibraryPage() = default;

QVector<qint64> LibraryPage::selectedPhotos() const
{
    return {};
}

QVector<qint64> LibraryPage::shownPhotos() const
{
    return {};
}

void LibraryPage::setCurrentPhoto(qint64) {}

void LibraryPage::saveState(QSettings &) const {}

void LibraryPage::restoreState(const QSettings &) {}

} // namespace browser
