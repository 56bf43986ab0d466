#include "model/text/DisplayTitle.h"

#include "model/settings/KWLocalizedString.h"

QString displayTitle(const QString &title) { return title.isEmpty() ? KWLocalizedString("No Title") : title; }
