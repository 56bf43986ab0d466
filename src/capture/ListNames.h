#pragma once

#include "model/records/KWProjectModel.h"

#include <QSet>

#include <optional>
#include <vector>

/// The names of a user's lists, prepared to be found at the start of a typed text. Names are compared in
/// their folded form: without white space and case. Make a new one when the lists change.
class ListNames {
public:
    struct Entry {
        QString folded;
        QString id;
        QString name;
    };

    struct Match {
        const Entry *entry = nullptr; ///< none: the text begins with the name of a blocked list only
        qsizetype length = 0;         ///< in units of the text
    };

    ListNames() = default;
    /// The open lists among `projects`; of equal names the first counts. The inbox answers to its
    /// displayed name too.
    explicit ListNames(const QList<KWProjectModel> &projects);

    /// The longest name that the text begins with and that ends at a word boundary, of a list that is
    /// not blocked; nothing when it begins with no name at all.
    std::optional<Match> longestAtStartOf(QStringView text, const QSet<QString> &blockedIDs) const;

private:
    void add(const QString &name, const KWProjectModel &project);

    std::vector<Entry> m_entries; // sorted by folded name
};
