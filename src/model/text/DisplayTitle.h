#pragma once

#include <QString>

/// The title as it is shown: "No Title" for an empty one.
QString displayTitle(const QString &title);
