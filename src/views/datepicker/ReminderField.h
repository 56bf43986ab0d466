#pragma once

#include "corvexkit/alarm/CXAlarmTrigger.h"

#include <QWidget>

#include <set>

class QLineEdit;
class TextButton;

/// The reminders of a schedule: a menu of the usual ones, several at once, and a field for others, such as
/// "20 min" or "3 days".
class ReminderField : public QWidget {
    Q_OBJECT

public:
    explicit ReminderField(QWidget *parent = nullptr);

    void setReminders(const std::set<CXAlarmTrigger> &reminders, bool isAllDay);
    /// Whether what is typed means something.
    bool isReadable() const;

Q_SIGNALS:
    void remindersChanged(const std::set<CXAlarmTrigger> &reminders);

private:
    void openMenu();
    void readTyped();
    void change(const std::set<CXAlarmTrigger> &reminders);

    TextButton *m_button;
    QLineEdit *m_other;
    std::set<CXAlarmTrigger> m_reminders;
    bool m_isAllDay = false;
};
