#pragma once

#include "model/store/TaskSearch.h"
#include "views/palette/FoundRow.h"

#include <functional>

class KWProjectListPresenter;
class OrvaneKit;

/// The tasks that a text finds, as rows.
class TaskHits {
public:
    /// `isHidden` tells of tasks that wait to be deleted.
    TaskHits(OrvaneKit &kit, KWProjectListPresenter &sidebar, std::function<bool(const QString &)> isHidden);

    /// Open ones first; none when the store cannot be read, and the log says why.
    QList<FoundRow> find(const QString &text, std::int64_t limit) const;

private:
    OrvaneKit &m_kit;
    KWProjectListPresenter &m_sidebar;
    std::function<bool(const QString &)> m_isHidden;
};
