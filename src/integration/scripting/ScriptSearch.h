#pragma once

#include "integration/scripting/KWScriptCommand.h"

#include <functional>

/// A task in a list of another program.
struct FoundTask {
    QString id;
    QString title; ///< as it is shown
    QString note;  ///< its list, its day, and that it is completed or abandoned
    bool isClosed = false;
};

/// What other programs find: by the words of titles and contents, as the search of the window does, open
/// tasks first. Tasks that wait to be deleted are left out; closed ones and those in archived lists are not.
/// Nothing while nobody is signed in. Main thread.
class ScriptSearch {
public:
    static constexpr int mostTasks = 200;
    /// Longer texts find nothing.
    static constexpr qsizetype longestText = 1000;

    explicit ScriptSearch(const ScriptSurroundings &with) : m_with(with) {}

    Result<QList<KWTaskModel>> find(const QString &text, int limit) const;
    /// The same for showing it.
    QList<FoundTask> show(const QString &text, int limit) const;
    /// Those of the user's tasks that there are, in the order of the ids.
    QList<FoundTask> show(const QStringList &taskIDs) const;

private:
    bool isPossible() const;
    FoundTask shown(const KWTaskModel &task, ObjectContext &context) const;
    QList<FoundTask> readShown(const std::function<Result<QList<KWTaskModel>>(ObjectContext &)> &tasks) const;

    const ScriptSurroundings &m_with;
};
