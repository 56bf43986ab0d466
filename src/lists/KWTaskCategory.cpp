#include "lists/KWTaskCategory.h"

#include "model/settings/KWLocalizedString.h"

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

KWTaskCategory KWTaskCategory::laterEvents()
{
    return {KWLoadMoreCategorySection{}, u"loadMore"_s, KWLocalizedString("Show later events")};
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
