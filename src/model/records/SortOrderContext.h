#pragma once

#include <QString>

/// The list, folder, filter, tag, smart list or quadrant in which positions inside groups are kept. One
/// of them is set.
struct SortOrderContext {
    QString projectID{};
    QString groupID{};
    QString filterID{};
    QString tagName{};
    QString smartList{};
    QString quadrant{};
};

/// The text that names the context in a sort-order record: "tag:errand". Stored.
QString contextID(const SortOrderContext &context);
