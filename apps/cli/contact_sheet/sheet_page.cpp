#include "apps/cli/contact_sheet/sheet_page.h"

#include "apps/cli/contact_sheet/html_text.h"
#include "apps/cli/contact_sheet/sheet_style.h"
#include "apps/cli/media_type.h"
#include "apps/cli/output/photo_text.h"
#include "apps/cli/output/text.h"
#include "apps/cli/output/value_text.h"

#include <QLocale>

#include <utility>

namespace photocli
{

namespace
{

// Nothing of the page may run or be fetched, whatever text gets into it.
constexpr const char *beginning = R"html(<!DOCTYPE html>
<html lang="en">
<head>
<meta charset="utf-8">
<meta http-equiv="Content-Security-Policy" content="default-src 'none'; img-src data:; style-src 'unsafe-inline'">
<meta name="viewport" content="width=device-width, initial-scale=1">
<meta name="generator" content="photolib">
)html";

// What stands for a picture that is not there.
constexpr const char *placeholder =
    R"html(<svg class="hidden" aria-hidden="true" focusable="false"><symbol id="none" viewBox="0 0 48 40"><g fill="none" stroke="currentColor" stroke-width="2.5" stroke-linejoin="round" stroke-linecap="round"><rect x="2" y="2" width="44" height="36" rx="4"/><circle cx="14" cy="13" r="4"/><path d="M3 32l13-12 9 8 8-8 12 11M6 44"/></g></symbol></svg>
)html";

constexpr int manyPhotos = 24; // a browser need not lay these out before they are looked at

QString dateOf(const QDateTime &date, const char *format)
{
    return isRealDate(date) ? QLocale::c().toString(date.toLocalTime(), QLatin1String(format))
                            : QStringLiteral("no date");
}

QString nameOf(const photoItem &photo)
{
    return photo.fileName.isEmpty() ? QStringLiteral("Photo %1").arg(photo.id) : photo.fileName;
}

// What the picture is, for those who cannot see it.
QString alternative(const photoItem &photo, bool isThere)
{
    QStringList parts = {nameOf(photo), kindText(photo)};
    if (photo.duration > 0)
        parts += durationText(photo.duration);
    parts += dateOf(photo.dateCreated, "d MMMM yyyy, HH:mm");
    parts += marksOf(photo);
    if (!isThere)
        parts += QStringLiteral("no thumbnail on the device");
    return parts.join(QStringLiteral(", "));
}

// The kind where it is worth a word; that something is a photo is seen.
QStringList remarksOf(const photoItem &photo)
{
    QStringList remarks = marksOf(photo);
    if (photo.favorite == 1)
        remarks.first().prepend(QStringLiteral("\u2605 "));
    if (photo.kindSubtype != 0 || photo.mediaType != static_cast<qint32>(MediaType::Photo))
        remarks += kindText(photo);
    return remarks;
}

// Groups where there are several, else photos.
int sizeOf(const SheetSection &section)
{
    return section.groups.size() > 1 ? section.groups.size() : section.photos;
}

QString spanOf(const SheetPlan &plan)
{
    const char *const format = "d MMMM yyyy";
    const QString first = dateOf(plan.firstDate, format);
    const QString last = dateOf(plan.lastDate, format);
    return first == last ? first : QStringLiteral("%1 to %2").arg(first, last);
}

} // namespace

SheetPage::SheetPage(Output &target, photo_manager_int &photoLibrary, const SheetPlan &sheetPlan)
    : out(target), library(photoLibrary), plan(sheetPlan), thumbnails(photoLibrary)
{
}

void SheetPage::write(const QString &title, const std::function<bool()> &goOn)
{
    head(title);
    contents();
    out.write("<main>\n");
    for (int i = 0; i < plan.sections.size(); ++i)
        section(i, goOn);
    out.write("</main>\n");
    foot();
}

void SheetPage::head(const QString &title)
{
    out.write(beginning);
    out.write("<title>" + htmlText(title) + "</title>\n<style>");
    out.write(sheetStyle);
    out.write("</style>\n</head>\n<body>\n");
    out.write(placeholder);
    out.write("<header>\n<h1 dir=\"auto\">" + htmlText(title) + "</h1>\n<p>");
    out.write(htmlText(counted(plan.photos.size(), "photo or video", "photos and videos")));
    if (!plan.firstDate.isNull())
        out.write(", " + htmlText(spanOf(plan)));
    out.write("</p>\n");
}

void SheetPage::contents()
{
    if (plan.sections.size() > 1) {
        out.write("<nav aria-label=\"Contents\"><ul>\n");
        for (int i = 0; i < plan.sections.size(); ++i) {
            const SheetSection &section = plan.sections.at(i);
            out.write("<li><a href=\"#s" + QByteArray::number(i) + "\">" + htmlText(section.title) +
                      " <span class=\"count\">" + QByteArray::number(sizeOf(section)) + "</span></a></li>\n");
        }
        out.write("</ul></nav>\n");
    }
    out.write("</header>\n");
}

void SheetPage::section(int index, const std::function<bool()> &goOn)
{
    const SheetSection &section = plan.sections.at(index);
    out.write("<details open id=\"s" + QByteArray::number(index) + "\">\n<summary><h2>" + htmlText(section.title) +
              " <span class=\"count\">" + QByteArray::number(sizeOf(section)) +
              "</span></h2></summary>\n<div class=\"groups\">\n");
    for (const SheetGroup &one : section.groups)
        group(one, goOn);
    out.write("</div>\n</details>\n");
}

void SheetPage::group(const SheetGroup &group, const std::function<bool()> &goOn)
{
    out.write(group.photos == 1 ? "<section class=\"group one\"" : "<section class=\"group\"");
    out.write(" style=\"--n:" + QByteArray::number(group.photos) + "\">\n");
    if (!group.title.isEmpty()) {
        const QByteArray title = htmlText(group.title);
        out.write("<h3 dir=\"auto\" title=\"" + title + "\">" + title);
        if (group.photos > 1)
            out.write(" <span class=\"count\">" + QByteArray::number(group.photos) + "</span>");
        out.write("</h3>\n");
    }
    out.write(group.photos > manyPhotos ? "<ul class=\"tiles many\">\n" : "<ul class=\"tiles\">\n");
    photoItem photo;
    for (const qint64 id : photosOf(library, plan, group)) {
        if (!goOn())
            return;
        if (library.getPhotoItem(&id, &photo))
            tile(photo);
    }
    out.write("</ul>\n</section>\n");
}

void SheetPage::tile(const photoItem &photo)
{
    out.write("<li><figure><div class=\"mat\">");
    picture(photo);
    if (photo.duration > 0)
        out.write("<span class=\"badge\" aria-hidden=\"true\">\u25B6\uFE0E " + htmlText(durationText(photo.duration)) +
                  "</span>");
    out.write("</div>");
    caption(photo);
    out.write("</figure></li>\n");
}

// The bytes of a thumbnail stand where it comes first; later places refer to that one.
void SheetPage::picture(const photoItem &photo)
{
    const SheetPicture picture = thumbnails.take(photo.id);
    const QByteArray text = " role=\"img\" aria-label=\"" + htmlText(alternative(photo, picture.isThere())) + "\">";
    if (!picture.isThere())
        return out.write("<svg class=\"none\" viewBox=\"0 0 48 40\"" + text + "<use href=\"#none\"/></svg>");
    const QByteArray width = QByteArray::number(picture.size.width());
    const QByteArray height = QByteArray::number(picture.size.height());
    const QByteArray id = QByteArray::number(photo.id);
    out.write((picture.size.width() >= picture.size.height() ? "<svg class=\"w\"" : "<svg class=\"h\"") +
              (" viewBox=\"0 0 " + width + ' ' + height + '"') + text);
    if (picture.isFirst())
        out.write("<image id=\"p" + id + "\" width=\"" + width + "\" height=\"" + height + "\" href=\"" + picture.uri +
                  "\"/></svg>");
    else
        out.write("<use href=\"#p" + id + "\"/></svg>");
}

void SheetPage::caption(const photoItem &photo)
{
    const QByteArray name = htmlText(nameOf(photo));
    out.write("<figcaption><span class=\"name\" dir=\"auto\" title=\"" + name + "\">" + name + "</span>");
    out.write("<span class=\"when\">" + htmlText(dateOf(photo.dateCreated, "d MMM yyyy, HH:mm")) + "</span>");
    const QStringList remarks = remarksOf(photo);
    if (!remarks.isEmpty())
        out.write("<span class=\"marks\">" + htmlText(remarks.join(QStringLiteral(" \u00B7 "))) + "</span>");
    out.write("</figcaption>");
}

void SheetPage::foot()
{
    out.write("<footer>\n");
    if (thumbnails.missing() > 0)
        out.write("<p>" + htmlText(counted(thumbnails.missing(), "photo has", "photos have")) +
                  " no thumbnail on the device.</p>\n");
    out.write("<p>A photo that belongs to several groups is shown in each of them. Dates are in the time zone of the "
              "computer that made this page.</p>\n</footer>\n</body>\n</html>\n");
}

} // namespace photocli
