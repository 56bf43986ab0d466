#pragma once

#include "model/settings/DataFolders.h"

#include <QString>

/// The newest lines of the log of a data folder, oldest first, as they may leave the machine: at most a
/// megabyte of UTF-8, and nothing that the person wrote in it. Titles, notes and names that are in the store,
/// what stands in quotation marks, what a link asks for and the path of the home folder become "***". A store
/// that cannot be read yields no texts to look for; the rest holds. Takes as long as reading every text of
/// the store.
QString logToSend(const DataFolders &folders);
