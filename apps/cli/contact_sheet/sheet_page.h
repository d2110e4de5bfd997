#ifndef APPS_CLI_CONTACT_SHEET_SHEET_PAGE_H
#define APPS_CLI_CONTACT_SHEET_SHEET_PAGE_H

#include "apps/cli/contact_sheet/sheet_pictures.h"
#include "apps/cli/contact_sheet/sheet_plan.h"
#include "apps/cli/output/output.h"

#include <functional>

namespace photocli
{

/// Writes a contact sheet as one HTML page that needs nothing else: no script, no network. It goes out piece by piece.
class SheetPage
{
public:
    SheetPage(Output &target, photo_manager_int &photoLibrary, const SheetPlan &sheetPlan);

    /// `title` is what the page is called. `goOn` is asked before each photo; false leaves the page unfinished.
    void write(const QString &title, const std::function<bool()> &goOn);

    const SheetPictures &pictures() const { return thumbnails; }

private:
    void head(const QString &title);
    void contents();
    void section(int index, const std::function<bool()> &goOn);
    void group(const SheetGroup &group, const std::function<bool()> &goOn);
    void tile(const photoItem &photo);
    void picture(const photoItem &photo);
    void caption(const photoItem &photo);
    void foot();

    Output &out;
    photo_manager_int &library;
    const SheetPlan &plan;
    SheetPictures thumbnails;
};

} // namespace photocli

#endif
