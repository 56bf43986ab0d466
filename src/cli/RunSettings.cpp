#include "cli/RunSettings.h"

#include "cli/CommandText.h"
#include <QLocale>

Result<std::optional<CXTimeZone>> zoneOf(const Invocation &invocation)
{
    if (invocation.zone.isEmpty()) return std::optional<CXTimeZone>{};
    const std::optional<CXTimeZone> zone = CXTimeZone::named(invocation.zone);
    if (!zone) return Error{commandText("There is no time zone “%1”.").arg(invocation.zone)};
    return zone;
}

Result<void> applyLocale(const Invocation &invocation)
{
    if (invocation.locale.isEmpty()) return {};
    const QLocale locale{invocation.locale};
    // Qt answers the C locale for a name it does not know.
    if (locale.language() == QLocale::C && invocation.locale != u"C")
        return Error{commandText("There is no locale “%1”.").arg(invocation.locale)};
    QLocale::setDefault(locale);
    return {};
}

Qt::LayoutDirection layoutDirectionOf(const Invocation &invocation)
{
    return invocation.isRightToLeft ? Qt::RightToLeft : QLocale{}.textDirection();
}
