#include "views/filtereditor/DateSpanEdit.h"

#include "model/settings/KWLocalizedString.h"
#include "views/filtereditor/ChoicesButton.h"
#include "views/theme/Metrics.h"
#include "views/wording/CalendarDay.h"

#include <QDateEdit>
#include <QHBoxLayout>
#include <QLabel>
#include <QSpinBox>

using namespace Qt::StringLiterals;
using Kind = CXDateSpan::Kind;

namespace {

const QDate openEnd{1752, 9, 14};

QString idOf(Kind kind) { return QString::number(int(kind)); }

QList<ChoicesButton::Choice> dateChoices()
{
    const std::pair<Kind, const char *> names[]{
        {Kind::Overdue, "Overdue"},        {Kind::Today, "Today"},
        {Kind::Tomorrow, "Tomorrow"},      {Kind::ThisWeek, "This Week"},
        {Kind::Next7Days, "Next 7 Days"},  {Kind::Relative, "Days from Today"},
        {Kind::Fixed, "Between Two Days"}, {Kind::Any, "Any Date"},
        {Kind::None, "No Date"},           {Kind::Repeats, "Repeats"}};
    QList<ChoicesButton::Choice> choices;
    for (const auto &[kind, name] : names)
        choices.append({idOf(kind), KWLocalizedString(name)});
    return choices;
}

QSpinBox *makeDays(const char *name, const QString &does)
{
    auto *days = new QSpinBox;
    days->setObjectName(QLatin1StringView{name});
    days->setAccessibleName(does);
    days->setRange(-CXDateSpan::farthest, CXDateSpan::farthest);
    days->setButtonSymbols(QAbstractSpinBox::NoButtons);
    return days;
}

// At its lowest date it says that there is no end.
QDateEdit *makeDay(const char *name, const QString &does, Day today)
{
    auto *day = new QDateEdit{dateOf(today)};
    day->setObjectName(QLatin1StringView{name});
    day->setAccessibleName(does);
    day->setMinimumDate(openEnd);
    day->setSpecialValueText(DateSpanEdit::tr("open"));
    day->setToolTip(DateSpanEdit::tr("Page Down until “open” takes this end away."));
    day->setButtonSymbols(QAbstractSpinBox::NoButtons);
    return day;
}

QHBoxLayout *rowIn(QWidget &widget)
{
    auto *row = new QHBoxLayout{&widget};
    row->setContentsMargins({});
    row->setSpacing(Metrics::grid);
    return row;
}

} // namespace

DateSpanEdit::DateSpanEdit(Day today, QWidget *parent)
    : QWidget(parent)
    , m_choices(new ChoicesButton{tr("Choose dates"), dateChoices()})
    , m_relative(makeRelative())
    , m_fixed(makeFixed(today))
{
    m_choices->setObjectName(u"dateChoices"_s);
    setFocusProxy(m_choices);
    auto *column = new QVBoxLayout{this};
    column->setContentsMargins({});
    column->setSpacing(Metrics::grid);
    for (QWidget *each : {static_cast<QWidget *>(m_choices), m_relative, m_fixed})
        column->addWidget(each, 0, Qt::AlignLeft);
    connect(m_choices, &ChoicesButton::changed, this, &DateSpanEdit::showParts);
    connect(m_choices, &ChoicesButton::changed, this, &DateSpanEdit::changed);
    showParts();
}

QWidget *DateSpanEdit::makeRelative()
{
    auto *part = new QWidget;
    m_first = makeDays("firstDay", tr("First day, counted from today"));
    m_last = makeDays("lastDay", tr("Last day, counted from today"));
    m_last->setValue(7);
    m_last->setSuffix(tr(" days"));
    QHBoxLayout *row = rowIn(*part);
    row->addWidget(m_first);
    row->addWidget(new QLabel{tr("to")});
    row->addWidget(m_last);
    for (const QSpinBox *each : {m_first, m_last})
        connect(each, &QSpinBox::valueChanged, this, &DateSpanEdit::changed);
    return part;
}

QWidget *DateSpanEdit::makeFixed(Day today)
{
    auto *part = new QWidget;
    m_from = makeDay("fromDay", tr("First day"), today);
    m_until = makeDay("untilDay", tr("Last day"), today);
    QHBoxLayout *row = rowIn(*part);
    row->addWidget(m_from);
    row->addWidget(new QLabel{tr("to")});
    row->addWidget(m_until);
    for (const QDateEdit *each : {m_from, m_until})
        connect(each, &QDateEdit::dateChanged, this, &DateSpanEdit::changed);
    return part;
}

void DateSpanEdit::showParts()
{
    m_relative->setVisible(m_choices->isChosen(idOf(Kind::Relative)));
    m_fixed->setVisible(m_choices->isChosen(idOf(Kind::Fixed)));
}

CXDateSpan DateSpanEdit::relative() const { return CXDateSpan::relative(m_first->value(), m_last->value()); }

CXDateSpan DateSpanEdit::fixed() const
{
    const auto dayIn = [](const QDateEdit &edit) -> std::optional<Day> {
        return edit.date() == openEnd ? std::nullopt : std::optional{dayOf(edit.date())};
    };
    return CXDateSpan::fixed({dayIn(*m_from), dayIn(*m_until)});
}

CXSmartFilterCondition::Dates DateSpanEdit::dates() const
{
    CXSmartFilterCondition::Dates dates;
    for (const QString &each : m_choices->chosen()) {
        const auto kind = Kind(each.toInt());
        dates.spans.append(kind == Kind::Relative ? relative()
                           : kind == Kind::Fixed  ? fixed()
                                                  : CXDateSpan{.kind = kind});
    }
    dates.spans += m_more;
    return dates;
}

void DateSpanEdit::setDates(const CXSmartFilterCondition::Dates &dates)
{
    QStringList ids;
    for (const CXDateSpan &each : dates.spans) {
        const bool isShownAlready = ids.contains(idOf(each.kind));
        if (isShownAlready) {
            m_more.append(each);
            continue;
        }
        ids.append(idOf(each.kind));
        if (each.kind == Kind::Relative) {
            m_first->setValue(each.first);
            m_last->setValue(each.last);
        } else if (each.kind == Kind::Fixed) {
            m_from->setDate(each.range.from ? dateOf(*each.range.from) : openEnd);
            m_until->setDate(each.range.until ? dateOf(*each.range.until) : openEnd);
        }
    }
    m_choices->setChosen(ids);
}

QString DateSpanEdit::problem() const
{
    if (dates().spans.isEmpty()) return tr("Choose dates for the condition.");
    for (const CXDateSpan &each : dates().spans) {
        if (each.kind == Kind::Relative && each.first > each.last)
            return tr("The first day comes after the last.");
        if (each.kind != Kind::Fixed) continue;
        if (!each.range.from && !each.range.until) return tr("Choose a first or a last day.");
        if (each.range.from && each.range.until && *each.range.from > *each.range.until)
            return tr("The first day comes after the last.");
    }
    return {};
}

QList<QWidget *> DateSpanEdit::controls() const { return {m_choices, m_first, m_last, m_from, m_until}; }
