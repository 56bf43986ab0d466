#include "views/habits/HabitTodayCard.h"

#include "habits/HabitWording.h"
#include "model/settings/KWLocalizedString.h"
#include "views/controls/PillButton.h"
#include "views/controls/PlainLabel.h"
#include "views/theme/Metrics.h"
#include "views/theme/Painting.h"
#include "views/theme/Theme.h"

#include <QLabel>
#include <QPainter>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

HabitTodayCard::HabitTodayCard(QWidget *parent)
    : QFrame(parent)
    , m_value(makePlainLabel({}, Fonts::Role::PageTitle))
    , m_words(makePlainLabel({}, Fonts::Role::Body, QPalette::PlaceholderText))
    , m_less(new PillButton{u"−"_s, PillButton::Look::Outlined})
    , m_more(new PillButton{{}, PillButton::Look::Filled})
{
    setObjectName(u"habitToday"_s);
    m_value->setObjectName(u"habitTodayValue"_s);
    m_value->setWordWrap(false);
    m_words->setObjectName(u"habitTodayWords"_s);
    m_less->setObjectName(u"habitLess"_s);
    m_less->setAccessibleName(KWLocalizedString("One step less"));
    m_less->setAutoRepeat(true);
    m_more->setObjectName(u"habitMore"_s);
    auto *row = new QHBoxLayout;
    row->setSpacing(Metrics::grid * 2);
    row->addWidget(m_value);
    row->addWidget(m_words, 1);
    row->addWidget(m_less);
    row->addWidget(m_more);
    auto *column = new QVBoxLayout{this};
    column->setContentsMargins(Metrics::gap + 2, Metrics::gap, Metrics::gap, Metrics::gap);
    column->setSpacing(Metrics::grid);
    column->addWidget(
        makePlainLabel(KWLocalizedString("Today"), Fonts::Role::Secondary, QPalette::PlaceholderText));
    column->addLayout(row);
    connect(m_less, &QAbstractButton::clicked, this, [this] { Q_EMIT checkRequested(m_day, true); });
    connect(m_more, &QAbstractButton::clicked, this, [this] { Q_EMIT checkRequested(m_day, m_takesBack); });
}

void HabitTodayCard::setDay(const KWHabitModel &habit, const HabitDay &day)
{
    m_day = day.day;
    m_value->setVisible(habit.isRealType);
    m_less->setVisible(habit.isRealType);
    m_takesBack = !habit.isRealType && day.state == HabitDayState::Done;
    if (habit.isRealType)
        showAmount(habit, day);
    else
        showDone(day);
}

void HabitTodayCard::showAmount(const KWHabitModel &habit, const HabitDay &day)
{
    const QLocale locale;
    m_value->setText(HabitWording::amount(day.value, locale));
    QString words =
        KWLocalizedString("of %1").arg(HabitWording::amountWithUnit(day.goal, habit.unit, locale));
    if (day.state == HabitDayState::Skipped) words += u", "_s + KWLocalizedString("skipped");
    if (day.state == HabitDayState::UnAchieved) words += u", "_s + KWLocalizedString("not achieved");
    m_words->setText(words);
    m_less->setEnabled(day.value > 0);
    m_more->setLook(PillButton::Look::Filled);
    m_more->setLabel(KWLocalizedString("+ %1").arg(HabitWording::amount(habit.step, locale)));
    m_more->setAccessibleName(
        KWLocalizedString("Add %1").arg(HabitWording::amountWithUnit(habit.step, habit.unit, locale)));
}

void HabitTodayCard::showDone(const HabitDay &day)
{
    const bool isDone = day.state == HabitDayState::Done;
    m_words->setText(isDone                                   ? KWLocalizedString("Done")
                     : day.state == HabitDayState::Skipped    ? KWLocalizedString("Skipped")
                     : day.state == HabitDayState::UnAchieved ? KWLocalizedString("Not achieved")
                     : day.isDue                              ? KWLocalizedString("Not done yet")
                                                              : KWLocalizedString("Not due"));
    m_more->setLook(isDone ? PillButton::Look::Outlined : PillButton::Look::Filled);
    m_more->setLabel(isDone ? KWLocalizedString("Not Done") : KWLocalizedString("Done"));
}

void HabitTodayCard::paintEvent(QPaintEvent *)
{
    QPainter painter{this};
    Painting::roundedBox(painter, rect(), Metrics::popupRadius, Theme::current().sidebar);
}
