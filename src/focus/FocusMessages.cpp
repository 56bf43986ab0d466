#include "focus/FocusMessages.h"

#include "model/settings/KWLocalizedString.h"
#include "model/text/DisplayTitle.h"
#include "model/text/ShortenedText.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int longestTitle = 20;

FocusMessage::Action action(const QString &key)
{
    return {.key = key, .label = KWLocalizedString(key.toUtf8())};
}

} // namespace

FocusMessage FocusMessages::focusEnd(Next next, const QString &subtitle)
{
    if (next == Next::ByItself)
        return {.title = KWLocalizedString("auto_You've got a Pomo. Time to relax."),
                .subtitle = subtitle,
                .actions{}};
    return {.title = KWLocalizedString("You've got a Pomo. Time to relax."),
            .subtitle = subtitle,
            .actions = {action(relax), action(exit)}};
}

FocusMessage FocusMessages::breakEnd(Next next, const QString &subtitle)
{
    if (next == Next::ByItself)
        return {.title = KWLocalizedString("Break ended. Starting the next Pomo now."),
                .subtitle = subtitle,
                .actions{}};
    return {.title = KWLocalizedString("Break ended. Start a new timer?"),
            .subtitle = subtitle,
            .actions = {action(start), action(exit)}};
}

FocusQuestion FocusMessages::belonging(const QString &title)
{
    return {.message = KWLocalizedString("Does the previous focus time belong to %1$@?")
                           .replace("%1$@"_L1, shortened(displayTitle(title), longestTitle, u"..."_s)),
            .text{},
            .buttons = {KWLocalizedString("belong"), KWLocalizedString("not_belong")}};
}

FocusQuestion FocusMessages::abandonment()
{
    return {.message = KWLocalizedString("Abandon Pomo"),
            .text = KWLocalizedString("Abandon this Pomo?"),
            .buttons = {KWLocalizedString("Abandon"), KWLocalizedString("Cancel")}};
}

FocusQuestion FocusMessages::leftPomo(std::chrono::minutes focused)
{
    const QString text = focused.count() == 1
                             ? KWLocalizedString("Orvane ended during a Pomo, after 1 minute of focus.")
                             : KWLocalizedString("Orvane ended during a Pomo, after %n minutes of focus.")
                                   .replace("%n"_L1, QString::number(focused.count()));
    return {.message = KWLocalizedString("Keep the focus time of the last run?"),
            .text = text,
            .buttons = {KWLocalizedString("Keep It"), KWLocalizedString("Drop It")},
            .escapeButton = 0};
}
