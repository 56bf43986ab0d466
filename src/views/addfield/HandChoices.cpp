#include "views/addfield/HandChoices.h"

#include "app/ShortcutConfiguration.h"
#include "capture/NewTaskCandidates.h"
#include "model/OrvaneKit.h"
#include "model/records/KWProject.h"
#include "model/records/PriorityNames.h"
#include "model/settings/KWLocalizedString.h"
#include "views/addfield/FieldPickers.h"
#include "views/addfield/KWNewTaskTextField.h"
#include "views/addfield/TaskPlace.h"
#include "views/controls/ChoicePopup.h"
#include "views/datepicker/ScheduleSurroundings.h"
#include "views/tasklist/TaskDateText.h"
#include "views/theme/Theme.h"
#include "views/theme/ThemeConfigurator.h"
#include "views/wording/CalendarDay.h"

#include <QKeyEvent>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

using enum MenuCommand;
using Choice = ChoicePopup::Choice;

QString asTyped() { return KWLocalizedString("As typed"); }

std::optional<KWTaskPriority> priorityOf(MenuCommand command)
{
    switch (command) {
    case PriorityNone:
        return KWTaskPriorityNone;
    case PriorityLow:
        return KWTaskPriorityLow;
    case PriorityMedium:
        return KWTaskPriorityMedium;
    case PriorityHigh:
        return KWTaskPriorityHigh;
    default:
        return std::nullopt;
    }
}

bool isForNewTasks(MenuCommand command)
{
    constexpr std::array ofDates{SetDate, ClearDate, SetToday, SetTomorrow, SetNextWeek};
    return priorityOf(command) || std::ranges::find(ofDates, command) != ofDates.end();
}

// The rows, below the one that gives up what was chosen before.
QList<Choice> choicesOf(const QList<KWCandidateModel> &candidates, const QString &current, bool isByHand)
{
    QList<Choice> choices;
    if (isByHand) choices.append({.id = {}, .title = asTyped()});
    for (const KWCandidateModel &each : candidates)
        choices.append({each.object, each.title, each.color, each.object == current});
    return choices;
}

} // namespace

HandChoices::HandChoices(const Parts &parts) : m_parts(parts)
{
    connect(&pickers().date(), &QAbstractButton::clicked, this, &HandChoices::pickDate);
    connect(&pickers().priority(), &QAbstractButton::clicked, this, &HandChoices::pickPriority);
    connect(&pickers().list(), &QAbstractButton::clicked, this, &HandChoices::pickList);
    connect(&ThemeConfigurator::shared(), &ThemeConfigurator::themeChanged, this,
            [this] { show(NewTaskDraft{m_draft}); });
    m_parts.field.installEventFilter(this);
}

FieldPickers &HandChoices::pickers() const { return m_parts.field.pickers(); }

void HandChoices::show(const NewTaskDraft &draft)
{
    m_draft = draft;
    showDate();
    showPriority();
    showList();
}

void HandChoices::showDate()
{
    const KWTaskModel &task = m_draft.task;
    const CXClock &clock = m_parts.kit.clock();
    const QString none = KWLocalizedString("No date");
    const auto orNone = [&none](const QString &words) { return words.isEmpty() ? none : words; };
    PickerButton::Choice choice;
    if (m_parts.referees.date.manual())
        choice = {orNone(rowDateText({task.startDate, task.endDate, task.isAllDay}, clock.now(), clock.zone(),
                                     QLocale{})
                             .text),
                  Theme::current().accentText, Theme::current().softAccent};
    pickers().date().setChoice(choice);
    pickers().date().describe(KWLocalizedString("Date: %1").arg(orNone(dateTextOf(task, clock))),
                              keysOf(SetDate));
}

void HandChoices::showPriority()
{
    const KWTaskPriority priority = m_draft.task.priority;
    const Theme::Priority &colors = Theme::current().priority(priority);
    PickerButton::Choice choice;
    if (m_parts.referees.priority.manual()) choice = {displayName(priority), colors.text, colors.soft};
    pickers().setHasPriority(m_draft.task.kind != KWTaskKindNote);
    pickers().priority().setChoice(choice);
    const QString none = keysOf(PriorityNone);
    const QString high = keysOf(PriorityHigh);
    pickers().priority().describe(KWLocalizedString("Priority: %1").arg(displayName(priority)),
                                  none.isEmpty() || high.isEmpty() ? QString{} : none + u" – "_s + high);
}

void HandChoices::showList()
{
    const QString name = listNameOf(m_draft, m_parts.kit);
    PickerButton::Choice choice;
    if (m_parts.referees.project.manual())
        choice = {name, Theme::current().accentText, Theme::current().softAccent};
    pickers().list().setChoice(choice);
    pickers().list().describe(KWLocalizedString("List: %1").arg(name), {});
}

QString HandChoices::keysOf(MenuCommand command) const
{
    return QKeySequence{m_parts.shortcuts.keysOf(command), QKeySequence::PortableText}.toString(
        QKeySequence::NativeText);
}

bool HandChoices::eventFilter(QObject *watched, QEvent *event)
{
    const bool isPressed = event->type() == QEvent::KeyPress;
    if (!isPressed && event->type() != QEvent::ShortcutOverride) return QObject::eventFilter(watched, event);
    if (!obey(*static_cast<QKeyEvent *>(event), isPressed)) return QObject::eventFilter(watched, event);
    event->accept(); // else the key is one for the tasks that are selected
    return true;
}

bool HandChoices::obey(const QKeyEvent &key, bool isPressed)
{
    const int code = key.keyCombination().toCombined() & ~int(Qt::KeypadModifier);
    const auto command =
        m_parts.shortcuts.commandWith(QKeySequence{code}.toString(QKeySequence::PortableText));
    if (!command || !isForNewTasks(*command)) return false;
    if (isPressed && !key.isAutoRepeat()) perform(*command);
    return true;
}

void HandChoices::perform(MenuCommand command)
{
    const Day today = m_parts.kit.clock().today();
    if (const auto priority = priorityOf(command)) return setPriority(priority);
    if (command == SetDate) return pickDate();
    if (command == ClearDate) return setDate(KWTaskDateTimeReminderModel{});
    if (command == SetToday) return setDay(today);
    if (command == SetTomorrow) return setDay(today + std::chrono::days{1});
    setDay(mondayOfNextWeek(today, m_parts.kit.account().userSettings().firstWeekday));
}

void HandChoices::pickDate()
{
    const TaskSchedule shown = TaskSchedule::ofTask(m_draft.task);
    SchedulePicker::Surroundings surroundings = scheduleSurroundings(m_parts.kit);
    surroundings.choosesZones = false;
    if (m_parts.referees.date.manual()) surroundings.restores = asTyped();
    auto *picker = new SchedulePicker{shown, surroundings, m_parts.field.window()};
    connect(picker, &SchedulePicker::kept, this, [this, shown](const TaskSchedule &chosen) {
        if (chosen != shown) setDate(chosen.dates);
    });
    connect(picker, &SchedulePicker::restored, this, [this] { setDate(std::nullopt); });
    picker->popUp(placeOf(pickers().date()));
}

void HandChoices::pickPriority()
{
    QList<KWCandidateModel> priorities = m_parts.candidates.priorities();
    for (KWCandidateModel &each : priorities)
        each.color = Theme::current().priority(KWTaskPriority(each.object.toInt())).mark.name();
    auto *popup = new ChoicePopup{KWLocalizedString("Priority"),
                                  choicesOf(priorities, QString::number(m_draft.task.priority),
                                            m_parts.referees.priority.manual().has_value()),
                                  m_parts.field.window()};
    connect(popup, &ChoicePopup::chosen, this, [this](const QString &id) {
        setPriority(id.isEmpty() ? std::nullopt : std::optional{KWTaskPriority(id.toInt())});
    });
    popup->setCurrent(QString::number(m_draft.task.priority));
    popup->popUp(placeOf(pickers().priority()));
}

void HandChoices::pickList()
{
    auto *popup = new ChoicePopup{KWLocalizedString("List"),
                                  choicesOf(m_parts.candidates.lists(), m_draft.task.projectID,
                                            m_parts.referees.project.manual().has_value()),
                                  m_parts.field.window()};
    connect(popup, &ChoicePopup::chosen, this,
            [this](const QString &id) { setList(id.isEmpty() ? std::nullopt : std::optional{id}); });
    popup->setCurrent(m_draft.task.projectID);
    popup->popUp(placeOf(pickers().list()));
}

QPoint HandChoices::placeOf(const PickerButton &button) const
{
    const KWNewTaskTextField &field = m_parts.field;
    const int left = button.isVisible() ? button.mapTo(&field, QPoint{}).x() : 0;
    return field.mapToGlobal(QPoint{left, field.height()});
}

// A time that is known already stays.
void HandChoices::setDay(Day day)
{
    const SchedulePicker::Surroundings surroundings = scheduleSurroundings(m_parts.kit);
    ScheduleDraft draft{TaskSchedule::ofTask(m_draft.task), surroundings.zone};
    if (!draft.day()) draft.reminders = surroundings.allDayReminders;
    draft.setDay(day);
    setDate(draft.schedule().dates);
}

void HandChoices::setDate(const std::optional<KWTaskDateTimeReminderModel> &date)
{
    m_parts.referees.date.setManual(date);
    tell();
}

void HandChoices::setPriority(std::optional<KWTaskPriority> priority)
{
    m_parts.referees.priority.setManual(priority);
    tell();
}

void HandChoices::setList(const std::optional<QString> &listID)
{
    m_parts.referees.project.setManual(listID);
    tell();
}

// Typing goes on.
void HandChoices::tell()
{
    m_parts.field.setFocus(Qt::OtherFocusReason);
    Q_EMIT changed();
}
