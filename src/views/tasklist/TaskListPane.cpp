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
    const auto inset = [](QWidget *widget, const QMargins &margins) {
        auto *layout = new QVBoxLayout;
        layout->setContentsMargins(margins);
        layout->addWidget(widget);
        return layout;
    };
    constexpr int side = Metrics::margin;
    // The outline of the field stands in line with the rows, and so do their checkboxes.
    constexpr int fieldSide = Metrics::margin - KWNewTaskTextField::ring;
    constexpr int rowSide = Metrics::margin - Metrics::rowOutset;

    auto *column = new QVBoxLayout{this};
    column->setContentsMargins(0, Metrics::gap + Metrics::grid, 0, 0);
    column->setSpacing(Metrics::gap);
    column->addLayout(inset(m_header, {side, 0, side, 0}));
    column->addLayout(inset(m_addField, {fieldSide, 0, fieldSide, 0}));
    column->addLayout(inset(m_list, {rowSide, 0, rowSide, 0}), 1);
    setFocusProxy(m_list);
    connect(m_addField, &KWNewTaskTextField::steppedDown, m_list,
            [this] { m_list->setFocus(Qt::TabFocusReason); });
}

QStringList TaskListPane::unsavedTexts()
{
    const QString text = m_addField->text().trimmed();
    return text.isEmpty() || text == m_addField->presetContent().trimmed() ? QStringList{}
                                                                           : QStringList{text};
}
