#pragma once

#include "corvexkit/Result.h"
#include "model/records/KWAttachmentModel.h"
#include "model/records/KWCalSubscriptionModel.h"
#include "model/records/KWChecklistItemModel.h"
#include "model/records/KWFilterModel.h"
#include "model/records/KWFocusSliceModel.h"
#include "model/records/KWFocusSummaryModel.h"
#include "model/records/KWHabitCheckinModel.h"
#include "model/records/KWHabitFocusModel.h"
#include "model/records/KWHabitModel.h"
#include "model/records/KWHabitRecordModel.h"
#include "model/records/KWHabitSectionModel.h"
#include "model/records/KWHabitSkipModel.h"
#include "model/records/KWPomodoroModel.h"
#include "model/records/KWProjectGroupModel.h"
#include "model/records/KWProjectModel.h"
#include "model/records/KWTagModel.h"
#include "model/records/KWTaskModel.h"
#include "model/records/KWTaskSortOrderModels.h"

#include <QList>
#include <QSet>

#include <optional>
#include <tuple>

class KWCoreDataManager;
class ObjectContext;

/// What one save does to tasks with their items, attachments and places in lists, and to lists, folders,
/// tags, filters, subscribed calendars, habits with their days and focus sessions, by value, so that it can
/// be taken back. A token that is made by default takes nothing back.
class UndoToken {
public:
    UndoToken() = default;
    /// Of the context's changes that are not saved yet. Of records that are removed for good only tags,
    /// places in lists and days of habits come back.
    static UndoToken of(const ObjectContext &context);

    bool isEmpty() const;
    /// Gives every field that was changed its value before and takes away what was made, in one save:
    /// what was changed elsewhere since stays, and an alert that was due is due again. Of the focus of a task
    /// or a day of a habit only what was added goes, and what was taken away comes back. When one of those
    /// fields or a record that was made is another one now, or something was put into a task that was made,
    /// nothing is taken back and the sentence says so. Main thread.
    Result<void> undo(KWCoreDataManager &manager) const;

private:
    template <class Twin>
    struct Versions {
        std::optional<Twin> before; ///< none of a record that was made
        Twin after;
        bool isRemoved = false; ///< `after` is what it was when it went
    };
    template <class Record>
    void note(const ObjectContext &context);
    QStringList madeIDs() const;
    QSet<QString> habitIDs() const;

    template <class... Twins>
    using VersionsOf = std::tuple<QList<Versions<Twins>>...>;
    VersionsOf<KWTaskModel, KWChecklistItemModel, KWAttachmentModel, KWTaskDueDateSortOrderModel,
               KWTaskPrioritySortOrderModel, KWTaskProjectSortOrderModel, KWTaskTagSortOrderModel,
               KWTaskPinnedSortOrderModel, KWProjectModel, KWProjectGroupModel, KWTagModel, KWFilterModel,
               KWCalSubscriptionModel, KWHabitSectionModel, KWHabitModel, KWHabitCheckinModel,
               KWHabitRecordModel, KWHabitSkipModel, KWPomodoroModel, KWFocusSliceModel, KWFocusSummaryModel,
               KWHabitFocusModel>
        m_versions;
};
