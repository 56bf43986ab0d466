#include "model/store/CalSubscriptionEditor.h"

#include "model/records/KWCalSubscription.h"
#include "model/records/OneLine.h"
#include "model/store/KWCoreDataManager.h"
#include "model/store/StoreFailure.h"

CalSubscriptionEditor::CalSubscriptionEditor(KWCoreDataManager &manager, QString userID)
    : m_manager(manager), m_userID(std::move(userID))
{
}

Result<UndoToken> CalSubscriptionEditor::rename(const QString &subscriptionID, const QString &name)
{
    return change(subscriptionID, [&name](KWCalSubscription &subscription) -> Result<void> {
        const QString line = onOneLine(name);
        if (line.isEmpty()) return Error{storeText("A calendar needs a name.")};
        subscription.set(&KWCalSubscriptionModel::name, line);
        return {};
    });
}

Result<UndoToken> CalSubscriptionEditor::setColor(const QString &subscriptionID, const QString &color)
{
    return change(subscriptionID, [&color](KWCalSubscription &subscription) -> Result<void> {
        subscription.set(&KWCalSubscriptionModel::color, color);
        return {};
    });
}

Result<UndoToken> CalSubscriptionEditor::remove(const QString &subscriptionID)
{
    return change(subscriptionID, [](KWCalSubscription &subscription) -> Result<void> {
        subscription.markDelete();
        return {};
    });
}

Result<UndoToken> CalSubscriptionEditor::change(const QString &subscriptionID,
                                                const std::function<Result<void>(KWCalSubscription &)> &edit)
{
    UndoToken token;
    const auto saved = KWCoreDataService{m_manager}.sync_save([&](ObjectContext &context) -> Result<void> {
        auto *subscription = context.find<KWCalSubscription>(subscriptionID);
        if (!subscription || subscription->isDeleted() || (*subscription)->userID != m_userID)
            return Error{storeText("There is no such calendar any more.")};
        const Result<void> edited = edit(*subscription);
        if (edited) token = UndoToken::of(context);
        return edited;
    });
    if (!saved) return saved.error();
    return token;
}
