#include "views/taskdetail/SubtaskRow.h"

#include "model/settings/KWLocalizedString.h"
#include "views/controls/CheckBox.h"
#include "views/controls/RowButton.h"
#include "views/theme/Metrics.h"

#include <QHBoxLayout>

using namespace Qt::StringLiterals;

SubtaskRow::SubtaskRow(QString taskID, QWidget *parent)
    : QWidget(parent)
    , m_taskID(std::move(taskID))
    , m_checkBox(new CheckBox{this})
    , m_title(new RowButton{this})
{
    m_checkBox->setObjectName(u"subtaskCheckbox"_s);
    m_title->setObjectName(u"subtaskTitle"_s);
    auto *layout = new QHBoxLayout{this};
    layout->addWidget(m_checkBox);
    layout->addWidget(m_title, 1);
    connect(m_checkBox, &QAbstractButton::clicked, this, &SubtaskRow::toggled);
    connect(m_title, &QAbstractButton::clicked, this, &SubtaskRow::opened);
    dress();
}

void SubtaskRow::setTask(const KWTaskModel &task)
{
    m_checkBox->setStatus(task.status);
    m_checkBox->setPriority(task.priority);
    m_checkBox->setAccessibleName(KWLocalizedString("Completed: %1").arg(task.title));
    const bool isClosed = task.status != KWTaskStatusOpen;
    m_title->setContent({.text = task.title, .note = {}, .isDone = isClosed});
    m_title->setAccessibleName(KWLocalizedString("Subtask: %1").arg(task.title));
}

void SubtaskRow::dress()
{
    const int outset = (m_checkBox->sizeHint().width() - Metrics::scaled(Metrics::checkbox)) / 2;
    auto *box = static_cast<QHBoxLayout *>(layout());
    box->setContentsMargins(Metrics::sideMargin - outset, 0, Metrics::sideMargin - RowButton::padding, 0);
    box->setSpacing(Metrics::scaled(Metrics::titleIndent - Metrics::checkbox) - outset - RowButton::padding);
    m_title->updateGeometry();
}
