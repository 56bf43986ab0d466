#pragma once

#include "corvexkit/time/CXTimeZone.h"
#include "views/controls/TextButton.h"

#include <optional>

/// Names the time zone that something happens in, and asks for another one: any part of a name finds it.
class ZoneButton : public TextButton {
    Q_OBJECT

public:
    explicit ZoneButton(QWidget *parent = nullptr);

    /// None: the clock on the wall, wherever one is.
    void setZone(const std::optional<CXTimeZone> &zone);

Q_SIGNALS:
    void zoneChosen(const std::optional<CXTimeZone> &zone);

private:
    void ask();

    QString m_identifier; // empty for none
};
