#pragma once

#include "lists/KWTaskCategory.h"
#include "lists/ShownList.h"
#include "model/store/ListDataRequest.h"

#include <QSet>

/// A list as it was read. A value: it may cross threads.
struct ListContent {
    ShownList shown{};
    QList<KWTaskListItemModel> rows{};
    bool isWhole = true; ///< no more rows than these

    /// On the thread of the context. A limit leaves out the rows at the bottom, where the sort type lets the
    /// store find the top.
    static Result<ListContent> read(const KWListIdentifier &list, const QString &userID, std::int64_t limit,
                                    ObjectContext &context);

    struct Sections {
        QList<KWTaskCategory> categories{};
        ManualOrders manualOrders{};

        bool operator==(const Sections &) const = default;
    };
    /// The rows but the hidden ones, cut into sections. Any thread.
    Sections sections(const QSet<QString> &hiddenTasks) const;
};
