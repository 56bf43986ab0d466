#pragma once

#include <QStringList>
#include <QWidget>

class FlowLayout;
class TimeField;

/// The times of the day at which a habit is reminded of. Each is a button that takes it away; a field adds
/// another.
class HabitReminderField : public QWidget {
    Q_OBJECT

public:
    /// Times as "HH:mm".
    explicit HabitReminderField(const QStringList &reminders, QWidget *parent = nullptr);

    /// With what is typed and not added yet; in the order of the day.
    QStringList reminders() const;
    /// Whether what is typed means a time, or nothing is.
    bool isReadable() const;
    void focusField();

Q_SIGNALS:
    /// What is typed was to be added, and is no time.
    void refused();
    void typed();

private:
    void addTyped();
    void showTimes();

    QStringList m_reminders;
    QWidget *m_times;
    TimeField *m_field;
};
