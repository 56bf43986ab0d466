#include "views/taskdetail/DetailFooter.h"

#include "model/settings/KWLocalizedString.h"
#include "views/controls/FlowLayout.h"
#include "views/controls/IconButton.h"
#include "views/controls/MenuPlace.h"
#include "views/controls/TextButton.h"
#include "views/focus/FocusWording.h"
#include "views/taskdetail/ListButton.h"
#include "views/taskdetail/TagField.h"
#include "views/taskdetail/TagPill.h"
#include "views/theme/Metrics.h"
#include "views/theme/Theme.h"

#include <QHBoxLayout>
#include <QMenu>
#include <QPainter>

using namespace Qt::StringLiterals;

namespace {

constexpr int footerPadding = 9;
constexpr int listOutset = 6;

} // namespace

DetailFooter::DetailFooter(QWidget *parent)
    : QWidget(parent)
    , m_facts(new FlowLayout)
    , m_list(new ListButton{this})
    , m_assignee(new TextButton{{}, TextButton::Opens::Menu, this})
    , m_focus(new TextButton{{}, TextButton::Opens::Nothing, this})
    , m_tagField(new TagField{this})
    , m_more(new IconButton{Icon::More, KWLocalizedString("More"), this})
{
    setObjectName(u"detailFooter"_s);
    setAccessibleName(KWLocalizedString("List and tags"));
    m_assignee->setObjectName(u"detailAssignee"_s);
    m_focus->setObjectName(u"detailFocus"_s);
    m_more->setObjectName(u"detailMore"_s);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    for (QWidget *each : {static_cast<QWidget *>(m_list), static_cast<QWidget *>(m_assignee),
                          static_cast<QWidget *>(m_focus), static_cast<QWidget *>(m_tagField)})
        m_facts->addWidget(each);
    m_facts->setSpacing(Metrics::grid + 2);
    auto *layout = new QHBoxLayout{this};
    layout->addLayout(m_facts, 1);
    layout->addWidget(m_more, 0, Qt::AlignTop);
    connect(m_list, &QAbstractButton::clicked, this,
            [this] { Q_EMIT listRequested(m_list->mapToGlobal(QPoint{})); });
    connect(m_assignee, &QAbstractButton::clicked, this, &DetailFooter::openAssignees);
    connect(m_focus, &QAbstractButton::clicked, this,
            [this] { Q_EMIT estimateRequested(m_focus->mapToGlobal(QPoint{})); });
    connect(m_tagField, &TagField::entered, this, &DetailFooter::tagAdded);
    connect(m_tagField, &TagField::backspacedAtStart, this, [this] {
        if (!m_tags.isEmpty()) m_tags.last()->setFocus();
    });
    connect(m_more, &QAbstractButton::clicked, this, &DetailFooter::openMenu);
    dress();
}

void DetailFooter::dress()
{
    const int iconOutset = (m_more->sizeHint().width() - Metrics::scaled(Metrics::icon)) / 2;
    QMargins margins{Metrics::sideMargin - listOutset, footerPadding, Metrics::sideMargin - iconOutset,
                     footerPadding};
    layout()->setContentsMargins(margins);
    m_tagField->dress();
    fitHeight();
}

void DetailFooter::setTask(const TaskDetailData &shown)
{
    m_list->setList(shown.listName, shown.listColor);
    for (QWidget *each : {static_cast<QWidget *>(m_list), static_cast<QWidget *>(m_assignee),
                          static_cast<QWidget *>(m_focus)})
        each->setEnabled(shown.mayChange);
    m_tagField->setVisible(shown.takesMore());
    m_assignee->setVisible(!shown.members.isEmpty());
    QString assignee = KWLocalizedString("Assign");
    for (const TaskDetailData::Member &each : shown.members)
        if (each.userServerID == shown.task.assignee) assignee = each.name;
    m_assignee->setText(assignee);
    m_assignee->setAccessibleName(KWLocalizedString("Assigned to: %1").arg(assignee));
    const QString focus = FocusWording::ofTask(shown.focus);
    m_focus->setVisible(!focus.isEmpty());
    m_focus->setText(focus);
    m_focus->setAccessibleName(KWLocalizedString("Focus: %1").arg(focus));
    m_focus->updateGeometry();
    if (shown.task.sid != m_shown.task.sid) m_tagField->clear();
    setTags(shown);
    for (TagPill *each : std::as_const(m_tags))
        each->setEnabled(shown.takesMore());
    m_shown = shown;
    fitHeight();
}

void DetailFooter::setTags(const TaskDetailData &shown)
{
    m_tagField->setChoices(shown.tagChoices);
    if (shown.task.tags == m_shown.task.tags && shown.tagLabels == m_shown.tagLabels) return;
    const bool hadFocus = std::ranges::any_of(m_tags, &QWidget::hasFocus);
    if (hadFocus) m_tagField->setFocus();
    for (TagPill *each : std::as_const(m_tags)) {
        m_facts->removeWidget(each);
        each->hide();
        each->deleteLater();
    }
    m_tags.clear();
    for (const QString &name : shown.task.tags) {
        auto *pill = new TagPill{name, shown.tagLabels.value(name, name), this};
        connect(pill, &TagPill::removed, this, [this, name] { Q_EMIT tagRemoved(name); });
        m_facts->insertWidget(m_facts->indexOf(m_tagField), pill);
        pill->show();
        m_tags.append(pill);
    }
}

void DetailFooter::clearTagField() { m_tagField->clear(); }

void DetailFooter::openAssignees()
{
    auto *menu = new QMenu{this};
    menu->setAttribute(Qt::WA_DeleteOnClose);
    const auto add = [this, menu](const QString &name, std::int64_t userServerID) {
        QAction *action = menu->addAction(name);
        action->setCheckable(true);
        action->setChecked(userServerID == m_shown.task.assignee);
        connect(action, &QAction::triggered, this,
                [this, userServerID] { Q_EMIT assigneeChosen(userServerID); });
    };
    add(KWLocalizedString("Nobody"), KWTaskAssignedToNobody);
    for (const TaskDetailData::Member &each : std::as_const(m_shown.members))
        add(each.name, each.userServerID);
    menu->popup(m_assignee->mapToGlobal(QPoint{0, -menu->sizeHint().height()}));
}

void DetailFooter::openMenu()
{
    auto *menu = new QMenu{this};
    menu->setObjectName(u"detailMenu"_s);
    Q_EMIT menuAboutToShow(*menu);
    popUpAt(m_more->rect(), *m_more, Qt::TopEdge, *menu);
}

void DetailFooter::fitHeight()
{
    const QMargins margins = layout()->contentsMargins();
    const int inner =
        width() - margins.left() - margins.right() - m_more->sizeHint().width() - layout()->spacing();
    m_facts->invalidate();
    const int height = m_facts->heightForWidth(std::max(inner, 1)) + margins.top() + margins.bottom();
    if (minimumHeight() != height) setFixedHeight(height);
}

void DetailFooter::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    fitHeight();
}

void DetailFooter::paintEvent(QPaintEvent *)
{
    QPainter painter{this};
    painter.fillRect(QRect{Metrics::sideMargin, 0, width() - 2 * Metrics::sideMargin, 1},
                     Theme::current().hairline);
}
