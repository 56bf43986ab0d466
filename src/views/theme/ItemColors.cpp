#include "views/theme/ItemColors.h"

#include "views/theme/Theme.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr double leastContrast = 4.5; // of the contrast of text
constexpr double openShare = 0.25;
constexpr double closedShare = 0.14;
constexpr double lightShare = 0.6; // how much less of a colour a light page takes

// WCAG 2.1, "relative luminance".
double luminance(const QColor &color)
{
    const auto linear = [](double part) {
        return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) + 0.0722 * linear(color.blueF());
}

double contrast(const QColor &one, const QColor &other)
{
    const auto [darker, lighter] = std::minmax({luminance(one), luminance(other)});
    return (lighter + 0.05) / (darker + 0.05);
}

QColor blended(const QColor &color, const QColor &into, double share)
{
    const auto part = [share](int top, int below) {
        return int(std::lround(top * share + below * (1 - share)));
    };
    return {part(color.red(), into.red()), part(color.green(), into.green()),
            part(color.blue(), into.blue())};
}

// Where the theme's ink on the accent cannot be seen at all, the other one is taken.
QColor inkOn(const QColor &fill)
{
    constexpr double faint = 3;
    const QColor &usual = Theme::current().onAccent;
    if (contrast(usual, fill) >= faint) return usual;
    const bool isDark = Theme::current().scheme == ColorScheme::Dark;
    return isDark ? Theme::light().onAccent : Theme::dark().onAccent;
}

ItemColors itemColors(const QString &color, double share)
{
    const Theme &theme = Theme::current();
    const QColor edge = ItemColors::edgeOf(color);
    if (theme.scheme == ColorScheme::Light) share *= lightShare;
    ItemColors colors{.fill = {}, .edge = edge, .text = theme.text, .note = theme.secondaryText};
    // A bright colour on a dark page, or a dark one on a light page, has to be thinner.
    do
        colors.fill = blended(edge, theme.window, share);
    while (contrast(colors.note, colors.fill) < leastContrast && (share -= 0.02) > 0);
    return colors;
}

} // namespace

InkedColor InkedColor::of(const QColor &color)
{
    InkedColor colors{.fill = color, .ink = inkOn(color)};
    const QColor away = luminance(colors.ink) > 0.5 ? Qt::black : Qt::white;
    for (double share = 0.98; contrast(colors.ink, colors.fill) < leastContrast; share -= 0.02)
        colors.fill = blended(color, away, share);
    return colors;
}

QColor ItemColors::edgeOf(const QString &color)
{
    const QColor named{color};
    return named.isValid() ? named : Theme::current().accent;
}

ItemColors ItemColors::of(const QString &color) { return itemColors(color, openShare); }

ItemColors ItemColors::ofClosed(const QString &color)
{
    ItemColors colors = itemColors(color, closedShare);
    colors.text = colors.note;
    colors.edge = blended(colors.edge, Theme::current().window, 0.5);
    return colors;
}
