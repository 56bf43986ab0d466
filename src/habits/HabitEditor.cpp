#include "habits/HabitEditor.h"

#include "corvexkit/recurrence/CXRecurrenceRule.h"
#include "habits/HabitWording.h"
#include "habits/KWHabitCheckHelper.h"
#include "model/records/DayStamp.h"
#include "model/records/KWHabit.h"
#include "model/records/KWHabitSection.h"
#include "model/records/KWSortOrderResetable.h"
#include "model/records/KWUserSettings.h"
#include "model/records/OneLine.h"
#include "model/records/SortOrder.h"
#include "model/settings/KWLocalizedString.h"
#include "model/store/FoldedName.h"
#include "model/store/KWCoreDataManager.h"
#include "model/store/SidebarPlaces.h"

#include <QTime>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

bool isAmount(double value) { return value > 0 && value <= KWHabitCheckHelper::greatestAmount; }

bool isTimeOfDay(const QString &text) { return QTime::fromString(text, u"HH:mm"_s).isValid(); }

bool isDueByOthers(const KWHabitModel &before, const KWHabitModel &after)
{
    return before.repeatRule != after.repeatRule || before.startStamp != after.startStamp;
}

template <class Record>
SidebarPlaces placesOf(const QList<Record *> &records)
{
    SidebarPlaces places;
    for (Record *each : records)
        places.append({.id = each->sid(),
                       .order = (*each)->sortOrder,
                       .setOrder = [each](std::int64_t order) { KWEntitySortOrder::update(*each, order); }});
    return places;
}

void place(auto *moved, const QString &nextID, auto others)
{
    others.removeOne(moved);
    placeBefore(nextID, placesOf(QList{moved}), placesOf(others));
}

} // namespace

HabitEditor::HabitEditor(KWCoreDataManager &manager, QString userID)
    : m_manager(manager), m_userID(std::move(userID))
{
}

Result<void> HabitEditor::checked(const KWHabitModel &habit)
{
    if (habit.name.isEmpty()) return Error{KWLocalizedString("A habit needs a name.")};
    if (!isAmount(habit.goal))
        return Error{KWLocalizedString("A goal is above 0, and a thousand million at most.")};
    if (!isAmount(habit.step))
        return Error{KWLocalizedString("A step is above 0, and a thousand million at most.")};
    if (const auto rule = CXRecurrenceRule::parse(habit.repeatRule); !rule) return rule.error();
    if (habit.startStamp != 0 && !DayStamp::toDay(habit.startStamp))
        return Error{KWLocalizedString("%1 is no day.").arg(habit.startStamp)};
    const auto wrong = std::ranges::find_if_not(habit.reminders, isTimeOfDay);
    if (wrong != habit.reminders.end())
        return Error{KWLocalizedString("“%1” is no time of day.").arg(*wrong)};
    return {};
}

Result<HabitEditor::Made> HabitEditor::create(KWHabitModel habit)
{
    QString sid;
    const auto token = change([&](ObjectContext &context) -> Result<void> {
        habit.userID = m_userID;
        habit.name = onOneLine(habit.name);
        habit.sortOrder = sortOrderBehindAll<KWHabit>(m_userID, context);
        // What is written by itself later could not be taken back.
        if (habit.startStamp == 0)
            habit.startStamp = DayStamp::fromDay(KWUserSettings::habitDayOfUser(m_userID, context));
        const Result<void> sound = checked(habit);
        if (sound) sid = context.insert<KWHabit>(habit).sid();
        return sound;
    });
    if (!token) return token.error();
    return Made{.sid = sid, .undo = *token};
}

Result<UndoToken> HabitEditor::update(const QString &habitID, const std::function<void(KWHabitModel &)> &edit)
{
    return changeHabit(habitID, [&](KWHabit &habit) -> Result<void> {
        const KWHabitModel before = habit.model();
        KWHabitModel after = before;
        edit(after);
        after.name = onOneLine(after.name);
        const Result<void> sound = checked(after);
        if (!sound) return sound;
        habit.assign(after);
        if (isDueByOthers(before, after)) habit.updateStreaks();
        return {};
    });
}

Result<UndoToken> HabitEditor::setArchived(const QString &habitID, bool isArchived)
{
    return changeHabit(habitID, [isArchived](KWHabit &habit) -> Result<void> {
        habit.set(&KWHabitModel::isArchived, isArchived);
        habit.updateStreaks();
        return {};
    });
}

Result<UndoToken> HabitEditor::remove(const QString &habitID)
{
    return changeHabit(habitID, [](KWHabit &habit) -> Result<void> {
        habit.markDelete();
        return {};
    });
}

Result<UndoToken> HabitEditor::move(const QString &habitID, const QString &sectionID,
                                    const QString &nextHabitID)
{
    return changeHabit(habitID, [&](KWHabit &habit) -> Result<void> {
        QList<KWHabit *> others = KWHabit::fetchAll(m_userID, HabitScope::Active, habit.context());
        others.removeIf(
            [&](const KWHabit *each) { return each->sid() != habitID && (*each)->sectionID != sectionID; });
        habit.set(&KWHabitModel::sectionID, sectionID);
        place(&habit, nextHabitID, others);
        return {};
    });
}

Result<HabitEditor::Made> HabitEditor::createSection(const QString &name)
{
    QString sid;
    const auto token = change([&](ObjectContext &context) -> Result<void> {
        KWHabitSectionModel section;
        section.userID = m_userID;
        section.name = onOneLine(name);
        section.sortOrder = sortOrderBehindAll<KWHabitSection>(m_userID, context);
        const Result<void> sound = checkSectionName(section.name, {}, context);
        if (sound) sid = context.insert<KWHabitSection>(section).sid();
        return sound;
    });
    if (!token) return token.error();
    return Made{.sid = sid, .undo = *token};
}

Result<UndoToken> HabitEditor::renameSection(const QString &sectionID, const QString &name)
{
    return changeSection(sectionID, [&](KWHabitSection &section) -> Result<void> {
        const QString line = onOneLine(name);
        const Result<void> sound = checkSectionName(line, sectionID, section.context());
        if (sound) section.set(&KWHabitSectionModel::name, line);
        return sound;
    });
}

Result<UndoToken> HabitEditor::removeSection(const QString &sectionID)
{
    return changeSection(sectionID, [&](KWHabitSection &section) -> Result<void> {
        const auto habits = KWHabit::fetchAll(m_userID, HabitScope::ActiveAndArchived, section.context());
        for (KWHabit *each : habits)
            if ((*each)->sectionID == sectionID)
                each->set(&KWHabitModel::sectionID, K_HABIT_SECTION_ID_OTHERS);
        section.markDelete();
        return {};
    });
}

Result<UndoToken> HabitEditor::moveSection(const QString &sectionID, const QString &nextSectionID)
{
    return changeSection(sectionID, [&](KWHabitSection &section) -> Result<void> {
        place(&section, nextSectionID, KWHabitSection::ofUser(m_userID, section.context()));
        return {};
    });
}

Result<void> HabitEditor::makeDefaultSections()
{
    const auto make = [this](ObjectContext &context) -> Result<void> {
        if (context.number("SELECT count(*) FROM habitSections WHERE userID = ?", {m_userID}) > 0) return {};
        for (const char *each : {K_HABIT_SECTION_NAME_DEFAULT_MORNING, K_HABIT_SECTION_NAME_DEFAULT_AFTERNOON,
                                 K_HABIT_SECTION_NAME_DEFAULT_NIGHT}) {
            KWHabitSectionModel section;
            section.userID = m_userID;
            section.name = QString::fromLatin1(each);
            section.sortOrder = sortOrderBehindAll<KWHabitSection>(m_userID, context);
            context.insert<KWHabitSection>(section);
        }
        return {};
    };
    return KWCoreDataService{m_manager}.sync_save(make);
}

Result<void> HabitEditor::checkSectionName(const QString &name, const QString &ownID,
                                           ObjectContext &context) const
{
    if (name.isEmpty()) return Error{KWLocalizedString("A section needs a name.")};
    const QString wanted = foldedName(name);
    for (const KWHabitSection *each : KWHabitSection::ofUser(m_userID, context))
        if (each->sid() != ownID && foldedName(HabitWording::sectionName((*each)->name)) == wanted)
            return Error{KWLocalizedString("There is a section of that name already.")};
    return {};
}

Result<UndoToken> HabitEditor::change(const std::function<Result<void>(ObjectContext &)> &block)
{
    UndoToken token;
    const auto saved = KWCoreDataService{m_manager}.sync_save([&](ObjectContext &context) -> Result<void> {
        const Result<void> done = block(context);
        if (done) token = UndoToken::of(context);
        return done;
    });
    if (!saved) return saved.error();
    return token;
}

Result<UndoToken> HabitEditor::changeHabit(const QString &habitID,
                                           const std::function<Result<void>(KWHabit &)> &block)
{
    return change([&](ObjectContext &context) -> Result<void> {
        KWHabit *habit = context.find<KWHabit>(habitID);
        if (!habit || habit->isDeleted() || (*habit)->userID != m_userID)
            return Error{KWLocalizedString("There is no such habit any more.")};
        return block(*habit);
    });
}

Result<UndoToken> HabitEditor::changeSection(const QString &sectionID,
                                             const std::function<Result<void>(KWHabitSection &)> &block)
{
    return change([&](ObjectContext &context) -> Result<void> {
        KWHabitSection *section = context.find<KWHabitSection>(sectionID);
        if (!section || section->isDeleted() || (*section)->userID != m_userID)
            return Error{KWLocalizedString("There is no such section any more.")};
        return block(*section);
    });
}
