#include "apps/browser/exporting/export_window.h"

namespace browser
{

ExportWindow::ExportWindow(std::shared_ptr<OpenedLibrary> library, const QVector<qint64> &ids, QWidget *parent)
    : QDialog(parent), opened(std::move(library)), photos(ids)
{
}

ExportWindow::~ExportWindow() = default;

bool ExportWindow::isRunning() const
{
    return false;
}

void ExportWindow::cancelAndWait() {}

} // namespace browser
