#pragma once

#include "model/records/KWConstants.h"

#include <QString>

#include <array>
#include <optional>

/// The labels of the four priorities: those of the interface, as it is when this is made, and, beside them,
/// those of every language that dates are read in.
class PriorityLabels {
public:
    PriorityLabels();

    /// The label in the language of the interface.
    const QString &labelOf(KWTaskPriority priority) const;
    /// The priority with that label, in any case and in any of the languages.
    std::optional<KWTaskPriority> priorityLabelled(QStringView keyword) const;

private:
    std::array<QString, KWTaskPriorities.size()> m_labels; // in the order of KWTaskPriorities, as all are
};
