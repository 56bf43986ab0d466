#include "views/controls/ChoicePopup.h"

#include "views/controls/ChoiceDelegate.h"
#include "views/theme/Metrics.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QListView>
#include <QSortFilterProxyModel>
#include <QStandardItemModel>
#include <QVBoxLayout>

#include <utility>

using namespace Qt::StringLiterals;

namespace {

constexpr int choicesWidth = 260;
constexpr int highestChoices = 240;
constexpr int idRole = Qt::UserRole;

QStandardItemModel *modelOf(const QList<ChoicePopup::Choice> &choices, QObject *parent)
{
    auto *model = new QStandardItemModel{parent};
    for (const ChoicePopup::Choice &each : choices) {
        auto *item = new QStandardItem{each.title};
        item->setData(each.id, idRole);
        item->setData(each.color, ChoiceDelegate::ColorRole);
        item->setData(each.isChecked, ChoiceDelegate::CheckedRole);
        model->appendRow(item);
    }
    return model;
}

} // namespace

ChoicePopup::ChoicePopup(const QString &question, const QList<Choice> &choices, QWidget *parent)
    : PopupFrame(parent)
    , m_field(new QLineEdit)
    , m_list(new QListView)
    , m_found(new QSortFilterProxyModel{this})
{
    setObjectName(u"choicePopup"_s);
    setAccessibleName(question);
    m_field->setObjectName(u"choiceField"_s);
    m_field->setAccessibleName(question);
    m_field->setPlaceholderText(question);
    m_field->installEventFilter(this);
    m_found->setSourceModel(modelOf(choices, m_found));
    m_found->setFilterCaseSensitivity(Qt::CaseInsensitive);
    m_list->setObjectName(u"choices"_s);
    m_list->setAccessibleName(question);
    m_list->setFrameShape(QFrame::NoFrame);
    m_list->viewport()->setAutoFillBackground(false);
    m_list->setUniformItemSizes(true);
    m_list->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_list->setFocusPolicy(Qt::NoFocus);
    m_list->setItemDelegate(new ChoiceDelegate{m_list});
    m_list->setModel(m_found);

    auto *column = new QVBoxLayout{this};
    column->setContentsMargins(Metrics::gap, Metrics::gap, Metrics::gap, Metrics::gap);
    column->addWidget(m_field);
    column->addWidget(m_list);
    connect(m_field, &QLineEdit::textEdited, this, &ChoicePopup::narrow);
    connect(m_field, &QLineEdit::returnPressed, this, &ChoicePopup::takeCurrent);
    connect(m_list, &QListView::clicked, this, &ChoicePopup::take);
    narrow({});
}

void ChoicePopup::narrow(const QString &typed)
{
    if (m_search) {
        m_answer = Answer::Awaited;
        return m_search(typed);
    }
    m_found->setFilterFixedString(typed.simplified());
    m_list->setCurrentIndex(m_found->index(0, 0));
    fitRows();
}

void ChoicePopup::setChoices(const QList<Choice> &choices)
{
    const QString current = m_list->currentIndex().data(idRole).toString();
    QAbstractItemModel *before = m_found->sourceModel();
    m_found->setSourceModel(modelOf(choices, m_found));
    delete before;
    m_list->setCurrentIndex(m_found->index(0, 0));
    if (m_field->text().isEmpty()) setCurrent(current);
    fitRows();
    if (isVisible()) fitFrame();
    if (std::exchange(m_answer, Answer::There) == Answer::AwaitedToTake) takeCurrent();
}

void ChoicePopup::setCurrent(const QString &id)
{
    const QModelIndexList rows = m_found->match(m_found->index(0, 0), idRole, id, 1, Qt::MatchExactly);
    if (!rows.isEmpty()) m_list->setCurrentIndex(rows.first());
}

void ChoicePopup::fitRows()
{
    const int height = heightOfRows(*m_list, Metrics::scaled(highestChoices));
    m_list->setVisible(height > 0);
    m_list->setFixedHeight(height);
    layout()->activate();
    resize(width(), sizeHint().height());
}

void ChoicePopup::takeCurrent()
{
    if (m_answer != Answer::There) {
        m_answer = Answer::AwaitedToTake;
        return;
    }
    take(m_list->currentIndex());
}

void ChoicePopup::take(const QModelIndex &row)
{
    if (!row.isValid()) return;
    Q_EMIT chosen(row.data(idRole).toString());
    close();
}

bool ChoicePopup::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() != QEvent::KeyPress) return PopupFrame::eventFilter(watched, event);
    switch (static_cast<QKeyEvent *>(event)->key()) {
    case Qt::Key_Up:
    case Qt::Key_Down:
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
        QCoreApplication::sendEvent(m_list, event);
        return true;
    default:
        return PopupFrame::eventFilter(watched, event);
    }
}

void ChoicePopup::fitFrame() { place(m_position, {Metrics::scaled(choicesWidth), sizeHint().height()}); }

void ChoicePopup::popUp(const QPoint &position)
{
    m_position = position;
    fitFrame();
    show();
    m_field->setFocus(Qt::PopupFocusReason);
}
