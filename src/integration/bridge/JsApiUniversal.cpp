#include "integration/bridge/JsApiUniversal.h"

#include "model/sync/KWHTTPManager.h"

QString JsApiUniversal::toast(const QString &text)
{
    m_toast(text);
    return {};
}

QString JsApiUniversal::getDeviceInfo(const QString &) { return KWHTTPManager::deviceInfo(); }
