#include "views/taskdetail/SubtaskList.h"

#include "model/records/OneLine.h"
#include "model/settings/KWLocalizedString.h"
#include "views/controls/QuietField.h"
#include "views/taskdetail/SubtaskRow.h"
#include "views/theme/Metrics.h"

#include <QVBoxLayout>

using namespace Qt::StringLiterals;

SubtaskList::SubtaskList(QWidget *parent)
    : QWidget(parent)
    , m_layout(new QVBoxLayout{this})
    , m_field(new QuietField{KWLocalizedString("Add a subtask"), Icon::Add, this})
{
    setObjectName(u"subtasks"_s);
    setAccessibleName(KWLocalizedString("Subtasks"));
    m_field->setObjectName(u"addSubtask"_s);
    m_layout->setContentsMargins({});
    m_layout->setSpacing(0);
    m_layout->addWidget(m_field);
    // Enter and leaving the field alike: what is typed is not lost.
    connect(m_field, &QLineEdit::editingFinished, this, &SubtaskList::commit);
}

SubtaskRow *SubtaskList::rowFor(const KWTaskModel &task)
{
    for (SubtaskRow *each : std::as_const(m_rows))
        if (each->taskID() == task.sid) return each;
    auto *row = new SubtaskRow{task.sid, this};
    connect(row, &SubtaskRow::toggled, this, [this, row] { Q_EMIT toggled(row->taskID()); });
    connect(row, &SubtaskRow::opened, this, [this, row] { Q_EMIT opened(row->taskID()); });
    return row;
}

void SubtaskList::setSubtasks(const QList<KWTaskModel> &subtasks)
{
    QList<SubtaskRow *> rows;
    for (const KWTaskModel &each : subtasks) {
        SubtaskRow *row = rowFor(each);
        row->setTask(each);
        if (m_layout->indexOf(row) != rows.size()) m_layout->insertWidget(int(rows.size()), row);
        rows.append(row);
    }
    for (SubtaskRow *each : std::as_const(m_rows)) {
        if (rows.contains(each)) continue;
        each->hide();
        each->deleteLater();
    }
    m_rows = rows;
}

void SubtaskList::setTakesMore(bool takesMore) { m_field->setVisible(takesMore); }

void SubtaskList::commit()
{
    if (const QString title = typedText(); !title.isEmpty()) Q_EMIT added(title);
}

void SubtaskList::clearField() { m_field->clear(); }

QString SubtaskList::typedText() const { return onOneLine(m_field->text()); }

void SubtaskList::retype(const QString &text) { m_field->setText(text); }

void SubtaskList::dress()
{
    for (SubtaskRow *each : std::as_const(m_rows))
        each->dress();
}
