#pragma once

#include "capture/KWCandidateModel.h"
#include "views/controls/PopupFrame.h"

#include <functional>

class CandidateRows;
class QListView;

/// The rows that can complete a token, in a frame below it. The keyboard stays in the field: whoever shows
/// it moves the selection.
class KWCandidateViewController : public PopupFrame {
    Q_OBJECT

public:
    explicit KWCandidateViewController(QWidget *parent);

    const QList<KWCandidateModel> &dataSource() const;
    /// Shows these rows with their corner at `position`, or as near as the screen allows, `selected` in
    /// sight; hides without rows.
    void show(const QList<KWCandidateModel> &dataSource, int selected, const QPoint &position);

    int selectedIndex() const; ///< -1 for none
    void setSelectedIndex(int index);

    /// Called when a row is clicked.
    std::function<void(int)> selectedHandler;

private:
    QListView *m_tableView;
    CandidateRows *m_rows;
};
