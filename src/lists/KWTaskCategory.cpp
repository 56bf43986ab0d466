#include "lists/KWTaskCategory.h"

using namespace Qt::StringLiterals;

KWTaskCategory::KWTaskCategory(Section section, QString name, QString title)
    : m_section(std::move(section)), m_name(std::move(name)), m_title(std::move(title))
{
}

const KWTaskCategory &KWTaskCategory::loadMore()
{
    static const KWTaskCategory section{KWLoadMoreCategorySection{}, u"loadMore"_s, {}};
    return section;
}

bool KWTaskCategory::isSingleDate() const
{
    const auto *section = as<KWDateCategorySection>();
    return section && section->date && !section->isMultiDate;
}

bool KWTaskCategory::isOverdue() const
{
    const auto *section = as<KWDateCategorySection>();
    return section && section->isOverdue;
}

bool KWTaskCategory::isHabitSection() const
{
    const auto *section = as<KWHabitCategorySection>();
    return section && !section->sectionID.isEmpty();
}

bool KWTaskCategory::isTaskKind() const
{
    return !isNoteKind() && !isHabit() && !isCalSubscription() && !isLoadMore();
}
