#pragma once

#include "views/palette/FoundRow.h"

class KWProjectListPresenter;
class MainMenu;

/// Everything that has a name of its own: the lists, folders, tags, filters and smart lists, then the
/// commands with their keys, those that cannot be given now with the reason.
QList<FoundRow> paletteNames(KWProjectListPresenter &sidebar, MainMenu &menu);
