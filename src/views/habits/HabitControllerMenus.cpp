// The menus of habits, of their sections and of the page.
#include "model/OrvaneKit.h"
#include "model/records/KWPomoSettings.h"
#include "model/settings/KWLocalizedString.h"
#include "views/controls/MenuPlace.h"
#include "views/habits/HabitCheckIns.h"
#include "views/habits/HabitController.h"
#include "views/habits/HabitListView.h"
#include "views/habits/HabitPane.h"

#include <QMenu>

using namespace Qt::StringLiterals;

namespace {

// The keys belong to the list: the menu only shows them.
template <class Action>
QAction *addEntry(QMenu &menu, const char *text, const char *keys, QObject *context, Action action)
{
    QString title = KWLocalizedString(text);
    if (*keys) title += u'\t' + QKeySequence{QString::fromLatin1(keys)}.toString(QKeySequence::NativeText);
    return menu.addAction(title, context, action);
}

} // namespace

void HabitController::fillMenu(QMenu &menu, const HabitRow &row, const HabitDay &day, const QRect &place)
{
    const QString id = row.habit.sid;
    if (row.habit.isArchived) {
        addEntry(menu, "Restore", "", this, [this, id] { setArchived(id, false); });
        menu.addSeparator();
        addEntry(menu, "Delete", "Del", this, [this, id] { remove(id); });
        return;
    }
    addMarks(menu, row, day, place);
    menu.addSeparator();
    addEntry(menu, "Show Details", "Alt+Return", this, [this, id] { Q_EMIT opened(id); });
    addEntry(menu, "Edit…", "F2", this, [this, id] { edit(id); });
    addFocus(menu, id);
    addSections(menu, row);
    addEntry(menu, "Archive", "", this, [this, id] { setArchived(id, true); });
    menu.addSeparator();
    addEntry(menu, "Delete", "Del", this, [this, id] { remove(id); });
}

void HabitController::addFocus(QMenu &menu, const QString &id)
{
    OrvaneKit &kit = m_parts.kit;
    if (!KWPomoSettings::isFocusEnabled(kit.account().currentUserID(), kit.context())) return;
    QMenu *starts = menu.addMenu(KWLocalizedString("Start Focus"));
    addEntry(*starts, "Pomo", "", this, [this, id] { Q_EMIT focusRequested(id, KWFocusTypePomo); });
    addEntry(*starts, "Stopwatch", "", this, [this, id] { Q_EMIT focusRequested(id, KWFocusTypeStopwatch); });
}

void HabitController::addMarks(QMenu &menu, const HabitRow &row, const HabitDay &day, const QRect &place)
{
    using enum HabitDayEdit::Mark;
    HabitCheckIns &checks = m_parts.checkIns;
    const QString id = row.habit.sid;
    const Day at = day.day;
    const auto addMark = [&](const char *text, HabitDayEdit::Mark mark) {
        addEntry(menu, text, "", this, [&checks, id, at, mark] { checks.apply(id, at, {.mark = mark}); });
    };
    const bool isDone = day.state == HabitDayState::Done;
    addEntry(menu, !row.habit.isRealType && isDone ? "Not Done" : "Check In", "Space", this,
             [&checks, id, at] { checks.check(id, at, false); });
    if (row.habit.isRealType && day.value > 0)
        addEntry(menu, "One Step Less", "Shift+Space", this,
                 [&checks, id, at] { checks.check(id, at, true); });
    addEntry(menu, "Day and Note…", "Ctrl+Return", this,
             [&checks, id, at, place] { checks.openDay(id, at, place); });
    if (day.state == HabitDayState::UnAchieved)
        addMark("Undo Not Achieved", UndoUnAchieved);
    else
        addMark("Not Achieved", UnAchieved);
    if (day.state == HabitDayState::Skipped)
        addMark("Undo Skip", NotSkipped);
    else
        addMark("Skip", Skipped);
}

void HabitController::addSections(QMenu &menu, const HabitRow &row)
{
    QMenu *sections = menu.addMenu(KWLocalizedString("Section"));
    for (const HabitSection &each : m_parts.pane.content().sections) {
        QAction *action = sections->addAction(each.name);
        action->setCheckable(true);
        action->setChecked(
            each.sectionID ==
            m_parts.pane.model().sectionAt(m_parts.pane.model().indexOf(row.habit.sid)).sectionID);
        connect(action, &QAction::triggered, this, [this, id = row.habit.sid, sectionID = each.sectionID] {
            move(id, {sectionID, {}});
        });
    }
}

void HabitController::fillSectionMenu(QMenu &menu, const HabitSection &section, const QRect &place)
{
    if (m_parts.pane.shows() == HabitListModel::Shows::Archived) return;
    const QPoint below = place.bottomLeft();
    const QString id = section.sectionID;
    addEntry(menu, "New Habit…", "Ins", this, [this, id] { create(id); });
    addEntry(menu, "New Section…", "", this, [this, below] { askForSection({}, below); });
    if (id == K_HABIT_SECTION_ID_OTHERS) return;
    menu.addSeparator();
    addEntry(menu, "Rename…", "", this, [this, section, below] { askForSection(section, below); });
    QStringList ids;
    for (const HabitSection &each : m_parts.pane.content().sections)
        if (each.sectionID != K_HABIT_SECTION_ID_OTHERS) ids << each.sectionID;
    addEntry(menu, "Move Up", "", this, [this, id] { moveSection(id, -1); })->setEnabled(ids.first() != id);
    addEntry(menu, "Move Down", "", this, [this, id] { moveSection(id, 1); })->setEnabled(ids.last() != id);
    menu.addSeparator();
    addEntry(menu, "Delete Section", "", this,
             [this, id] { report(editor().removeSection(id), KWLocalizedString("Section deleted")); });
}

void HabitController::openPageMenu()
{
    QWidget &button = m_parts.pane.menuButton();
    auto *menu = new QMenu{&button};
    menu->setObjectName(u"habitPageMenu"_s);
    addEntry(*menu, "New Habit…", "Ins", this, [this] { create({}); });
    addEntry(*menu, "New Section…", "", this, [this, &button] {
        askForSection({}, button.mapToGlobal(QPoint{0, button.height()}));
    });
    menu->addSeparator();
    addEntry(*menu, "Archived", "", this, [this] {
        m_parts.pane.show(HabitListModel::Shows::Archived);
        m_parts.pane.setFocus(Qt::OtherFocusReason);
    });
    popUpAt(button.rect(), button, Qt::BottomEdge, *menu);
}
