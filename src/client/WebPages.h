#pragma once

#include "platform/Plugins.h"
#include "views/web/WebPagePlugin.h"

/// Null where the plugin is not installed.
inline WebPagePlugin *webPagePlugin() { return Plugins::load<WebPagePlugin>(QStringLiteral("web")); }
