#include "views/focus/FocusTargetPopup.h"

#include "model/settings/KWLocalizedString.h"
#include "views/controls/ChoicePopup.h"
#include "views/focus/FocusPresenter.h"
#include "views/focus/FocusWording.h"

ChoicePopup &FocusTargetPopup::open(QWidget &anchor, const FocusTarget &current,
                                    const FocusPresenter &presenter)
{
    QList<ChoicePopup::Choice> choices{
        {.id = {}, .title = FocusWording::nothingInParticular(), .isChecked = current.isNone()}};
    for (const FocusTargetChoice &each : presenter.choices())
        choices.append({.id = each.target.text(),
                        .title = each.title.simplified(),
                        .color = each.color,
                        .isChecked = each.target == current});
    auto *popup = new ChoicePopup{KWLocalizedString("What are you focusing on?"), choices, &anchor};
    popup->setCurrent(current.text());
    popup->popUp(anchor.mapToGlobal(anchor.rect().bottomLeft()));
    return *popup;
}
