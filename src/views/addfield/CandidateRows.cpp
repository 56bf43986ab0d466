#include "views/addfield/CandidateRows.h"

#include "views/controls/ChoiceDelegate.h"

void CandidateRows::setCandidates(const QList<KWCandidateModel> &candidates)
{
    if (candidates == m_candidates) return;
    beginResetModel();
    m_candidates = candidates;
    endResetModel();
}

int CandidateRows::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : int(m_candidates.size());
}

QVariant CandidateRows::data(const QModelIndex &index, int role) const
{
    const KWCandidateModel &candidate = m_candidates.at(index.row());
    switch (role) {
    case Qt::DisplayRole:
        return candidate.title;
    case ChoiceDelegate::ColorRole:
        return candidate.color.isEmpty() ? QVariant{} : candidate.color;
    default:
        return {};
    }
}
