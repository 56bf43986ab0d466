#pragma once

#include "views/controls/PopupFrame.h"
#include "views/datepicker/RepeatRows.h"
#include "views/datepicker/ScheduleDraft.h"

class DayChooser;
class QFormLayout;
class QLabel;
class QSpinBox;
class ReminderField;
class TimeField;

/// A small frame over the window in which a task or a checklist item is scheduled: day, time and end,
/// reminders, repeat with the dates it leads to, and where the person chooses zones the zone. Enter keeps all
/// of it, Escape none. It is gone when it has answered.
class SchedulePicker : public PopupFrame {
    Q_OBJECT

public:
    struct Surroundings {
        Day today;
        CXTimeZone zone; ///< in force
        int firstWeekday = 1;
        bool choosesZones = false;
        std::set<CXAlarmTrigger> reminders;       ///< of a task that gets a time
        std::set<CXAlarmTrigger> allDayReminders; ///< of one that gets a day
        RepeatRows::ReadRule readRule;
        bool asksDayAndTimeAlone = false; ///< no end, reminders nor repeat; these are not touched then
        QString restores{};               ///< what a further button says that gives the choice up; no button
    };
    SchedulePicker(const TaskSchedule &schedule, const Surroundings &surroundings, QWidget *parent);

    /// Shows it with its corner at `position`, or as near as the screen allows.
    void popUp(const QPoint &position);

Q_SIGNALS:
    void kept(const TaskSchedule &chosen);
    /// What was chosen before is given up.
    void restored();

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    static void alignLabels(const QFormLayout &rows);
    void makeTimes(QFormLayout &rows);
    void makeZones(QFormLayout &rows);
    QLayout *makeButtons();
    void connectDays();
    /// What is chosen for a task without a date gives it the day that is marked.
    void needDay();
    void setTime(std::optional<std::chrono::minutes> time);
    void showDraft();
    void fitContents();
    void showOccurrences();
    void keep();
    QString problem() const;
    const std::set<CXAlarmTrigger> &usualReminders(bool isAllDay) const;

    const Surroundings m_surroundings;
    ScheduleDraft m_draft;
    DayChooser *m_days;
    QWidget *m_details; // all that needs a day
    TimeField *m_start;
    TimeField *m_end;
    QSpinBox *m_daysLater;
    ReminderField *m_reminders;
    RepeatRows *m_repeat;
    QLabel *m_occurrences;
};
