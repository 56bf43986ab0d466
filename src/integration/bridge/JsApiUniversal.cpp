#include "integration/bridge/JsApiUniversal.h"

#include "model/sync/KWHTTPManager.h"
#include "model/text/ShortenedText.h"

namespace {

constexpr int longestToast = 300; // characters

} // namespace

QString JsApiUniversal::toast(const QString &text)
{
    m_toast(shortened(text.left(4 * longestToast), longestToast));
    return {};
}

QString JsApiUniversal::getDeviceInfo(const QString &) { return KWHTTPManager::deviceInfo(); }
