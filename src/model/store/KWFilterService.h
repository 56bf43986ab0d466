#pragma once

#include "corvexkit/Result.h"
#include "corvexkit/filter/CXSmartFilter.h"
#include "model/store/UndoToken.h"

#include <QString>

class KWCoreDataManager;

/// Makes, changes and deletes custom filters, each in one save. A filter that is gone, an empty name and
/// one that another filter has fail with a sentence. Main thread.
class KWFilterService {
public:
    KWFilterService(KWCoreDataManager &manager, QString userID);

    /// Behind all others. Answers its id.
    Result<QString> create(const QString &name, const CXSmartFilter &filter);
    Result<void> change(const QString &filterID, const QString &name, const CXSmartFilter &filter);
    Result<UndoToken> remove(const QString &filterID);

    /// How many tasks such a filter shows now.
    Result<int> countOfTasks(const CXSmartFilter &filter) const;

private:
    KWCoreDataManager &m_manager;
    QString m_userID;
};
