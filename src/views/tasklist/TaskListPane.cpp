#include "views/tasklist/TaskListPane.h"

#include "views/addfield/KWNewTaskTextField.h"
#include "views/tasklist/PageHeader.h"
#include "views/tasklist/TaskListView.h"
#include "views/theme/Metrics.h"

#include <QVBoxLayout>

TaskListPane::TaskListPane(CXClock &clock, QWidget *parent)
    : QWidget(parent)
    , m_model(clock)
    , m_header(new PageHeader)
    , m_addField(new KWNewTaskTextField)
    , m_list(new TaskListView{m_model})
{
    setObjectName(QStringLiteral("taskListPane"));
    auto *head = new QVBoxLayout;
    head->setContentsMargins(Metrics::margin, Metrics::gap + Metrics::grid, Metrics::margin, Metrics::gap);
    head->setSpacing(Metrics::gap);
    head->addWidget(m_header);
    // The outline of the field stands in line with the rows; its ring stands out.
    auto *field = new QVBoxLayout;
    field->setContentsMargins(-KWNewTaskTextField::ring, 0, -KWNewTaskTextField::ring, 0);
    field->addWidget(m_addField);
    head->addLayout(field);

    auto *column = new QVBoxLayout{this};
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addLayout(head);
    auto *rows = new QVBoxLayout;
    constexpr int side = Metrics::margin - Metrics::rowOutset;
    rows->setContentsMargins(side, 0, side, 0);
    rows->addWidget(m_list);
    column->addLayout(rows, 1);
}
