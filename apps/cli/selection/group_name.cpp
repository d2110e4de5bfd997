#include "apps/cli/selection/group_name.h"

#include "apps/cli/categories.h"
#include "apps/cli/failure.h"
#include "apps/cli/messages.h"

namespace photocli
{

namespace
{

constexpr int keysInMessage = 10;

QString listed(const QStringList &keys)
{
    QString text = QStringList(keys.mid(0, keysInMessage)).join(QStringLiteral(", "));
    if (keys.size() > keysInMessage)
        text += QStringLiteral(" and %1 more").arg(keys.size() - keysInMessage);
    return text;
}

} // namespace

GroupName parseGroupName(const QString &text)
{
    const int slash = text.indexOf(QChar('/'));
    const Category *category = findCategory(slash < 0 ? text : text.left(slash));
    if (category == nullptr)
        throw Failure{ExitUsage, QStringLiteral("there is no category %1; the categories are %2")
                                     .arg(quoted(slash < 0 ? text : text.left(slash)), allCategoryNames())};
    if (slash < 0)
        return {category->code, QString()};
    if (slash + 1 == text.size())
        throw Failure{
            ExitUsage,
            QStringLiteral("%1 names no key after the \"/\"; give CATEGORY or CATEGORY/KEY").arg(quoted(text))};
    return {category->code, text.mid(slash + 1)};
}

QStringList groupKeys(photo_manager_int &library, const GroupName &name)
{
    const QStringList keys = library.getGroupKeys(name.category);
    if (name.key.isNull() || keys.contains(name.key))
        return name.key.isNull() ? keys : QStringList(name.key);
    QStringList alike;
    for (const QString &key : keys) {
        if (key.compare(name.key, Qt::CaseInsensitive) == 0)
            alike += key;
    }
    if (alike.size() == 1)
        return alike;
    const QString category = categoryName(name.category);
    if (keys.isEmpty())
        throw Failure{ExitSomeFailed,
                      QStringLiteral("there is no group %1: the library has no group of the category %2")
                          .arg(quoted(category + QChar('/') + name.key), category)};
    throw Failure{ExitSomeFailed, QStringLiteral("the category %1 has no group with the key %2; its keys are %3")
                                      .arg(category, quoted(name.key), listed(keys))};
}

} // namespace photocli
