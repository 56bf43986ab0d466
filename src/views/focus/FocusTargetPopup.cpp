#include "views/focus/FocusTargetPopup.h"

#include "focus/FocusTargetSearch.h"
#include "model/OrvaneKit.h"
#include "model/settings/KWLocalizedString.h"
#include "views/controls/ChoicePopup.h"
#include "views/focus/FocusWording.h"

#include <algorithm>

namespace {

ChoicePopup::Choice choiceOf(const FocusTargetChoice &choice, const FocusTarget &current)
{
    return {.id = choice.target.text(),
            .title = choice.title.simplified(),
            .color = choice.color,
            .isChecked = choice.target == current};
}

// As long as nothing is typed, what is focused on stands there however much there is.
QList<ChoicePopup::Choice> rowsOf(const QString &typed, const QList<FocusTargetChoice> &found,
                                  const FocusTargetChoice &current)
{
    const QString wanted = typed.simplified();
    QList<ChoicePopup::Choice> rows;
    if (const QString none = FocusWording::nothingInParticular(); none.contains(wanted, Qt::CaseInsensitive))
        rows.append({.id = {}, .title = none, .isChecked = current.target.isNone()});
    if (wanted.isEmpty() && !current.title.isEmpty() &&
        std::ranges::find(found, current.target, &FocusTargetChoice::target) == found.end())
        rows.append(choiceOf(current, current.target));
    for (const FocusTargetChoice &each : found)
        rows.append(choiceOf(each, current.target));
    return rows;
}

} // namespace

ChoicePopup &FocusTargetPopup::open(QWidget &anchor, const FocusTarget &current, OrvaneKit &kit)
{
    const FocusTargetChoice now = lookOf(current, kit.context());
    auto *popup =
        new ChoicePopup{KWLocalizedString("What are you focusing on?"), rowsOf({}, {}, now), &anchor};
    auto *search = new FocusTargetSearch{kit, popup};
    QObject::connect(search, &FocusTargetSearch::found, popup,
                     [popup, now](const QString &typed, const QList<FocusTargetChoice> &found) {
                         popup->setChoices(rowsOf(typed, found, now));
                     });
    popup->setSearch([search](const QString &typed) { search->find(typed); });
    popup->setCurrent(current.text());
    popup->popUp(anchor.mapToGlobal(anchor.rect().bottomLeft()));
    search->find({});
    return *popup;
}
