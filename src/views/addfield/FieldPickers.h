#pragma once

#include "views/addfield/PickerButton.h"

/// The buttons at the end of an add field by which the date, the priority and the list of the task are chosen
/// by hand. Main thread.
class FieldPickers : public QWidget {
    Q_OBJECT

public:
    explicit FieldPickers(QWidget *field);

    PickerButton &date() { return *m_date; }
    PickerButton &priority() { return *m_priority; }
    PickerButton &list() { return *m_list; }
    QList<PickerButton *> buttons() const { return {m_date, m_priority, m_list}; }

    /// Notes have no priority.
    void setHasPriority(bool hasPriority);
    bool haveChoice() const;
    /// Shows what `room` is enough for: the words of what was chosen, icons alone, fewer of them. Answers the
    /// width that it takes.
    int fitInto(int room);

Q_SIGNALS:
    /// It may want another width now.
    void widthChanged();

protected:
    bool event(QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    QList<PickerButton *> offered() const;

    PickerButton *m_date;
    PickerButton *m_priority;
    PickerButton *m_list;
    bool m_hasPriority = true;
};
