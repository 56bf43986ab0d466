#pragma once

#include "corvexkit/Result.h"

class OrvaneKit;

/// A small believable account: lists in a folder, tags, dated, overdue and repeating tasks, checklists,
/// habits and focus.
/// The same every time, relative to the day. Fills a folder in which nobody has signed in yet; one that
/// the demo filled before stays as it is now, any other is refused.
Result<void> fillDemoAccount(OrvaneKit &kit);
