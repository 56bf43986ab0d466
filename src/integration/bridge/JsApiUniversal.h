#pragma once

#include "integration/bridge/JsApiHandleObject.h"

#include <functional>

/// What any page may call.
class JsApiUniversal : public JsApiHandleObject {
    Q_OBJECT

public:
    using Toast = std::function<void(const QString &)>;

    explicit JsApiUniversal(Toast toast, QObject *parent = nullptr)
        : JsApiHandleObject(parent), m_toast(std::move(toast))
    {
    }

public Q_SLOTS: // named by pages
    /// Shows the text for a while.
    QString toast(const QString &text);
    /// KWHTTPManager::deviceInfo()
    QString getDeviceInfo(const QString &unused);

private:
    Toast m_toast;
};
