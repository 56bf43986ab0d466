#pragma once

#include "views/habits/HabitNoteRow.h"

/// The notes of a month of a habit, each of which is edited where it stands.
class HabitNoteList : public QWidget {
    Q_OBJECT

public:
    explicit HabitNoteList(QWidget *parent = nullptr);

    void setStore(HabitNoteRow::Store store) { m_store = std::move(store); }
    /// A note that is being edited stays so; of another habit or month it is stored first.
    void setNotes(const HabitDetailContent &content);

private:
    HabitNoteRow &rowOf(const QString &habitID, Day day);

    HabitNoteRow::Store m_store;
    QList<HabitNoteRow *> m_rows;
};
