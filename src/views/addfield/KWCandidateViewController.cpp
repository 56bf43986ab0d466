#include "views/addfield/KWCandidateViewController.h"

#include "model/settings/KWLocalizedString.h"
#include "views/addfield/CandidateRows.h"
#include "views/controls/ChoiceDelegate.h"
#include "views/theme/Metrics.h"

#include <QListView>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

constexpr int candidatesWidth = 220;
constexpr int highestCandidates = 240;

} // namespace

KWCandidateViewController::KWCandidateViewController(QWidget *parent)
    : PopupFrame(parent, Qt::ToolTip), m_tableView(new QListView), m_rows(new CandidateRows{this})
{
    setObjectName(u"candidates"_s);
    setAccessibleName(KWLocalizedString("Suggestions"));
    setAttribute(Qt::WA_ShowWithoutActivating);
    m_tableView->setObjectName(u"candidateRows"_s);
    m_tableView->setAccessibleName(KWLocalizedString("Suggestions"));
    m_tableView->setFrameShape(QFrame::NoFrame);
    m_tableView->viewport()->setAutoFillBackground(false);
    m_tableView->setUniformItemSizes(true);
    m_tableView->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_tableView->setFocusPolicy(Qt::NoFocus);
    m_tableView->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_tableView->setItemDelegate(new ChoiceDelegate{m_tableView});
    m_tableView->setModel(m_rows);
    auto *column = new QVBoxLayout{this};
    column->setContentsMargins(Metrics::grid, Metrics::grid, Metrics::grid, Metrics::grid);
    column->addWidget(m_tableView);
    connect(m_tableView, &QListView::clicked, this, [this](const QModelIndex &index) {
        if (selectedHandler) selectedHandler(index.row());
    });
}

const QList<KWCandidateModel> &KWCandidateViewController::dataSource() const { return m_rows->candidates(); }

void KWCandidateViewController::show(const QList<KWCandidateModel> &dataSource, int selected,
                                     const QPoint &position)
{
    m_rows->setCandidates(dataSource);
    if (dataSource.isEmpty()) return hide();
    const int height = heightOfRows(*m_tableView, Metrics::scaled(highestCandidates));
    m_tableView->setFixedHeight(height);
    m_tableView->scrollToTop();
    layout()->activate(); // else it keeps the height of the rows before
    place(position, {Metrics::scaled(candidatesWidth), height + 2 * Metrics::grid});
    setVisible(true);
    setSelectedIndex(selected);
}

int KWCandidateViewController::selectedIndex() const { return m_tableView->currentIndex().row(); }

void KWCandidateViewController::setSelectedIndex(int index)
{
    m_tableView->setCurrentIndex(m_rows->index(index, 0));
}
