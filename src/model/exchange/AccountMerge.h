#pragma once

#include <QHash>
#include <QJsonObject>
#include <QSet>

class Connection;
struct KWUserModel;

/// Which accounts a document's records belong to in the store that takes them.
class AccountMerge {
public:
    /// Reads the accounts of the store; throws SQLite::Exception.
    explicit AccountMerge(Connection &connection);

    /// An account of the document, with the identity it gets.
    void admit(KWUserModel &user);
    /// The record with the names of the accounts and inboxes that its texts are replaced.
    QJsonObject adapted(QJsonObject record) const;
    bool isKnown(const QString &userID) const { return m_known.contains(userID); }

private:
    QString m_localAccount; // of the store
    bool m_hasSignedIn = false;
    QSet<QString> m_known;
    QHash<QString, QString> m_renamed;
};
