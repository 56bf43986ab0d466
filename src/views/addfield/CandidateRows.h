#pragma once

#include "capture/KWCandidateModel.h"

#include <QAbstractListModel>

/// Candidates as the rows of a view.
class CandidateRows : public QAbstractListModel {
    Q_OBJECT

public:
    using QAbstractListModel::QAbstractListModel;

    const QList<KWCandidateModel> &candidates() const { return m_candidates; }
    void setCandidates(const QList<KWCandidateModel> &candidates);

    int rowCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;

private:
    QList<KWCandidateModel> m_candidates;
};
