#pragma once

#include "model/records/KWConstants.h"

#include <QString>

#include <array>
#include <optional>

/// The labels of the four priorities in the language of the interface, as it is when this is made.
class PriorityLabels {
public:
    PriorityLabels();

    const QString &labelOf(KWTaskPriority priority) const;
    /// The priority with that label, in any case.
    std::optional<KWTaskPriority> priorityLabelled(QStringView keyword) const;

private:
    std::array<QString, KWTaskPriorities.size()> m_labels; // in the order of KWTaskPriorities
};
