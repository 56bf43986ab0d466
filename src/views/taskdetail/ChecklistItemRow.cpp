#include "views/taskdetail/ChecklistItemRow.h"

#include "model/settings/KWLocalizedString.h"
#include "views/controls/CheckBox.h"
#include "views/controls/CommittingTextEdit.h"
#include "views/theme/Fonts.h"
#include "views/theme/Metrics.h"
#include "views/theme/Theme.h"

#include <QHBoxLayout>

using namespace Qt::StringLiterals;

ChecklistItemRow::ChecklistItemRow(CXClock &clock, QWidget *parent)
    : QWidget(parent)
    , m_checkBox(new CheckBox{this})
    , m_editor(new CommittingTextEdit{clock, CommittingTextEdit::Lines::One, this})
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
    dress();
}

void ChecklistItemRow::setItem(const KWChecklistItemModel &item)
{
    m_sid = item.sid;
    m_isCompleted = item.isCompleted();
    m_checkBox->setStatus(item.status);
    m_checkBox->setAccessibleName(KWLocalizedString("Completed: %1").arg(item.title));
    m_editor->setStoredText(item.title);
    dress();
}

void ChecklistItemRow::becomeDraft()
{
    m_sid.clear();
    m_editor->forgetCommittedText();
}

void ChecklistItemRow::dress()
{
    const int outset = (m_checkBox->sizeHint().width() - Metrics::scaled(Metrics::checkbox)) / 2;
    const int spare = Metrics::scaled(Metrics::sidebarRow) - m_checkBox->sizeHint().height();
    auto *box = qobject_cast<QHBoxLayout *>(layout());
    box->setContentsMargins(Metrics::sideMargin - outset, spare / 2, Metrics::sideMargin, spare - spare / 2);
    box->setSpacing(Metrics::scaled(Metrics::titleIndent - Metrics::checkbox) - outset);
    m_editor->setFont(Fonts::font(Fonts::Role::Body));
    m_editor->setStruckOut(m_isCompleted);
    m_editor->setTextColor(m_isCompleted ? Theme::current().doneText : Theme::current().text);
}
