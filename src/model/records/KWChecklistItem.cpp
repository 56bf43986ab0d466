#include "model/records/KWChecklistItem.h"

void KWChecklistItem::updateStatus(KWTaskStatus status)
{
    set(&KWChecklistItemModel::status, status);
    set(&KWChecklistItemModel::completionDate,
        status == KWTaskStatusOpen ? std::nullopt : std::optional{context().clock().now()});
}
