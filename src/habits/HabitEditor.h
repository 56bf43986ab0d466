#pragma once

#include "model/records/KWHabitModel.h"
#include "model/store/UndoToken.h"

#include <functional>

class KWHabit;
class KWHabitSection;

/// Makes, changes and deletes habits and their sections, each in one save. What is wrong fails with a
/// sentence and changes nothing: a habit without a name, a goal or step that is not above 0 or beyond a
/// thousand million, a rule or reminder that cannot be read, a section without a name or with that of
/// another. Main thread.
class HabitEditor {
public:
    HabitEditor(KWCoreDataManager &manager, QString userID);

    struct Made {
        QString sid;
        UndoToken undo;
    };
    /// Takes what the person chooses of a habit, behind the last one.
    Result<Made> create(KWHabitModel habit);
    /// Days that were checked in keep the goal they had.
    Result<UndoToken> update(const QString &habitID, const std::function<void(KWHabitModel &)> &edit);
    /// An archived habit keeps its days; none is due behind the last one that was entered.
    Result<UndoToken> setArchived(const QString &habitID, bool isArchived);
    /// With all its days, which come back with it.
    Result<UndoToken> remove(const QString &habitID);
    /// Into the section and before that habit; behind all of it when that is empty or elsewhere.
    Result<UndoToken> move(const QString &habitID, const QString &sectionID, const QString &nextHabitID);

    Result<Made> createSection(const QString &name);
    Result<UndoToken> renameSection(const QString &sectionID, const QString &name);
    /// Its habits belong to the others then.
    Result<UndoToken> removeSection(const QString &sectionID);
    /// Before that section; behind all when that is empty.
    Result<UndoToken> moveSection(const QString &sectionID, const QString &nextSectionID);

    /// Makes the sections that every account begins with, unless it has or had some.
    Result<void> makeDefaultSections();

    /// What is wrong with a habit, if anything.
    static Result<void> checked(const KWHabitModel &habit);

private:
    Result<UndoToken> change(const std::function<Result<void>(ObjectContext &)> &block);
    Result<UndoToken> changeHabit(const QString &habitID,
                                  const std::function<Result<void>(KWHabit &)> &block);
    Result<UndoToken> changeSection(const QString &sectionID,
                                    const std::function<Result<void>(KWHabitSection &)> &block);
    Result<void> checkSectionName(const QString &name, const QString &ownID, ObjectContext &context) const;

    KWCoreDataManager &m_manager;
    QString m_userID;
};
