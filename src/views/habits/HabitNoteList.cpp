#include "views/habits/HabitNoteList.h"

#include "views/theme/Metrics.h"

#include <QVBoxLayout>

#include <algorithm>

HabitNoteList::HabitNoteList(QWidget *parent) : QWidget(parent)
{
    auto *rows = new QVBoxLayout{this};
    rows->setContentsMargins({});
    rows->setSpacing(Metrics::grid);
}

HabitNoteRow &HabitNoteList::rowOf(const QString &habitID, Day day)
{
    const auto found = std::ranges::find_if(
        m_rows, [&](const HabitNoteRow *each) { return each->habitID() == habitID && each->day() == day; });
    if (found != m_rows.end()) return **found;
    auto *made = new HabitNoteRow{habitID, day, m_store, this};
    m_rows.append(made);
    return *made;
}

void HabitNoteList::setNotes(const HabitDetailContent &content)
{
    const QString &habitID = content.habit.sid;
    const QList<HabitDay> shown = content.monthDays();
    QList<HabitNoteRow *> rows;
    for (const HabitNote &each : content.notes) {
        HabitNoteRow &row = rowOf(habitID, each.day);
        row.setNote(each.text, content.today);
        row.setEditable(!content.habit.isArchived);
        rows.append(&row);
    }
    // One that was removed elsewhere while it is edited is a new one then.
    for (HabitNoteRow *each : m_rows) {
        if (rows.contains(each)) continue;
        const bool isOfThisPage =
            each->habitID() == habitID && shown.first().day <= each->day() && each->day() <= shown.last().day;
        if (each->isEditing() && isOfThisPage) {
            each->setNote({}, content.today);
            rows.append(each);
        } else {
            each->take();
            layout()->removeWidget(each);
            each->hide();
            each->deleteLater();
        }
    }
    std::ranges::sort(rows, {}, &HabitNoteRow::day);
    m_rows = rows;
    for (HabitNoteRow *each : m_rows) {
        layout()->removeWidget(each);
        layout()->addWidget(each);
    }
}
