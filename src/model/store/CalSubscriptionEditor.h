#pragma once

#include "model/store/UndoToken.h"

#include <functional>

class KWCalSubscription;

/// What is done to subscribed calendars by hand, each in one save. What fails has a sentence and changes
/// nothing. Main thread.
class CalSubscriptionEditor {
public:
    CalSubscriptionEditor(KWCoreDataManager &manager, QString userID);

    /// Two calendars may have one name.
    Result<UndoToken> rename(const QString &subscriptionID, const QString &name);
    /// "#rrggbb", empty for none.
    Result<UndoToken> setColor(const QString &subscriptionID, const QString &color);
    /// Its events go with it and come back with it, until the next start of the program.
    Result<UndoToken> remove(const QString &subscriptionID);

private:
    Result<UndoToken> change(const QString &subscriptionID,
                             const std::function<Result<void>(KWCalSubscription &)> &edit);

    KWCoreDataManager &m_manager;
    QString m_userID;
};
