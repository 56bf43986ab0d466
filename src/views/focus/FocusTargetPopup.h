#pragma once

class ChoicePopup;
class FocusPresenter;
class QWidget;
struct FocusTarget;

/// The popup that asks what is focused on: the tasks of today, the habits, all other tasks, and nothing in
/// particular. It answers with the text of a FocusTarget.
namespace FocusTargetPopup {

/// Below `anchor`; Enter takes `current` as long as nothing is typed.
ChoicePopup &open(QWidget &anchor, const FocusTarget &current, const FocusPresenter &presenter);

} // namespace FocusTargetPopup
