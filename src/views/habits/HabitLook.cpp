#include "views/habits/HabitLook.h"

#include "model/records/KWHabitModel.h"
#include "views/theme/ItemColors.h"
#include "views/theme/Metrics.h"
#include "views/theme/Painting.h"

#include <algorithm>

Icon HabitLook::icon(const QString &iconRes)
{
    const auto found = std::ranges::find(pictures, iconRes,
                                         [](const Picture &each) { return QLatin1StringView{each.name}; });
    return found == pictures.end() ? Icon::HabitStar : found->icon;
}

QColor HabitLook::color(const QString &stored) { return ItemColors::edgeOf(stored); }

void HabitLook::paintTile(QPainter &painter, const QRect &bounds, const KWHabitModel &habit)
{
    Painting::roundedBox(painter, bounds, Metrics::fieldRadius, ItemColors::of(habit.color).fill);
    Icons::paint(painter, bounds, icon(habit.iconRes), Metrics::scaled(Metrics::icon + Metrics::grid),
                 color(habit.color));
}
