#include "views/habits/HabitFrequencyPage.h"

#include "habits/HabitWording.h"
#include "model/settings/KWLocalizedString.h"
#include "views/controls/PaintedButton.h"
#include "views/controls/PlainLabel.h"
#include "views/controls/SegmentedControl.h"
#include "views/controls/Stepper.h"
#include "views/theme/Fonts.h"
#include "views/theme/Metrics.h"
#include "views/theme/Painting.h"
#include "views/theme/Theme.h"

#include <QLabel>
#include <QLocale>
#include <QPainter>
#include <QStackedWidget>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

constexpr int weekdaySide = 38;
constexpr int firstInterval = 2;
constexpr int firstTimes = 5;
constexpr std::uint64_t everyWeekday = 0x7f;

// A day of the week that is on or off.
class WeekdayButton : public PaintedButton {
public:
    explicit WeekdayButton(std::chrono::weekday day)
    {
        const QLocale locale;
        setText(locale.standaloneDayName(int(day.iso_encoding()), QLocale::ShortFormat));
        setAccessibleName(locale.standaloneDayName(int(day.iso_encoding()), QLocale::LongFormat));
        setObjectName(u"habitWeekday%1"_s.arg(day.c_encoding()));
        setCheckable(true);
        setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    }

    QSize sizeHint() const override
    {
        return {std::max(Metrics::scaled(weekdaySide), Fonts::width(Fonts::Role::Secondary, text()) + 14),
                Metrics::scaled(weekdaySide)};
    }

protected:
    Ring ring() const override { return {QRectF{rect()}, Metrics::rowRadius + 2.0}; }

    void paintContent(QPainter &painter) override
    {
        const Theme &theme = Theme::current();
        const QRect box = rect().adjusted(3, 3, -3, -3);
        Painting::roundedBox(painter, box, Metrics::rowRadius,
                             isChecked()    ? theme.accent
                             : underMouse() ? theme.hover
                                            : theme.window,
                             isChecked() ? theme.accent : theme.control);
        painter.setPen(isChecked() ? theme.onAccent : theme.text);
        Fonts::drawLine(painter, Fonts::Role::Secondary, box, Qt::AlignHCenter, text());
    }
};

} // namespace

HabitFrequencyPage::HabitFrequencyPage(const QString &repeatRule, std::chrono::weekday firstWeekday,
                                       QWidget *parent)
    : QWidget(parent)
    , m_rule(repeatRule)
    , m_firstWeekday(firstWeekday)
    , m_kind(
          new SegmentedControl{{KWLocalizedString("Habit_Freq_Daily"), KWLocalizedString("Habit_Freq_Weekly"),
                                KWLocalizedString("Habit_Freq_Repeat")}})
    , m_pages(new QStackedWidget)
    , m_times(new Stepper{"habitTimes", KWLocalizedString("Days per week"), 1, 7})
    , m_timesWords(makePlainLabel({}, Fonts::Role::Body))
    , m_interval(
          new Stepper{"habitInterval", KWLocalizedString("Days from one to the next"), 1, greatestInterval})
    , m_dailyWords(makePlainLabel({}, Fonts::Role::Secondary, QPalette::PlaceholderText))
{
    m_kind->setObjectName(u"habitFrequencyKind"_s);
    const HabitFrequency given = HabitFrequency::ofRule(repeatRule);
    for (QWidget *page : {makeDaily(), makeWeekly(), makeRepeat()})
        m_pages->addWidget(page);
    const bool isEveryDay = given.kind != HabitFrequency::Kind::Daily || given.weekdays.isEmpty();
    for (int day = 0; day < 7; ++day)
        m_weekdays[std::size_t(day)]->setChecked(isEveryDay || given.weekdays.contains(day));
    m_times->setValue(given.kind == HabitFrequency::Kind::Weekly ? given.timesInWeekly : firstTimes);
    m_interval->setValue(given.kind == HabitFrequency::Kind::Repeat ? given.interval : firstInterval);
    m_kind->choose(int(given.kind));
    m_pages->setCurrentIndex(int(given.kind));

    auto *column = new QVBoxLayout{this};
    column->setContentsMargins({});
    column->setSpacing(Metrics::grid * 2);
    column->addWidget(m_kind, 0, Qt::AlignLeft);
    column->addWidget(m_pages);
    connect(m_kind, &SegmentedControl::picked, this, [this](int kind) {
        m_pages->setCurrentIndex(kind);
        touch();
    });
    for (QAbstractButton *each : m_weekdays)
        connect(each, &QAbstractButton::clicked, this, &HabitFrequencyPage::touch);
    for (const Stepper *each : {m_times, m_interval})
        connect(each, &Stepper::valueChanged, this, &HabitFrequencyPage::touch);
    showWords();
}

QWidget *HabitFrequencyPage::makeDaily()
{
    auto *page = new QWidget;
    auto *days = new QHBoxLayout;
    days->setSpacing(0);
    for (int i = 0; i < 7; ++i) {
        const std::chrono::weekday each = m_firstWeekday + std::chrono::days{i};
        m_weekdays[each.c_encoding()] = new WeekdayButton{each};
        days->addWidget(m_weekdays[each.c_encoding()]);
    }
    days->addStretch(1);
    auto *column = new QVBoxLayout{page};
    column->setContentsMargins({});
    column->setSpacing(Metrics::grid);
    column->addWidget(
        makePlainLabel(KWLocalizedString("Pick days"), Fonts::Role::Secondary, QPalette::PlaceholderText));
    column->addLayout(days);
    m_dailyWords->setObjectName(u"habitDailyWords"_s);
    column->addWidget(m_dailyWords);
    return page;
}

QWidget *HabitFrequencyPage::makeWeekly()
{
    auto *page = new QWidget;
    m_timesWords->setObjectName(u"habitTimesWords"_s);
    auto *row = new QHBoxLayout{page};
    row->setContentsMargins({});
    row->addWidget(m_times);
    row->addWidget(m_timesWords, 1);
    return page;
}

QWidget *HabitFrequencyPage::makeRepeat()
{
    auto *page = new QWidget;
    auto *row = new QHBoxLayout{page};
    row->setContentsMargins({});
    for (const char *text : {"Every", "Days"}) {
        QLabel *words = makePlainLabel(KWLocalizedString(text), Fonts::Role::Body);
        words->setWordWrap(false);
        row->addWidget(words);
        if (row->count() == 1) row->addWidget(m_interval);
    }
    row->addStretch(1);
    return page;
}

HabitFrequency HabitFrequencyPage::frequency() const
{
    HabitFrequency chosen{.kind = HabitFrequency::Kind(m_kind->chosen())};
    switch (chosen.kind) {
    case HabitFrequency::Kind::Daily:
        for (int day = 0; day < 7; ++day)
            if (m_weekdays[std::size_t(day)]->isChecked()) chosen.weekdays.insert(day);
        if (chosen.weekdays.bits() == everyWeekday) chosen.weekdays = {};
        break;
    case HabitFrequency::Kind::Weekly:
        chosen.timesInWeekly = m_times->value();
        break;
    case HabitFrequency::Kind::Repeat:
        chosen.interval = m_interval->value();
        break;
    }
    return chosen;
}

QString HabitFrequencyPage::repeatRule() const { return m_isTouched ? frequency().toRule() : m_rule; }

void HabitFrequencyPage::touch()
{
    m_isTouched = true;
    showWords();
    Q_EMIT changed();
}

void HabitFrequencyPage::showWords()
{
    m_timesWords->setText(HabitWording::daysPerWeek(m_times->value()));
    HabitFrequency daily = frequency();
    if (daily.kind == HabitFrequency::Kind::Daily)
        m_dailyWords->setText(HabitWording::frequency(daily, m_firstWeekday, locale()));
}
