#pragma once

#include "corvexkit/time/Instant.h"
#include "model/records/KWConstants.h"

#include <QHash>
#include <QString>

#include <map>
#include <optional>

class Connection;
class KWTaskCategory;

/// The positions that tasks were given by hand inside the sections of one list, by whatever it was sorted.
/// A value.
class ManualPositions {
public:
    using Positions = QHash<QString, std::int64_t>; ///< by the tasks' ids; the smaller first

    /// Those kept in the context that `contextID` names, see SortOrderContext.
    static ManualPositions read(const QString &contextID,
                                Connection &connection); // throws SQLite::Exception

    /// Those inside the section of a list that is sorted so. Of pinned tasks: KWTaskSortTypePinnedDate.
    Positions in(const KWTaskCategory &section, KWTaskSortType sortType) const;
    /// Those of one sort type, by what names their section, see positionGroup().
    QHash<QString, Positions> of(KWTaskSortType sortType) const;

    /// Of any sort type, those of pinned tasks left out.
    bool hasAnyInSections() const;

    bool operator==(const ManualPositions &) const = default;

private:
    std::map<KWTaskSortType, QHash<QString, Positions>> m_positions;
};

/// What names the section in sort-order records: a day's stamp, a priority's number, the id of a list, the
/// name of a tag. Nothing where the rows of such a section have no manual order of their own.
std::optional<QString> positionGroup(const KWTaskCategory &section);
