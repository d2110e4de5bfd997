#include "exporter/name_allocation.h"

#include "exporter/errors.h"
#include "exporter/safe_name.h"

namespace exporter
{

namespace
{

// Some tens of megabytes at most.
constexpr std::size_t listingLimit = 1'000;
constexpr std::size_t namesLimit = 100'000;

} // namespace

NameAllocation::Listing &NameAllocation::listingOf(const QString &folder)
{
    const auto known = listings.find(folder);
    if (known != listings.end())
        return known->second;
    if (listings.size() >= listingLimit || listedNames > namesLimit) {
        listings.clear();
        listedNames = 0;
    }
    Listing listing;
    const QStringList names = destination.names(folder);
    for (const QString &name : names)
        listing.emplace(foldedName(name), name);
    listedNames += listing.size();
    return listings.emplace(folder, std::move(listing)).first->second;
}

void NameAllocation::add(const QString &path)
{
    const auto known = listings.find(folderOf(path));
    if (known != listings.end())
        listedNames += known->second.emplace(foldedName(nameOf(path)), nameOf(path)).second ? 1U : 0U;
}

void NameAllocation::refuse(const QString &path)
{
    refused.insert(foldedName(path));
}

bool NameAllocation::isRefused(const QString &path) const
{
    return !refused.empty() && refused.count(foldedName(path)) != 0;
}

bool NameAllocation::hasOtherFileOf(const QString &stemPath)
{
    const Listing &listing = listingOf(folderOf(stemPath));
    const QString stem = foldedName(nameOf(stemPath));
    const QString start = stem + QLatin1Char('.');
    for (auto name = listing.lower_bound(start); name != listing.end() && name->first.startsWith(start); ++name) {
        if (stemOf(name->first) == stem)
            return true;
    }
    return false;
}

bool NameAllocation::fits(const QString &stemPath, const std::vector<QString> &endings, const SameContent &same,
                          std::vector<bool> *adopted)
{
    const Listing &listing = listingOf(folderOf(stemPath));
    adopted->assign(endings.size(), false);
    for (std::size_t index = 0; index < endings.size(); ++index) {
        const QString path = stemPath + endings[index];
        if (record.isPathTaken(path) || record.isEntryPathTaken(path) || isRefused(path))
            return false;
        const auto existing = listing.find(foldedName(nameOf(path)));
        if (existing == listing.end())
            continue;
        const auto found = existing->second == nameOf(path) ? destination.stat(path) : std::nullopt;
        if (!found || !found->regular || !same(index, path, found->size))
            return false;
        (*adopted)[index] = true;
    }
    return true;
}

bool NameAllocation::isFree(Choice &choice, const std::vector<QString> &endings, const SameContent &same)
{
    if (!fits(choice.stemPath, endings, same, &choice.adopted))
        return false;
    bool anyAdopted = false;
    for (const bool adopted : choice.adopted)
        anyAdopted = anyAdopted || adopted;
    return anyAdopted || !hasOtherFileOf(choice.stemPath);
}

NameAllocation::Choice NameAllocation::choose(const Place &place, const std::vector<QString> &endings,
                                              const SameContent &same)
{
    const QString base = (place.folders + QStringList{place.stem}).join(QLatin1Char('/'));
    NumberedNames::Numbers &known = numbers.of(base);
    Choice choice;
    for (auto open = known.open.begin(); open != known.open.end();) {
        choice.stemPath = NumberedNames::numbered(base, *open);
        if (record.isStemTaken(choice.stemPath)) {
            open = known.open.erase(open);
            continue;
        }
        if (isFree(choice, endings, same))
            return choice;
        ++open;
    }
    while (known.next < NumberedNames::numberLimit) {
        const int number = known.next++;
        choice.stemPath = NumberedNames::numbered(base, number);
        if (record.isStemTaken(choice.stemPath))
            continue;
        known.open.insert(number); // whoever asked may not take it
        if (isFree(choice, endings, same))
            return choice;
    }
    throw FileProblem(QStringLiteral("no free name is left for %1").arg(base));
}

} // namespace exporter
