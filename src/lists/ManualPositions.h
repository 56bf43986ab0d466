#pragma once

#include "corvexkit/time/Instant.h"
#include "model/records/KWConstants.h"

#include <QHash>
#include <QString>

#include <optional>

class Connection;
class KWTaskCategory;

/// The positions that tasks were given by hand inside the sections of one list. A value.
class ManualPositions {
public:
    using Positions = QHash<QString, std::int64_t>; ///< by the tasks' ids; the smaller first

    /// Those kept for the sort type in the context that `contextID` names, see SortOrderContext. Of
    /// KWTaskSortTypePinnedDate: those of pinned tasks. None for a type without positions of its own.
    static ManualPositions read(const QString &contextID, KWTaskSortType sortType,
                                Connection &connection); // throws SQLite::Exception

    bool isEmpty() const { return m_positions.isEmpty(); }
    /// Those inside the section.
    Positions in(const KWTaskCategory &section) const;

    bool operator==(const ManualPositions &) const = default;

private:
    QHash<QString, Positions> m_positions; // by what the section stands for, as its column holds it
};

/// What names the section in sort-order records: a day's stamp, a priority's number, the id of a list, the
/// name of a tag. Nothing where the rows of such a section have no manual order of their own.
std::optional<QString> positionGroup(const KWTaskCategory &section);
