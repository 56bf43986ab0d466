#pragma once

#include "integration/scripting/ScriptPorts.h"

#include <QSet>

#include <functional>

/// The sections that the middle pane shows of a list when it is first opened.
class ListSections : public SmartListSectionsPort {
public:
    /// `hiddenTasks` are those that wait to be deleted.
    explicit ListSections(std::function<QSet<QString>()> hiddenTasks = [] { return QSet<QString>{}; })
        : m_hiddenTasks(std::move(hiddenTasks))
    {
    }

    Result<QList<SmartListSection>> sections(const KWListIdentifier &list, const QString &userID,
                                             ObjectContext &context) override;
    bool isHidden(const QString &taskID) const override { return m_hiddenTasks().contains(taskID); }

private:
    std::function<QSet<QString>()> m_hiddenTasks;
};
