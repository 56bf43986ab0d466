#pragma once

#include "app/MenuCommand.h"
#include "capture/NewTaskDraft.h"
#include "capture/NewTaskReferees.h"

#include <QObject>

class FieldPickers;
class KWNewTaskTextField;
class NewTaskCandidates;
class PickerButton;
class QKeyEvent;
class ShortcutConfiguration;

/// Lets the date, the priority and the list of the task in an add field be chosen by hand: by the buttons at
/// its end, and by the keys that do the same to tasks. The referees are told. Main thread.
class HandChoices : public QObject {
    Q_OBJECT

public:
    /// All outlive it.
    struct Parts {
        KWNewTaskTextField &field;
        OrvaneKit &kit;
        NewTaskCandidates &candidates;
        const ShortcutConfiguration &shortcuts;
        NewTaskReferees &referees;
    };
    explicit HandChoices(const Parts &parts);

    /// What the task is as things are: the buttons say it, and choosing begins with it.
    void show(const NewTaskDraft &draft);

Q_SIGNALS:
    /// The referees were told something else.
    void changed();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    FieldPickers &pickers() const;
    void showDate();
    void showPriority();
    void showList();
    QString keysOf(MenuCommand command) const;

    bool obey(const QKeyEvent &key, bool isPressed);
    void perform(MenuCommand command);
    void pickDate();
    void pickPriority();
    void pickList();
    QPoint placeOf(const PickerButton &button) const;

    void setDay(Day day);
    void setDate(const std::optional<KWTaskDateTimeReminderModel> &date);
    void setPriority(std::optional<KWTaskPriority> priority);
    void setList(const std::optional<QString> &listID);
    void tell();

    Parts m_parts;
    NewTaskDraft m_draft;
};
