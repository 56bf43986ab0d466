#pragma once

class ChoicePopup;
class OrvaneKit;
class QWidget;
struct FocusTarget;

/// The popup that asks what is focused on: the tasks of today, the habits, all other tasks, and nothing in
/// particular. They come from the background, see FocusTargetSearch. It answers with the text of a
/// FocusTarget.
namespace FocusTargetPopup {

/// Below `anchor`; Enter takes `current` as long as nothing is typed.
ChoicePopup &open(QWidget &anchor, const FocusTarget &current, OrvaneKit &kit);

} // namespace FocusTargetPopup
