#include "exporter/layout.h"

#include "exporter/layout_fields.h"
#include "exporter/options.h"
#include "exporter/safe_name.h"

#include <QLocale>

namespace exporter
{

namespace
{

constexpr std::size_t folderLimit = 8;

QString dateText(const QDateTime &date, const QString &format, bool utc)
{
    if (!date.isValid())
        return QStringLiteral("undated");
    const QString wanted = format.isEmpty() ? QStringLiteral("yyyy-MM-dd_HH-mm-ss") : format;
    return QLocale::c().toString(utc ? date.toUTC() : date.toLocalTime(), wanted);
}

QString valueOf(const LayoutField &field, const photoItem &photo, const QString &format, bool utc)
{
    if (field.date != nullptr)
        return dateText(field.date(photo), format, utc);
    const QString text = field.text(photo);
    return text.isEmpty() ? QStringLiteral("unknown") : text;
}

QString withoutExtension(const QString &name, const QString &extension)
{
    const QString ending = QLatin1Char('.') + extension;
    return !extension.isEmpty() && name.size() > ending.size() && name.endsWith(ending, Qt::CaseInsensitive)
               ? name.left(name.size() - ending.size())
               : name;
}

Place devicePlace(const photoItem &photo)
{
    Place place;
    place.stem = safeName(stemOf(photo.fileName));
    QStringList folders = photo.directory.split(QLatin1Char('/'), Qt::SkipEmptyParts);
    // Deeper than any device goes: the rest makes one name, so that the path stays short enough.
    while (folders.size() > static_cast<int>(folderLimit)) {
        const QString last = folders.takeLast();
        folders.last() += QLatin1Char('_') + last;
    }
    for (const QString &folder : qAsConst(folders))
        place.folders.append(safeName(folder));
    return place;
}

} // namespace

const char *const defaultLayout = "{created:yyyy}/{created:yyyy-MM-dd}_{fileName}";

/// Reads a layout once from left to right; the first error wins.
class LayoutParser
{
public:
    explicit LayoutParser(const QString &layout) : text(layout) {}

    bool parse()
    {
        while (at < text.size() && error.position < 0)
            step();
        if (error.position < 0)
            endComponent(text.size());
        return error.position < 0;
    }

    std::vector<Layout::Parts> components;
    LayoutError error;

private:
    void step()
    {
        const QChar c = text[at];
        const bool doubled = at + 1 < text.size() && text[at + 1] == c;
        if (c == QLatin1Char('/')) {
            endComponent(at);
            ++at;
            componentStart = at;
        } else if ((c == QLatin1Char('{') || c == QLatin1Char('}')) && doubled) {
            addText(c);
            at += 2;
        } else if (c == QLatin1Char('{')) {
            field();
        } else if (c == QLatin1Char('}')) {
            fail(at, QStringLiteral("\"}\" without a field before it (\"}}\" stands for the character itself)"));
        } else {
            addText(c);
            ++at;
        }
    }

    void fail(int position, const QString &words) { error = {words, position}; }

    void addText(QChar c)
    {
        if (parts.empty() || parts.back().field >= 0)
            parts.emplace_back();
        parts.back().text += c;
    }

    void field()
    {
        const int start = at;
        const int end = text.indexOf(QLatin1Char('}'), start);
        if (end < 0)
            return fail(start, QStringLiteral("\"{\" without \"}\" (\"{{\" stands for the character itself)"));
        const QString inside = text.mid(start + 1, end - start - 1);
        const QString name = inside.section(QLatin1Char(':'), 0, 0);
        const int colon = inside.indexOf(QLatin1Char(':'));
        Layout::Part part;
        part.field = Layout::fields().indexOf(name);
        part.text = colon < 0 ? QString() : inside.mid(colon + 1);
        if (part.field < 0)
            return fail(start + 1, QStringLiteral("there is no field \"%1\"; the fields are %2")
                                       .arg(name, Layout::fields().join(QStringLiteral(", "))));
        const bool isDate = layoutFields()[static_cast<std::size_t>(part.field)].date != nullptr;
        const int formatStart = start + 1 + colon + 1;
        if (colon >= 0 && !isDate)
            return fail(formatStart, QStringLiteral("the field \"%1\" is no date and takes no format").arg(name));
        if (colon >= 0 && part.text.isEmpty())
            return fail(formatStart, QStringLiteral("the format of the date is missing, such as {%1:yyyy}").arg(name));
        if (part.text.contains(QLatin1Char('/')))
            return fail(formatStart + part.text.indexOf(QLatin1Char('/')),
                        QStringLiteral("a date makes no folders; write {%1:yyyy}/{%1:MM}").arg(name));
        parts.push_back(part);
        at = end + 1;
    }

    void endComponent(int end)
    {
        if (text.isEmpty())
            return fail(0, QStringLiteral("the layout is empty"));
        if (parts.empty())
            return fail(end, end == text.size() ? QStringLiteral("a name for the file is missing behind the last \"/\"")
                                                : QStringLiteral("a folder without a name"));
        const bool isPlain = parts.size() == 1 && parts.front().field < 0;
        if (isPlain && (parts.front().text == QLatin1String(".") || parts.front().text == QLatin1String("..")))
            return fail(componentStart, QStringLiteral("\"%1\" cannot be used as a name").arg(parts.front().text));
        if (components.size() == folderLimit)
            return fail(componentStart, QStringLiteral("more than %1 folders").arg(folderLimit));
        components.push_back(std::move(parts));
        parts.clear();
    }

    const QString text;
    int at = 0;
    int componentStart = 0;
    Layout::Parts parts;
};

std::unique_ptr<const Layout> Layout::parse(const QString &text, LayoutError *error)
{
    std::unique_ptr<Layout> layout(new Layout);
    if (text == QLatin1String("dcim"))
        return layout;
    LayoutParser parser(text);
    if (!parser.parse()) {
        if (error != nullptr)
            *error = parser.error;
        return nullptr;
    }
    layout->components = std::move(parser.components);
    return layout;
}

QStringList Layout::fields()
{
    QStringList names;
    for (const LayoutField &field : layoutFields())
        names.append(QLatin1String(field.name));
    return names;
}

QString Layout::fieldDescription(const QString &field)
{
    const int index = fields().indexOf(field);
    return index < 0 ? QString() : QLatin1String(layoutFields()[static_cast<std::size_t>(index)].description);
}

Place Layout::place(const photoItem &photo, bool utcDates) const
{
    if (components.empty())
        return devicePlace(photo);
    Place place;
    for (const Parts &parts : components) {
        QString name;
        for (const Part &part : parts)
            name += part.field < 0
                        ? part.text
                        : valueOf(layoutFields()[static_cast<std::size_t>(part.field)], photo, part.text, utcDates);
        if (&parts == &components.back())
            place.stem = safeName(withoutExtension(name, extensionOf(photo.fileName)));
        else
            place.folders.append(safeName(name));
    }
    return place;
}

} // namespace exporter
