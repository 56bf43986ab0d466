#pragma once

#include "corvexkit/filter/CXDateSpan.h"

#include <QFlags>
#include <QStringList>

#include <functional>
#include <variant>
#include <vector>

enum class CXItemKind : std::uint8_t { Task = 1, Checklist = 2, Note = 4 };
Q_DECLARE_FLAGS(CXItemKinds, CXItemKind)
Q_DECLARE_OPERATORS_FOR_FLAGS(CXItemKinds)

/// What a filter can ask about a task. The lists and texts are the caller's.
struct CXFilteredItem {
    QString listID;
    QString folderID;
    QStringList tags;
    std::optional<Instant> startDate;
    std::optional<Instant> endDate; ///< exclusive
    bool repeats = false;
    int priority = 0;
    std::int64_t assignee = -1; ///< -1: nobody
    CXItemKind kind = CXItemKind::Task;
    /// Whether a search for these words finds the task.
    std::function<bool(const QString &words)> hasWords;
};

/// One condition of a filter, or several joined: what it asks, or that it is not so. A default-made one
/// asks nothing and fits everything. A value; any thread.
class CXSmartFilterCondition {
public:
    /// In one of the lists.
    struct Lists {
        QStringList ids;
        bool operator==(const Lists &) const = default;
    };
    /// In a list of one of the folders.
    struct Folders {
        QStringList ids;
        bool operator==(const Folders &) const = default;
    };
    /// With one of the tags or of their child tags; without names, with any tag at all.
    struct Tags {
        QStringList names;
        bool operator==(const Tags &) const = default;
    };
    /// With a date in one of the spans.
    struct Dates {
        QList<CXDateSpan> spans;
        bool operator==(const Dates &) const = default;
    };
    /// Of one of the priorities 0, 1, 3 and 5; here in falling order, each once.
    struct Priorities {
        QList<int> values;
        bool operator==(const Priorities &) const = default;
    };
    /// Assigned to one of these.
    struct Assignees {
        bool me = false;
        bool nobody = false;
        bool other = false; ///< somebody, but not me
        QList<std::int64_t> ids{};
        bool operator==(const Assignees &) const = default;
    };
    /// Found by these words.
    struct Words {
        QString text;
        bool operator==(const Words &) const = default;
    };
    struct Kinds {
        CXItemKinds kinds;
        bool operator==(const Kinds &) const = default;
    };
    /// All of the parts must fit, or any of them.
    struct Group {
        enum class Join : std::uint8_t { All, Any };
        Join join;
        std::vector<CXSmartFilterCondition> parts;
        bool operator==(const Group &) const = default;
    };
    using Question = std::variant<Group, Lists, Folders, Tags, Dates, Priorities, Assignees, Words, Kinds>;

    CXSmartFilterCondition() = default;
    CXSmartFilterCondition(Question question, bool isNegated = false);

    const Question &question() const { return m_question; }
    /// Whether the answer is turned round: what the question does not fit, fits.
    bool isNegated() const { return m_isNegated; }
    CXSmartFilterCondition negated() const { return {m_question, !m_isNegated}; }

    bool matches(const CXFilteredItem &item, const CXSmartFilterFrame &frame) const;
    /// The kinds that fit at all, as far as the kind alone decides.
    CXItemKinds possibleKinds() const { return possibleKinds(m_isNegated); }
    /// What everything that fits must fit: the questions that all have to be answered, none of them a group.
    std::vector<CXSmartFilterCondition> demands() const { return demands(m_isNegated); }
    /// The same condition where the tag is called differently.
    CXSmartFilterCondition withTagRenamed(const QString &name, const QString &newName) const;

    bool operator==(const CXSmartFilterCondition &) const = default;

private:
    CXItemKinds possibleKinds(bool isNegated) const;
    std::vector<CXSmartFilterCondition> demands(bool isNegated) const;

    Question m_question;
    bool m_isNegated = false;
};
