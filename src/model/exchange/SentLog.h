#pragma once

#include "model/settings/DataFolders.h"

#include <QString>

/// The newest lines of the log of a data folder, oldest first, as they may leave the machine: at most a
/// megabyte of UTF-8, and nothing that the person wrote in it. Titles, notes and names that are in the store,
/// what stands in quotation marks, and what a link asks for become "***", paths of the home folder "~". Of a
/// store that cannot be read no texts are known: then time, level and category of each entry are left. Takes
/// as long as reading every text of the store.
QString logToSend(const DataFolders &folders);
