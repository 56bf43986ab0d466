#include "model/exchange/AccountMerge.h"

#include "model/records/KWListIdentifier.h"
#include "model/records/KWProject.h"
#include "model/records/KWUserModel.h"
#include "model/records/SortOrderContext.h"
#include "model/store/Connection.h"
#include "model/store/RecordMapper.h"

#include <QJsonArray>

namespace {

constexpr std::int64_t localAccount = 0;

QJsonValue renamedIn(const QJsonValue &value, const QHash<QString, QString> &names)
{
    if (value.isString()) return names.value(value.toString(), value.toString());
    if (!value.isArray()) return value;
    QJsonArray renamed;
    for (const QJsonValue &each : value.toArray())
        renamed.append(renamedIn(each, names));
    return renamed;
}

} // namespace

AccountMerge::AccountMerge(Connection &connection)
{
    for (const KWUserModel &each : RecordMapper<KWUserModel>::select(connection, {})) {
        m_known.insert(each.sid);
        m_hasSignedIn |= each.isSignedIn && !each.isDeleted;
        if (each.userServerID == localAccount && !each.isDeleted) m_localAccount = each.sid;
    }
}

void AccountMerge::admit(KWUserModel &user)
{
    const bool joins = user.userServerID == localAccount && !user.isDeleted && !m_localAccount.isEmpty() &&
                       !m_known.contains(user.sid);
    if (joins) {
        const QString inbox = KWProject::inboxIDOfUser(user.sid);
        const QString ownInbox = KWProject::inboxIDOfUser(m_localAccount);
        m_renamed.insert(user.sid, m_localAccount);
        m_renamed.insert(inbox, ownInbox);
        m_renamed.insert(contextID({.projectID = inbox}), contextID({.projectID = ownInbox}));
        m_renamed.insert(KWListIdentifier::project(inbox).userDefaultEncode(),
                         KWListIdentifier::project(ownInbox).userDefaultEncode());
        user.sid = user.userID = m_localAccount;
    }
    user.isSignedIn = user.isSignedIn && !m_hasSignedIn;
    m_hasSignedIn |= user.isSignedIn;
    m_known.insert(user.sid);
}

QJsonObject AccountMerge::adapted(QJsonObject record) const
{
    if (m_renamed.isEmpty()) return record;
    for (QJsonValueRef each : record)
        each = renamedIn(each, m_renamed);
    return record;
}
