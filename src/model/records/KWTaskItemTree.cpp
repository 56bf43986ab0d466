#include "model/records/KWTaskItemTree.h"

#include "model/records/KWTask.h"
#include "model/store/FindAll.h"

#include <QHash>
#include <QSet>

#include <algorithm>
#include <tuple>

namespace {

// UNION leaves out what was found before, so that a circle of parents ends.
constexpr const char *belowTasks =
    "sid IN (WITH RECURSIVE below (sid, isTrashed) AS ("
    "SELECT t.sid, t.isTrashed FROM tasks t JOIN json_each(?) given ON t.sid = given.value UNION "
    "SELECT t.sid, t.isTrashed FROM below JOIN tasks t INDEXED BY tasksByParent"
    " ON t.parentId = below.sid AND t.parentId <> '' WHERE t.isDeleted = 0 AND t.isTrashed = below.isTrashed)"
    " SELECT sid FROM below)";

using ChildrenByParent = QHash<QString, QList<KWTask *>>;

// Not recursive: a chain of parents may be as long as the list.
QList<KWTask *> flattened(KWTask &root, const ChildrenByParent &children, QSet<QString> &placed)
{
    QList<KWTask *> flat;
    QList<KWTask *> waiting{&root};
    while (!waiting.isEmpty()) {
        KWTask *task = waiting.takeLast();
        if (placed.contains(task->sid())) continue;
        placed.insert(task->sid());
        flat.append(task);
        const QList<KWTask *> below = children.value(task->sid());
        std::copy(below.rbegin(), below.rend(), std::back_inserter(waiting));
    }
    return flat;
}

QList<KWTaskModel> modelsOf(const QList<KWTask *> &tasks)
{
    QList<KWTaskModel> models;
    for (const KWTask *each : tasks)
        models.append(each->model());
    return models;
}

QStringList idsOf(const QList<KWTask *> &tasks)
{
    QStringList ids;
    for (const KWTask *each : tasks)
        ids.append(each->sid());
    return ids;
}

// Whether `task` is below another one that is given. Two that are above each other are both not.
bool isBelowAnother(const KWTask &task, const QHash<QString, KWTask *> &known, const QSet<QString> &given)
{
    QSet<QString> passed{task.sid()};
    bool isBelow = false;
    for (const KWTask *above = known.value(task->parentId); above; above = known.value((*above)->parentId)) {
        if (passed.contains(above->sid())) return isBelow && above->sid() != task.sid();
        passed.insert(above->sid());
        isBelow = isBelow || given.contains(above->sid());
    }
    return isBelow;
}

} // namespace

void KWTaskItemTree::putInOrder(QList<KWTask *> &children, const QStringList &childIds)
{
    QHash<QString, qsizetype> places;
    for (const QString &each : childIds)
        places.insert(each, places.size());
    const auto place = [&](const KWTask *task) { return places.value(task->sid(), childIds.size()); };
    std::ranges::sort(children, [&](const KWTask *one, const KWTask *other) {
        return std::tuple{place(one), (*one)->sortOrder, one->sid()} <
               std::tuple{place(other), (*other)->sortOrder, other->sid()};
    });
}

KWTaskItemTree KWTaskItemTree::plant(KWTask &task, ObjectContext &context)
{
    return KWTaskItemForest::plant({&task}, context).trees().first();
}

QList<KWTaskModel> KWTaskItemTree::flattedModels() const { return modelsOf(m_flatTasks); }

KWTaskItemForest KWTaskItemForest::plant(const QList<KWTask *> &tasks, ObjectContext &context)
{
    QHash<QString, KWTask *> known;
    QSet<QString> given;
    for (KWTask *each : tasks) {
        known.insert(each->sid(), each);
        given.insert(each->sid());
    }
    ChildrenByParent children;
    for (KWTask *each : context.fetch<KWTask>({.where = belowTasks, .values = {idList(idsOf(tasks))}})) {
        known.insert(each->sid(), each);
        if (each->hasParent()) children[(*each)->parentId].append(each);
    }
    for (auto each = children.begin(); each != children.end(); ++each)
        if (const KWTask *parent = known.value(each.key()))
            KWTaskItemTree::putInOrder(each.value(), (*parent)->childIds);

    KWTaskItemForest forest;
    QSet<QString> placed;
    for (KWTask *each : tasks) {
        if (placed.contains(each->sid()) || isBelowAnother(*each, known, given)) continue;
        KWTaskItemTree tree;
        tree.m_flatTasks = flattened(*each, children, placed);
        forest.m_trees.append(std::move(tree));
    }
    return forest;
}

QList<KWTask *> KWTaskItemForest::rootTasks() const
{
    QList<KWTask *> roots;
    for (const KWTaskItemTree &each : m_trees)
        roots.append(&each.root());
    return roots;
}

QList<KWTask *> KWTaskItemForest::flatTasks() const
{
    QList<KWTask *> flat;
    for (const KWTaskItemTree &each : m_trees)
        flat.append(each.flatTasks());
    return flat;
}

QList<KWTaskModel> KWTaskItemForest::flattedModels() const { return modelsOf(flatTasks()); }
