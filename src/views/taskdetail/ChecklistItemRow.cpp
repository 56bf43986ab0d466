#include "views/taskdetail/ChecklistItemRow.h"

#include "model/settings/KWLocalizedString.h"
#include "views/controls/CheckBox.h"
#include "views/controls/CommittingTextEdit.h"
#include "views/taskdetail/ItemDateButton.h"
#include "views/theme/Fonts.h"
#include "views/theme/Metrics.h"
#include "views/theme/Theme.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QMenu>

using namespace Qt::StringLiterals;

ChecklistItemRow::ChecklistItemRow(CXClock &clock, QWidget *parent)
    : QWidget(parent)
    , m_clock(clock)
    , m_checkBox(new CheckBox{this})
    , m_editor(new CommittingTextEdit{clock, CommittingTextEdit::Lines::One, this})
    , m_date(new ItemDateButton{this})
{
    setObjectName(u"checklistItem"_s);
    m_checkBox->setObjectName(u"checklistItemCheckbox"_s);
    m_editor->setObjectName(u"checklistItemTitle"_s);
    m_editor->setAccessibleName(KWLocalizedString("Checklist item"));
    m_checkBox->setAccessibleName(KWLocalizedString("Completed"));
    connect(m_checkBox, &QAbstractButton::clicked, this, &ChecklistItemRow::toggled);
    auto *layout = new QHBoxLayout{this};
    layout->addWidget(m_checkBox, 0, Qt::AlignTop);
    layout->addWidget(m_editor, 1, Qt::AlignVCenter);
    layout->addWidget(m_date, 0, Qt::AlignTop);
    connect(m_date, &QAbstractButton::clicked, this, &ChecklistItemRow::dateRequested);
    for (QWidget *each : {static_cast<QWidget *>(this), static_cast<QWidget *>(m_editor)}) {
        each->setContextMenuPolicy(Qt::CustomContextMenu);
        connect(each, &QWidget::customContextMenuRequested, this,
                [this, each](const QPoint &position) { openMenu(each->mapToGlobal(position)); });
    }
    for (QWidget *each : {static_cast<QWidget *>(m_checkBox), static_cast<QWidget *>(m_editor),
                          static_cast<QWidget *>(m_date)})
        each->installEventFilter(this);
    dress();
}

void ChecklistItemRow::setItem(const KWChecklistItemModel &item)
{
    m_sid = item.sid;
    m_isCompleted = item.isCompleted();
    m_checkBox->setStatus(item.status);
    m_checkBox->setAccessibleName(KWLocalizedString("Completed: %1").arg(item.title));
    m_editor->setStoredText(item.title);
    m_date->setDate(rowDateText({item.startDate, {}, item.isAllDay, item.isCompleted()}, m_clock.now(),
                                m_clock.zone(), QLocale{}),
                    item.title);
    dress();
}

void ChecklistItemRow::setReadOnly(bool isReadOnly)
{
    m_checkBox->setEnabled(!isReadOnly);
    m_editor->setReadOnly(isReadOnly);
    m_date->setEnabled(!isReadOnly);
    m_date->setHidden(isReadOnly && !m_date->hasDate());
}

bool ChecklistItemRow::hasKeyboard() const
{
    const QWidget *focused = window()->focusWidget();
    return focused && isAncestorOf(focused);
}

QPoint ChecklistItemRow::datePlace() const { return m_date->mapToGlobal(m_date->rect().bottomLeft()); }

bool ChecklistItemRow::event(QEvent *event)
{
    if (event->type() == QEvent::Enter || event->type() == QEvent::Leave) offerDate();
    return QWidget::event(event);
}

bool ChecklistItemRow::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::FocusIn || event->type() == QEvent::FocusOut) offerDate();
    return QWidget::eventFilter(watched, event);
}

void ChecklistItemRow::offerDate() { m_date->setOffersDate(underMouse() || hasKeyboard()); }

// What can be done to the text, and to the date.
void ChecklistItemRow::openMenu(const QPoint &position)
{
    QMenu *menu = m_editor->createStandardContextMenu();
    menu->setObjectName(u"checklistItemMenu"_s);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    if (m_editor->isReadOnly()) return menu->popup(position);
    menu->addSeparator();
    connect(menu->addAction(KWLocalizedString("Set Date…")), &QAction::triggered, this,
            &ChecklistItemRow::dateRequested);
    QAction *clear = menu->addAction(KWLocalizedString("No Date"));
    clear->setEnabled(m_date->hasDate());
    connect(clear, &QAction::triggered, this, &ChecklistItemRow::dateCleared);
    menu->popup(position);
}

void ChecklistItemRow::becomeDraft()
{
    m_sid.clear();
    m_date->setDate({}, {});
    m_editor->forgetCommittedText();
}

void ChecklistItemRow::dress()
{
    const int outset = (m_checkBox->sizeHint().width() - Metrics::scaled(Metrics::checkbox)) / 2;
    const int spare = Metrics::scaled(Metrics::sidebarRow) - m_checkBox->sizeHint().height();
    auto *box = qobject_cast<QHBoxLayout *>(layout());
    box->setContentsMargins(Metrics::sideMargin - outset, spare / 2,
                            Metrics::sideMargin - ItemDateButton::padding, spare - spare / 2);
    m_date->setFixedHeight(m_checkBox->sizeHint().height());
    box->setSpacing(Metrics::scaled(Metrics::titleIndent - Metrics::checkbox) - outset);
    m_editor->setFont(Fonts::font(Fonts::Role::Body));
    m_editor->setStruckOut(m_isCompleted);
    m_editor->setTextColor(m_isCompleted ? Theme::current().doneText : Theme::current().text);
}
