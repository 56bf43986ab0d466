#pragma once

#include "model/records/KWProjectModel.h"
#include "model/records/KWTeamworkerModel.h"

#include <QSet>

#include <optional>
#include <vector>

/// The names of a user's lists, or of a list's members, prepared to be found at the start of a typed text.
/// Names are compared in their folded form: without white space and case. Make a new one when they change.
class NameIndex {
public:
    struct Entry {
        QString folded;
        QString id;
        QString name;
    };

    struct Match {
        const Entry *entry = nullptr; ///< none: the text begins with a blocked name only
        qsizetype length = 0;         ///< in units of the text
    };

    NameIndex() = default;
    /// The open lists among `projects`. The inbox answers to its displayed name too.
    static NameIndex ofLists(const QList<KWProjectModel> &projects);
    /// By their ids at the service.
    static NameIndex ofMembers(const QList<KWTeamworkerModel> &members);

    /// The longest name that the text begins with, with single spaces at most in it, that ends at a word
    /// boundary and is not blocked; nothing when it begins with no name at all. Among equal names the one
    /// with the chosen id counts, else the first that was given.
    std::optional<Match> longestAtStartOf(QStringView text, const QSet<QString> &blockedIDs,
                                          const QString &chosenID) const;

    /// The name of that record; empty when there is none.
    QString nameOf(const QString &id) const;

private:
    void add(const QString &name, const QString &id, const QString &shownName);
    void finish();
    /// Among the names equal to this one.
    const Entry &chosen(std::vector<Entry>::const_iterator first, const QString &chosenID) const;

    std::vector<Entry> m_entries; // sorted by folded name
};
