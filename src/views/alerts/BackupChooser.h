#pragma once

#include "model/store/StoreBackups.h"

class QWidget;

/// Asks which backup is to be restored, the newest chosen at first. None when the person goes back.
std::optional<StoreBackup> chooseBackup(const QList<StoreBackup> &backups, QWidget *parent = nullptr);
