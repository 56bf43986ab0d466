#pragma once

#include "views/palette/FoundRowsModel.h"

#include <QListView>

/// The list below a search field. The field keeps the keyboard and gives it the keys that move.
class FoundRowsView : public QListView {
    Q_OBJECT

public:
    explicit FoundRowsView(const QString &accessibleName, QWidget *parent = nullptr);

    FoundRowsModel &rows() { return m_rows; }
    /// The rows, with the first selected, or the task that was.
    void setRows(QList<FoundRow> rows);
    /// None for none.
    const FoundRow *current() const;
    /// Takes keys that move; whether this was one.
    bool takeKey(QKeyEvent &event);

Q_SIGNALS:
    void currentMoved();

protected:
    void currentChanged(const QModelIndex &current, const QModelIndex &previous) override;

private:
    void step(int direction, int count);

    FoundRowsModel m_rows;
};
