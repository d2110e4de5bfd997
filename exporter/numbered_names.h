#ifndef EXPORTER_NUMBERED_NAMES_H
#define EXPORTER_NUMBERED_NAMES_H

#include <QString>

#include <map>
#include <set>

namespace exporter
{

/// Names "NAME", "NAME (1)", "NAME (2)", ...: which of them may be free, so that thousands that want one name do not
/// each ask for every number.
class NumberedNames
{
public:
    static constexpr int numberLimit = 1'000'000;

    /// Of one name.
    struct Numbers {
        std::set<int> open; ///< below `next`, and perhaps free
        int next = 0;       ///< not looked at yet, from here on
    };

    /// The name itself for the number 0.
    static QString numbered(const QString &name, int number);

    /// The reference holds until the next call.
    Numbers &of(const QString &name);

    /// Nobody has this name, with or without number, any more.
    void giveBack(const QString &numberedName);

private:
    std::map<QString, Numbers> all; ///< by folded name
};

} // namespace exporter

#endif
