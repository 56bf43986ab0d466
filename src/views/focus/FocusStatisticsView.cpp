#include "views/focus/FocusStatisticsView.h"

#include "model/settings/KWLocalizedString.h"
#include "model/text/DayText.h"
#include "views/controls/IconButton.h"
#include "views/controls/PlainLabel.h"
#include "views/controls/SegmentedControl.h"
#include "views/focus/FocusDaysChart.h"
#include "views/focus/FocusShareList.h"
#include "views/focus/FocusWording.h"
#include "views/theme/Metrics.h"
#include "views/wording/DateWording.h"

#include <QLabel>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

QLabel *makeStatisticsCaption(const QString &text)
{
    return makePlainLabel(text, Fonts::Role::CaptionStrong, QPalette::PlaceholderText);
}

void nameButton(IconButton &button, const QString &does)
{
    button.setAccessibleName(does);
    button.setToolTip(does);
}

} // namespace

FocusStatisticsView::FocusStatisticsView(QWidget *parent)
    : QWidget(parent)
    , m_kinds(new SegmentedControl{
          {KWLocalizedString("Day"), KWLocalizedString("Week"), KWLocalizedString("Month")}})
    , m_range(makePlainLabel({}, Fonts::Role::BodyStrong))
    , m_before(new IconButton{Icon::ChevronRight, {}})
    , m_after(new IconButton{Icon::ChevronRight, {}})
    , m_total(makePlainLabel({}, Fonts::Role::Secondary, QPalette::PlaceholderText))
    , m_days(new FocusDaysChart{"focusDays", KWLocalizedString("Days of the period")})
    , m_listsName(makeStatisticsCaption(KWLocalizedString("By list")))
    , m_lists(new FocusShareList{"focusLists", KWLocalizedString("Focus by list")})
    , m_tagsName(makeStatisticsCaption(KWLocalizedString("By tag")))
    , m_tags(new FocusShareList{"focusTags", KWLocalizedString("Focus by tag")})
{
    setObjectName(u"focusStatistics"_s);
    auto *column = new QVBoxLayout{this};
    column->setContentsMargins({});
    column->setSpacing(Metrics::grid * 2);
    column->addWidget(m_kinds, 0, Qt::AlignLeft);
    column->addLayout(makeHead());
    for (QWidget *each : QWidgetList{m_total, m_days, m_listsName, m_lists, m_tagsName, m_tags})
        column->addWidget(each);
    connect(m_kinds, &SegmentedControl::picked, this,
            [this](int kind) { Q_EMIT periodRequested({.kind = FocusPeriod::Kind(kind)}); });
    connect(m_before, &QAbstractButton::clicked, this, [this] { turn(-1); });
    connect(m_after, &QAbstractButton::clicked, this, [this] { turn(1); });
    nameSteps();
}

QLayout *FocusStatisticsView::makeHead()
{
    m_kinds->setObjectName(u"focusPeriods"_s);
    m_range->setObjectName(u"focusRange"_s);
    m_total->setObjectName(u"focusTotal"_s);
    m_before->setObjectName(u"focusPeriodBefore"_s);
    m_before->setMirrored(true);
    m_after->setObjectName(u"focusPeriodAfter"_s);
    auto *row = new QHBoxLayout;
    row->setSpacing(0);
    row->addWidget(m_range, 1);
    for (IconButton *each : {m_before, m_after}) {
        each->setAutoRepeat(true);
        row->addWidget(each);
    }
    return row;
}

void FocusStatisticsView::turn(int periods)
{
    FocusPeriod period = m_statistics.period;
    period.offset += periods;
    Q_EMIT periodRequested(period);
}

QString FocusStatisticsView::nameOfRange() const
{
    const FocusDays &range = m_statistics.range;
    switch (m_statistics.period.kind) {
    case FocusPeriod::Kind::OneDay:
        return DateWording::fullDay(range.first, locale());
    case FocusPeriod::Kind::Week: {
        const Day last = range.end - std::chrono::days{1};
        const bool isOfOneYear = dateOf(range.first).year() == dateOf(last).year();
        return KWLocalizedString("%1 – %2").arg(isOfOneYear ? DayText::dayAndMonth(range.first, locale())
                                                            : DayText::dayMonthAndYear(range.first, locale()),
                                                DayText::dayMonthAndYear(last, locale()));
    }
    case FocusPeriod::Kind::Month:
        return locale().toString(dateOf(range.first), u"MMMM yyyy"_s);
    }
    return {};
}

void FocusStatisticsView::nameSteps()
{
    const int kind = int(m_statistics.period.kind);
    nameButton(*m_before, QStringList{KWLocalizedString("Day before"), KWLocalizedString("Week before"),
                                      KWLocalizedString("Month before")}[kind]);
    nameButton(*m_after, QStringList{KWLocalizedString("Day after"), KWLocalizedString("Week after"),
                                     KWLocalizedString("Month after")}[kind]);
}

void FocusStatisticsView::setStatistics(const FocusStatistics &statistics, Day today)
{
    m_statistics = statistics;
    m_kinds->choose(int(statistics.period.kind));
    m_range->setText(nameOfRange());
    m_after->setEnabled(statistics.period.offset < 0);
    nameSteps();
    m_total->setText(
        KWLocalizedString("%1 in all, %2")
            .arg(FocusWording::length(statistics.focused), FocusWording::pomos(statistics.pomos)));
    m_days->setVisible(statistics.period.kind != FocusPeriod::Kind::OneDay);
    m_days->setDays(statistics.days, today);
    for (QWidget *each : QWidgetList{m_listsName, m_lists})
        each->setVisible(!statistics.lists.isEmpty());
    for (QWidget *each : QWidgetList{m_tagsName, m_tags})
        each->setVisible(!statistics.tags.isEmpty());
    m_lists->setShares(statistics.lists);
    m_tags->setShares(statistics.tags);
}
