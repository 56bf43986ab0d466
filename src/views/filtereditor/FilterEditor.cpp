#include "views/filtereditor/FilterEditor.h"

#include "model/settings/KWLocalizedString.h"
#include "views/controls/AddButton.h"
#include "views/controls/PlainLabel.h"
#include "views/filtereditor/ConditionRow.h"
#include "views/theme/Metrics.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScreen>
#include <QScrollArea>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

using Condition = CXSmartFilterCondition;
constexpr QSize editorSize{640, 440};

// The conditions that stand in rows, and how they are joined.
Condition::Group groupOf(const Condition &condition)
{
    const auto *group = std::get_if<Condition::Group>(&condition.question());
    if (group && !condition.isNegated()) return *group;
    return {Condition::Group::Join::All, {condition}};
}

} // namespace

FilterEditor::FilterEditor(const Content &content, FilterChoices choices, Day today, QWidget *parent)
    : QDialog(parent)
    , m_choices(std::move(choices))
    , m_today(today)
    , m_name(new QLineEdit{content.name})
    , m_join(new QComboBox)
    , m_rowsLayout(new QVBoxLayout)
    , m_area(new QScrollArea)
    , m_countLabel(makePlainLabel({}, Fonts::Role::Secondary, QPalette::PlaceholderText))
    , m_message(makeProblemLine("filterMessage"))
{
    setObjectName(u"filterEditor"_s);
    setAttribute(Qt::WA_QuitOnClose, false);
    setWindowTitle(content.name.isEmpty() ? tr("New Filter") : tr("Filter “%1”").arg(content.name));
    m_name->setObjectName(u"filterName"_s);
    m_name->setAccessibleName(tr("Name of the filter"));
    m_name->setPlaceholderText(tr("Name"));
    connect(m_name, &QLineEdit::textEdited, this, &FilterEditor::changed);

    const Condition::Group group = groupOf(content.filter.condition());
    m_join->setObjectName(u"filterJoin"_s);
    m_join->setAccessibleName(tr("How the conditions are joined"));
    m_join->addItems({tr("All of these fit"), tr("Any of these fits")});
    m_join->setCurrentIndex(group.join == Condition::Group::Join::All ? 0 : 1);
    connect(m_join, &QComboBox::activated, this, &FilterEditor::changed);

    auto *add = new AddButton{tr("Add Condition")};
    add->setObjectName(u"addCondition"_s);
    m_buttons.append(add);
    connect(add, &QAbstractButton::clicked, this, [this] {
        addRow(Condition{Condition::Dates{}});
        m_rows.last()->focusOnValue();
        changed();
    });
    auto *rows = new QWidget;
    auto *rowsColumn = new QVBoxLayout{rows};
    rowsColumn->setContentsMargins({});
    m_rowsLayout->setSpacing(Metrics::grid);
    rowsColumn->addLayout(m_rowsLayout);
    rowsColumn->addWidget(add);
    rowsColumn->addStretch(1);
    m_area->setFrameShape(QFrame::NoFrame);
    m_area->setWidgetResizable(true);
    m_area->setFocusPolicy(Qt::NoFocus);
    m_area->setWidget(rows);

    auto *column = new QVBoxLayout{this};
    column->setContentsMargins(Metrics::margin, Metrics::margin, Metrics::margin, Metrics::margin);
    column->setSpacing(Metrics::gap);
    column->addWidget(m_name);
    column->addWidget(m_join, 0, Qt::AlignLeft);
    column->addWidget(m_area, 1);
    column->addWidget(m_message);
    column->addLayout(makeFooter());
    for (const Condition &each : group.parts)
        addRow(each);
    const QSize wanted{Metrics::scaled(editorSize.width()), Metrics::scaled(editorSize.height())};
    resize(wanted.boundedTo(screen()->availableSize()));
    m_name->setFocus();
}

QLayout *FilterEditor::makeFooter()
{
    m_countLabel->setObjectName(u"filterCount"_s);
    auto *cancel = new QPushButton{KWLocalizedString("Cancel")};
    cancel->setObjectName(u"cancelFilter"_s);
    cancel->setAutoDefault(false);
    connect(cancel, &QPushButton::clicked, this, [this] { done(Rejected); });
    auto *keep = new QPushButton{tr("Save")};
    keep->setObjectName(u"saveFilter"_s);
    keep->setDefault(true);
    connect(keep, &QPushButton::clicked, this, &FilterEditor::save);
    for (QPushButton *each : {cancel, keep}) {
        each->setAccessibleName(each->text());
        m_buttons.append(each);
    }
    auto *footer = new QHBoxLayout;
    footer->addWidget(m_countLabel, 1);
    footer->addWidget(cancel);
    footer->addWidget(keep);
    return footer;
}

void FilterEditor::addRow(const CXSmartFilterCondition &condition)
{
    auto *row = new ConditionRow{condition, m_choices, m_today};
    connect(row, &ConditionRow::changed, this, &FilterEditor::changed);
    connect(row, &ConditionRow::removalRequested, this, [this, row] { removeRow(row); });
    connect(row, &ConditionRow::controlsChanged, this, &FilterEditor::orderTabs);
    m_rowsLayout->addWidget(row);
    row->show(); // now, and not from the event loop: the focus goes into it
    m_rows.append(row);
    orderTabs();
}

void FilterEditor::orderTabs()
{
    QWidget *last = m_join;
    const auto follow = [&last](const QList<QWidget *> &controls) {
        for (QWidget *each : controls) {
            setTabOrder(last, each);
            last = each;
        }
    };
    for (const ConditionRow *each : std::as_const(m_rows))
        follow(each->controls());
    follow(m_buttons);
}

void FilterEditor::removeRow(ConditionRow *row)
{
    m_rows.removeOne(row);
    row->hide();
    row->deleteLater(); // its button is still on the stack
    m_rows.isEmpty() ? m_join->setFocus() : m_rows.last()->focusOnValue();
    changed();
}

FilterEditor::Content FilterEditor::content() const
{
    const bool all = m_join->currentIndex() == 0;
    Condition::Group group{all ? Condition::Group::Join::All : Condition::Group::Join::Any, {}};
    for (const ConditionRow *each : m_rows)
        group.parts.push_back(each->condition());
    // Any of nothing would be no filter.
    if (group.parts.empty()) group.join = Condition::Group::Join::All;
    return {m_name->text(), CXSmartFilter{Condition{std::move(group)}}};
}

void FilterEditor::setCount(const std::function<Result<int>(const CXSmartFilter &)> &count)
{
    m_count = count;
    refreshCount();
}

void FilterEditor::changed()
{
    m_isChanged = true;
    m_hasWarned = false;
    m_message->hide();
    refreshCount();
}

void FilterEditor::refreshCount()
{
    if (!m_count) return;
    const bool isWhole = std::ranges::all_of(m_rows, &QString::isEmpty, &ConditionRow::problem);
    const Result<int> count = isWhole ? m_count(content().filter) : Result<int>{0};
    if (!count) return showProblem(count.error().sentence);
    m_countLabel->setText(!isWhole      ? QString{}
                          : *count == 1 ? tr("1 task fits")
                                        : tr("%1 tasks fit").arg(QLocale{}.toString(*count)));
}

void FilterEditor::reject()
{
    if (m_isChanged && !std::exchange(m_hasWarned, true))
        return showProblem(tr("This is not saved. Press Escape once more to leave it."));
    QDialog::reject();
}

void FilterEditor::save()
{
    if (m_name->text().simplified().isEmpty()) {
        m_name->setFocus();
        return showProblem(tr("A filter needs a name."));
    }
    for (ConditionRow *each : std::as_const(m_rows)) {
        const QString problem = each->problem();
        if (problem.isEmpty()) continue;
        m_area->ensureWidgetVisible(each);
        each->focusOnValue();
        return showProblem(problem);
    }
    Q_EMIT saveRequested();
}

void FilterEditor::showProblem(const QString &sentence) { sayIn(*m_message, sentence); }
