#pragma once

#include "integration/bridge/JsApiHandleObject.h"

#include <functional>

/// What a page in a window of its own may call.
class JsApiWindow : public JsApiHandleObject {
    Q_OBJECT

public:
    explicit JsApiWindow(std::function<void()> close, QObject *parent = nullptr)
        : JsApiHandleObject(parent), m_close(std::move(close))
    {
    }

public Q_SLOTS: // named by pages
    /// Asks for it, as the person would; the person may be asked whether text may be lost.
    QString closeWindow(const QString & /*unused*/)
    {
        m_close();
        return {};
    }

private:
    std::function<void()> m_close;
};
