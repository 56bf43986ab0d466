#pragma once

#include "lists/KWTaskCategory.h"
#include "lists/ShownList.h"

/// Where a section stands among the others.
struct SectionPlace {
    enum class Zone : std::uint8_t { Pinned, Usual, FormerMembers, Notes, Events, Habits, Completed };

    Zone zone = Zone::Usual;
    std::int64_t rank = 0;

    auto operator<=>(const SectionPlace &) const = default;
};

/// Says which section a row belongs to, by the sort type; the table in docs/lists.md.
class SectionPlaces {
public:
    struct Options {
        bool inKanban = false;
        bool showPinnedSection = false;
        bool partsNotes = false; ///< notes that have nothing to be sorted by stand apart
    };

    SectionPlaces(const ShownList &shown, KWTaskSortType sortType, Options options);

    KWTaskSortType sortType() const { return m_sortType; }
    SectionPlace of(const KWTaskListItemModel &row) const;
    /// The section of that place, without rows.
    KWTaskCategory sectionAt(const SectionPlace &place) const;
    /// Places of sections that are shown without rows, too.
    QList<SectionPlace> standing() const;

private:
    std::int64_t rankOf(const KWTaskListItemModel &row) const;
    std::int64_t rankOfDates(const KWTaskListItemModel &row) const;
    std::int64_t rankOfTags(const QStringList &tags) const;
    std::int64_t rankOfColumn(const QString &columnID) const;
    std::int64_t rankOfGroup(const QString &id) const;
    std::int64_t rankOfDay(const std::optional<Instant> &moment) const;
    bool isNoteApart(const KWTaskListItemModel &row) const;
    bool isOfFormerMember(const KWTaskListItemModel &row) const;
    KWTaskCategory usualSection(std::int64_t rank) const;
    KWTaskCategory dateSection(std::int64_t rank) const;
    KWTaskCategory eventsSection(std::int64_t rank) const;
    KWTaskCategory daySection(std::int64_t rank) const;

    const ShownList &m_shown;
    KWTaskSortType m_sortType;
    Options m_options;
    QHash<QString, std::int64_t> m_ranks; // of the groups
};
