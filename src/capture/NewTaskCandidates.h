#pragma once

#include "capture/KWCandidateModel.h"
#include "model/events/KWEventBus.h"
#include "model/events/KWNotificationCenter.h"
#include "model/records/KWConstants.h"

#include <QHash>
#include <QList>
#include <QSet>

#include <functional>
#include <optional>

class OrvaneKit;

/// What can complete the tokens of a title: the tags, lists and people of the user who is signed in. They are
/// kept at hand, and read again once the records changed. Main thread.
class NewTaskCandidates {
public:
    /// The kit must outlive it.
    explicit NewTaskCandidates(OrvaneKit &kit);

    /// In the order of the sidebar.
    QList<KWCandidateModel> tags();
    /// The open lists that take tasks, in the order of the sidebar, but for those with these ids.
    QList<KWCandidateModel> lists(const QSet<QString> &blockedListIDs = {});
    /// From the highest on, by the labels that recognition knows.
    QList<KWCandidateModel> priorities(const QSet<KWTaskPriority> &blocked = {}) const;
    /// The members of that list by name; none of a list that is not shared.
    QList<KWCandidateModel> allTeamworkers(const QString &projectID);
    /// Days as recognition understands them behind a mark, the nearest weekday first.
    QList<KWCandidateModel> dates() const;

    /// Called when any of them may have become another one.
    std::function<void()> onChange;

private:
    void forget();

    OrvaneKit &m_kit;
    std::optional<QList<KWCandidateModel>> m_tags;
    std::optional<QList<KWCandidateModel>> m_lists;
    QHash<QString, QList<KWCandidateModel>> m_allTeamworkers; // by list
    KWEventBus::Registration m_recordsChanged;
    QList<KWNotificationCenter::Observation> m_observations;
};
