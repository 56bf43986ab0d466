#pragma once

#include "corvexkit/time/SystemClock.h"
#include "model/OrvaneKit.h"
#include "model/records/KWProject.h"
#include "model/records/KWTag.h"

#include <QLocale>
#include <QTemporaryDir>

#include <cstdlib>

/// A signed-in account in a data folder that goes with it. What fails ends the program: there is nothing to
/// measure then.
struct Account {
    QTemporaryDir folder;
    SystemClock clock{CXTimeZone::utc()};
    std::unique_ptr<OrvaneKit> kit = OrvaneKit::open(DataFolders::locate(folder.path()), clock).kit;

    Account()
    {
        if (!kit || !kit->account().openLocalAccount(QLocale::c())) std::abort();
    }

    QString userID() const { return kit->account().currentUserID(); }

    /// Saves at once what `insert` does in a context.
    template <typename Insert>
    void fill(Insert insert) const
    {
        const auto filled = KWCoreDataService{kit->manager()}.sync_save([&insert](ObjectContext &context) {
            insert(context);
            return Result<void>{};
        });
        if (!filled) std::abort();
    }

    /// "List 0", "List 1" and so on; their ids.
    QStringList insertLists(int count, ObjectContext &context) const
    {
        QStringList ids;
        for (int i = 0; i < count; ++i)
            ids.append(
                KWProject::createProjectNamed(QStringLiteral("List %1").arg(i), userID(), context).sid());
        return ids;
    }

    /// "tag0", "tag1" and so on.
    void insertTags(int count, ObjectContext &context) const
    {
        for (int i = 0; i < count; ++i)
            KWTag::createNewTagWithName(QStringLiteral("tag%1").arg(i), userID(), TagUniqueness::MayExist,
                                        context);
    }
};
