#pragma once

#include "model/records/RecordKind.h"
#include "model/store/TaskPlace.h"

#include <QStringList>

#include <array>

/// What one save did, by ids.
struct StoreChange {
    struct Ids {
        QStringList inserted;
        QStringList updated;
        QStringList deleted;

        bool isEmpty() const { return inserted.isEmpty() && updated.isEmpty() && deleted.isEmpty(); }
    };

    std::array<Ids, recordKindCount> byKind;
    QStringList properties{};  ///< the fields that changed, where who posts it names them; else any may have
    QList<TaskMove> taskMoves; ///< of the tasks that are counted elsewhere now
    bool isLate = false; ///< saved in the background: what was read before it is told may hold it already

    Ids &of(RecordKind kind) { return byKind[std::size_t(kind)]; }
    const Ids &of(RecordKind kind) const { return byKind[std::size_t(kind)]; }
    bool touches(RecordKind kind) const { return !of(kind).isEmpty(); }
    bool isEmpty() const
    {
        for (const Ids &ids : byKind)
            if (!ids.isEmpty()) return false;
        return true;
    }
};
