#pragma once

#include "habits/HabitPageContent.h"

#include <QDialog>

class HabitFrequencyPage;
class HabitLookPicker;
class HabitReminderField;
class QComboBox;
class QFormLayout;
class QLabel;
class QLineEdit;
class QPushButton;
class SegmentedControl;
class TextButton;

/// A window in which a habit is made or changed. Enter saves, Escape leaves everything as it was. What is
/// wrong is said below its field, and nothing that was typed is lost.
class HabitEditorDialog : public QDialog {
    Q_OBJECT

public:
    struct Surroundings {
        QList<HabitSection> sections;
        std::chrono::weekday firstWeekday = std::chrono::Monday;
        Day today{};
    };
    /// A habit without an id is a new one.
    HabitEditorDialog(const KWHabitModel &habit, const Surroundings &surroundings, QWidget *parent);

    /// Of the section that is to be made for it; empty when it goes to one that is there.
    QString newSection() const;
    /// Writes what was entered into the habit. Call it in answer to saveRequested().
    void applyTo(KWHabitModel &habit) const;
    /// What could not be saved.
    void showProblem(const QString &sentence);
    void showSectionProblem(const QString &sentence);

Q_SIGNALS:
    /// All that was entered can be read; close the window when it is saved.
    void saveRequested();

private:
    QWidget *makeForm(const Surroundings &surroundings);
    QLayout *makeGoalRow();
    QWidget *makeSectionPart(const Surroundings &surroundings);
    QLayout *makeFooter();
    void showKind();
    void showStart();
    void pickStart();
    void save();
    bool check();
    void refuseReminder();
    /// Says it there and takes the keyboard to the field.
    void complain(QLabel &problem, QWidget &field, const QString &sentence);

    KWHabitModel m_habit;
    const Day m_today;
    const int m_firstWeekday;   // 1 Sunday … 7 Saturday
    std::optional<Day> m_start; // when another one was picked
    QLineEdit *m_name;
    QLabel *m_nameProblem;
    HabitLookPicker *m_look;
    SegmentedControl *m_kind;
    QWidget *m_goalPart;
    QLineEdit *m_goal;
    QLineEdit *m_unit;
    QLineEdit *m_step;
    QLabel *m_goalProblem;
    HabitFrequencyPage *m_frequency;
    QComboBox *m_section;
    QLineEdit *m_newSection;
    QLabel *m_sectionProblem;
    HabitReminderField *m_reminders;
    QLabel *m_reminderProblem;
    TextButton *m_startButton;
    QLabel *m_problem;
};
