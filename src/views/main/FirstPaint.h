#pragma once

#include <QObject>

#include <functional>

/// Calls `action` once, from the event loop, after the widget has painted for the first time: what need
/// not be there for the first look waits for this.
class FirstPaint : public QObject {
public:
    FirstPaint(QWidget &widget, std::function<void()> action);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    std::function<void()> m_action;
};
