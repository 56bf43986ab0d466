#pragma once

#include "app/ports/AlertPort.h"

#include <QObject>

/// Shows alerts in windows of their own.
class AlertPresenter : public QObject, public AlertPort {
public:
    void show(const AlertText &alert, std::function<void(int)> answered) override;
};
