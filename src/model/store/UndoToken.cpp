#include "model/store/UndoToken.h"

#include "model/records/KWAttachment.h"
#include "model/records/KWChecklistItem.h"
#include "model/records/KWTask.h"
#include "model/store/KWCoreDataManager.h"
#include "model/store/StoreFailure.h"

#include <algorithm>
#include <array>

namespace {

// The fields that say what a record is, not where it stands with the service nor what follows from them.
template <class Twin>
FieldMask contentFields()
{
    constexpr std::array aside{std::string_view{"etag"}, std::string_view{"modifiedTime"},
                               std::string_view{"syncStatus"}, std::string_view{"pendingChanges"},
                               std::string_view{"remindTime"}};
    FieldMask mask = 0;
    forEachField<Twin>([&](const auto &each, std::size_t index) {
        if (std::ranges::find(aside, each.name) == aside.end()) mask |= FieldMask{1} << index;
    });
    return mask;
}

Error changedMeanwhile() { return {storeText("This was changed in the meantime, so it cannot be undone.")}; }

template <class Record, class Twin>
Result<void> takeBackMaking(const Twin &made, ObjectContext &context)
{
    Record *record = context.find<Record>(made.sid);
    if (!record || record->isDeleted()) return {};
    if (difference(record->model(), made) & contentFields<Twin>()) return changedMeanwhile();
    if (record->model().syncStatus == KWSyncStatusCreated)
        context.remove(*record);
    else
        record->markDelete();
    return {};
}

template <class Record, class Twin>
Result<void> takeBackChange(const Twin &before, const Twin &after, ObjectContext &context)
{
    Record *record = context.find<Record>(after.sid);
    const FieldMask changed = difference(before, after) & contentFields<Twin>();
    if (!record || (difference(record->model(), after) & changed)) return changedMeanwhile();
    Twin version = record->model();
    forEachField<Twin>([&](const auto &each, std::size_t index) {
        if (changed >> index & 1) each.of(version) = each.of(before);
    });
    const bool wasDeleted = record->isDeleted();
    record->assign(version);
    if (wasDeleted && record->isNotDeleted()) record->unmarkDelete();
    return {};
}

} // namespace

template <class Record>
void UndoToken::note(const ObjectContext &context)
{
    using Twin = typename Record::Model;
    for (const Record *each : context.changed<Record>())
        if (!each->isRemoved())
            std::get<QList<Versions<Twin>>>(m_versions).append({each->storedVersion(), each->model()});
}

UndoToken UndoToken::of(const ObjectContext &context)
{
    UndoToken token;
    token.note<KWTask>(context);
    token.note<KWChecklistItem>(context);
    token.note<KWAttachment>(context);
    return token;
}

bool UndoToken::isEmpty() const
{
    return std::apply([](const auto &...lists) { return (lists.isEmpty() && ...); }, m_versions);
}

Result<void> UndoToken::undo(KWCoreDataManager &manager) const
{
    return KWCoreDataService{manager}.sync_save([this](ObjectContext &context) -> Result<void> {
        Result<void> done;
        const auto takeBack = [&]<class Record>(std::type_identity<Record>) {
            for (const auto &each : std::get<QList<Versions<typename Record::Model>>>(m_versions))
                if (done)
                    done = each.before ? takeBackChange<Record>(*each.before, each.after, context)
                                       : takeBackMaking<Record>(each.after, context);
        };
        takeBack(std::type_identity<KWTask>{});
        takeBack(std::type_identity<KWChecklistItem>{});
        takeBack(std::type_identity<KWAttachment>{});
        return done;
    });
}
