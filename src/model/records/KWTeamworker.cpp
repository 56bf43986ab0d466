#include "model/records/KWTeamworker.h"

#include <QCollator>

#include <algorithm>

QList<KWTeamworker *> KWTeamworker::sortedByName(QList<KWTeamworker *> members, const QLocale &locale)
{
    QCollator collator{locale};
    collator.setCaseSensitivity(Qt::CaseInsensitive);
    collator.setNumericMode(true);
    std::ranges::sort(members, [&collator](const KWTeamworker *one, const KWTeamworker *other) {
        const int order = collator.compare((*one)->name, (*other)->name);
        return order < 0 || (order == 0 && one->sid() < other->sid());
    });
    return members;
}
