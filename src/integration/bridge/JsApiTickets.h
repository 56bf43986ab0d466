#pragma once

#include "integration/bridge/JsApiHandleObject.h"

#include <functional>

/// What the page for a report to the makers may call. Nothing leaves the machine by it.
class JsApiTickets : public JsApiHandleObject {
    Q_OBJECT

public:
    using Log = std::function<QString()>;

    explicit JsApiTickets(Log log, QObject *parent = nullptr)
        : JsApiHandleObject(parent), m_log(std::move(log))
    {
    }

public Q_SLOTS: // named by pages
    /// The log as it would be sent, see logToSend(); it is read once for as long as the page is open.
    QString uploadLog(const QString &unused);

private:
    Log m_log;
    QString m_read;
};
