#pragma once

#include "integration/bridge/BridgePorts.h"

/// The clipboard of the desktop.
class Pasteboard final : public PasteboardPort {
public:
    void setPlainText(const QString &text) override;
    void setHtml(const QString &html) override;
};
