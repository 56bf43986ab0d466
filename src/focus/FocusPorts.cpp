#include "focus/FocusPorts.h"

FocusPorts FocusPorts::none()
{
    static FocusMessagePort messages;
    static FocusPopoverPort popover;
    static FocusQuestionPort questions;
    return {messages, popover, questions};
}
