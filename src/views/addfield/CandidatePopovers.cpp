#include "views/addfield/CandidatePopovers.h"

#include "capture/NewTaskCandidates.h"

void KWTagCandidatePopover::updateData(const Context &) { setOriginalDataSourceArray(m_candidates.tags()); }

void KWPriorityCandidatePopover::updateData(const Context &context)
{
    setOriginalDataSourceArray(m_candidates.priorities(context.blockedPriorities));
}

void KWListCandidatePopover::updateData(const Context &context)
{
    setOriginalDataSourceArray(m_candidates.lists(context.blockedListIDs));
}

void KWMentionCandidatePopover::updateData(const Context &context)
{
    setOriginalDataSourceArray(m_candidates.allTeamworkers(context.projectID));
}

void KWDateCandidatePopover::updateData(const Context &) { setOriginalDataSourceArray(m_candidates.dates()); }
