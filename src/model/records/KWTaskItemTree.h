#pragma once

#include "model/records/KWTaskModel.h"

#include <QList>

class KWTask;
class ObjectContext;

/// A task with all that is below it, as its context stores it. `parentId` says what belongs where, the
/// parent's `childIds` in which order; children that are not listed follow in their manual order. Deleted
/// tasks do not belong to a tree, and of a task outside the trash neither do those in it (the other way
/// round likewise). A task that is its own ancestor stands in the tree once.
class KWTaskItemTree {
public:
    static KWTaskItemTree plant(KWTask &task, ObjectContext &context);

    KWTask &root() const { return *m_flatTasks.first(); }
    /// The root, then its children in order, each followed by its own.
    const QList<KWTask *> &flatTasks() const & { return m_flatTasks; }
    QList<KWTask *> flatTasks() && { return std::move(m_flatTasks); }
    /// flatTasks() without the root.
    QList<KWTask *> descendants() const { return m_flatTasks.mid(1); }
    QList<KWTaskModel> flattedModels() const;

    /// Puts children of one parent in its order.
    static void putInOrder(QList<KWTask *> &children, const QStringList &childIds);

private:
    friend class KWTaskItemForest;
    QList<KWTask *> m_flatTasks;
};

/// The trees of several tasks, read at once: `tasks` and all that is below them, each once.
class KWTaskItemForest {
public:
    static KWTaskItemForest plant(const QList<KWTask *> &tasks, ObjectContext &context);

    const QList<KWTaskItemTree> &trees() const { return m_trees; }
    /// Those of the given tasks that are below no other of them, in the order given. Of tasks that are
    /// each other's ancestors the first given one.
    QList<KWTask *> rootTasks() const;
    QList<KWTask *> flatTasks() const;
    QList<KWTaskModel> flattedModels() const;

private:
    QList<KWTaskItemTree> m_trees;
};
