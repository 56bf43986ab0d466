#pragma once

#include "model/OrvaneKit.h"
#include "support/ManualClock.h"

#include <QTemporaryDir>

/// A data folder of its own with a store file in it, opened and with the local account signed in, on a
/// clock that the test sets. A folder that cannot be opened ends the program with a message.
class StoreFixture {
public:
    /// `StoreFixture store{"2030-05-01 09:00", "Europe/Berlin"};`
    explicit StoreFixture(const char *localTime = "2030-05-01 09:00", const char *zone = "UTC");

    ManualClock clock;

    OrvaneKit &kit() { return *m_kit; }
    ObjectContext &context() { return m_kit->context(); }
    KWAccountManager &account() { return m_kit->account(); }
    QString userID() const { return m_kit->account().currentUserID(); }

    /// Closes the store and opens it again from its file, as a new start of the program does.
    void reopen();
    /// Until then nothing else here may be asked for.
    void close() { m_kit.reset(); }

    /// The id of a new list of that name.
    QString makeList(const QString &name, KWProjectKind kind = KWProjectKindTask);

private:
    void open();

    QTemporaryDir m_folder;
    std::unique_ptr<OrvaneKit> m_kit;
};
