#include "model/text/ListWording.h"

#include "model/settings/KWLocalizedString.h"

namespace {

QString joined(QStringList items, const QString &lastPair)
{
    if (items.size() < 2) return items.join(QString{});
    const QString last = items.takeLast();
    return lastPair.arg(items.join(KWLocalizedString(", ")), last);
}

QString ordinalFromStart(int place)
{
    if (place == 1) return KWLocalizedString("1st");
    const bool isTeen = place / 10 % 10 == 1;
    switch (isTeen ? 0 : place % 10) {
    case 1:
        return KWLocalizedString("%1st").arg(place);
    case 2:
        return KWLocalizedString("%1nd").arg(place);
    case 3:
        return KWLocalizedString("%1rd").arg(place);
    default:
        return KWLocalizedString("%1th").arg(place);
    }
}

} // namespace

QString ListWording::allOf(const QStringList &items) { return joined(items, KWLocalizedString("%1 and %2")); }

QString ListWording::anyOf(const QStringList &items) { return joined(items, KWLocalizedString("%1 or %2")); }

QString ListWording::ordinal(int place)
{
    if (place > 0) return ordinalFromStart(place);
    if (place == -1) return KWLocalizedString("last");
    return KWLocalizedString("%1 to last").arg(ordinalFromStart(-place));
}
