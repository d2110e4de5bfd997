#include "exporter/numbered_names.h"

#include "exporter/safe_name.h"

namespace exporter
{

namespace
{

// Some tens of megabytes at most.
constexpr std::size_t rememberedNamesLimit = 50'000;

} // namespace

QString NumberedNames::numbered(const QString &name, int number)
{
    return number == 0 ? name : QStringLiteral("%1 (%2)").arg(name, QString::number(number));
}

NumberedNames::Numbers &NumberedNames::of(const QString &name)
{
    if (all.size() >= rememberedNamesLimit)
        all.clear();
    return all[foldedName(name)];
}

void NumberedNames::giveBack(const QString &numberedName)
{
    const auto open = [this](const QString &name, int number) {
        const auto known = all.find(foldedName(name));
        if (known != all.end() && number < known->second.next)
            known->second.open.insert(number);
    };
    open(numberedName, 0);
    const int start = numberedName.lastIndexOf(QLatin1String(" ("));
    if (start < 0 || !numberedName.endsWith(QLatin1Char(')')))
        return;
    bool isNumber = false;
    const int number = numberedName.mid(start + 2, numberedName.size() - start - 3).toInt(&isNumber);
    if (isNumber && numbered(numberedName.left(start), number) == numberedName)
        open(numberedName.left(start), number);
}

} // namespace exporter
