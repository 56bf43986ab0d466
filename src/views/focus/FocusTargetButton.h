#pragma once

#include "focus/FocusTargetChoices.h"
#include "views/controls/PaintedButton.h"

/// What is focused on: the dot of its list, its title, and a mark that one can choose another.
class FocusTargetButton : public PaintedButton {
    Q_OBJECT

public:
    /// `whenNone` stands there when that is nothing in particular.
    explicit FocusTargetButton(const QString &whenNone, QWidget *parent = nullptr);

    void setTarget(const FocusTargetChoice &target);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void paintContent(QPainter &painter) override;

private:
    int chromeWidth() const;

    const QString m_whenNone;
    FocusTargetChoice m_target;
};
