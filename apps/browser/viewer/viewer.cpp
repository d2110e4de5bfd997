#include "apps/browser/viewer/viewer.h"

namespace browser
{

Viewer::Viewer(std::shared_ptr<OpenedLibrary> library, QWidget *parent) : QWidget(parent), opened(std::move(library)) {}

Viewer::~Viewer() = default;

void Viewer::showPhotos(const QVector<qint64> &, int) {}

} // namespace browser
