#pragma once

#include "views/datepicker/SchedulePicker.h"

class OrvaneKit;

/// What a picker for tasks of the user who is signed in knows: today, the zone, and the person's settings.
SchedulePicker::Surroundings scheduleSurroundings(OrvaneKit &kit);
