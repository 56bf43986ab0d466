#include "views/datepicker/RepeatRows.h"

#include "model/settings/KWLocalizedString.h"
#include "model/text/DayText.h"
#include "model/text/RuleWording.h"
#include "views/wording/CalendarDay.h"

#include <QComboBox>
#include <QDateEdit>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QLocale>
#include <QSpinBox>
#include <QVBoxLayout>

#include <array>

using namespace Qt::StringLiterals;

namespace {

using Frequency = CXRecurrenceRule::Frequency;

constexpr int none = 0;
constexpr int weekdays = 2;
constexpr int own = 6;
constexpr std::array frequencies{Frequency::Daily, Frequency::Weekly, Frequency::Weekly, Frequency::Monthly,
                                 Frequency::Yearly}; // of the choices from 1 on

enum End { Never, AfterCount, OnDay };

CXRecurrenceRule usualRule(int index)
{
    CXRecurrenceRule rule;
    rule.frequency = frequencies.at(std::size_t(index - 1));
    if (index != weekdays) return rule;
    return *CXRecurrenceRule::parse(u"FREQ=WEEKLY;BYDAY=MO,TU,WE,TH,FR");
}

int indexOf(CXRecurrenceRule rule)
{
    rule.count.reset();
    rule.until.reset();
    for (int index = 1; index < own; ++index)
        if (rule == usualRule(index)) return index;
    return own;
}

QString plainText(CXRecurrenceRule rule)
{
    rule.count.reset();
    rule.until.reset();
    return rule.toIcal().remove(u"RRULE:"_s);
}

std::optional<Day> lastDay(const CXRecurrenceRule &rule)
{
    if (!rule.until) return std::nullopt;
    if (const Day *day = std::get_if<Day>(&*rule.until)) return *day;
    if (const LocalTime *time = std::get_if<LocalTime>(&*rule.until))
        return std::chrono::floor<std::chrono::days>(*time);
    return Day{std::chrono::floor<std::chrono::days>(std::get<Instant>(*rule.until)).time_since_epoch()};
}

} // namespace

RepeatRows::RepeatRows(ReadRule readRule, QWidget *parent)
    : QWidget(parent)
    , m_readRule(std::move(readRule))
    , m_usual(new QComboBox{this})
    , m_own(new QLineEdit{this})
    , m_from(new QComboBox)
    , m_end(new QComboBox)
    , m_count(new QSpinBox)
    , m_until(new QDateEdit)
    , m_more(new QWidget{this})
{
    const auto name = [](QWidget *widget, const char *objectName, const QString &accessibleName) {
        widget->setObjectName(QLatin1StringView{objectName});
        widget->setAccessibleName(accessibleName);
    };
    name(m_usual, "repeat", KWLocalizedString("Repeat"));
    name(m_own, "repeatRule", KWLocalizedString("Rule to repeat by"));
    name(m_from, "repeatFrom", KWLocalizedString("Counted from"));
    name(m_end, "repeatEnd", KWLocalizedString("End of the repeat"));
    name(m_count, "repeatCount", KWLocalizedString("How many times"));
    name(m_until, "repeatUntil", KWLocalizedString("Last day"));
    m_own->setPlaceholderText(KWLocalizedString("every 2 weeks"));
    m_from->addItem(KWLocalizedString("From the due date"), int(CXRecurrenceFromDueDate));
    m_from->addItem(KWLocalizedString("From the completion"), int(CXRecurrenceFromCompletionDate));
    m_end->addItems({KWLocalizedString("Without an end"), KWLocalizedString("So many times"),
                     KWLocalizedString("Until a day")});
    m_count->setRange(1, 999);
    m_until->setDisplayFormat(QLocale{}.dateFormat(QLocale::ShortFormat));
    for (QAbstractSpinBox *each :
         {static_cast<QAbstractSpinBox *>(m_count), static_cast<QAbstractSpinBox *>(m_until)})
        each->setButtonSymbols(QAbstractSpinBox::NoButtons);

    auto *more = new QVBoxLayout{m_more};
    more->setContentsMargins({});
    more->addWidget(m_from);
    auto *end = new QHBoxLayout;
    end->addWidget(m_end, 1);
    end->addWidget(m_count);
    end->addWidget(m_until);
    more->addLayout(end);
    auto *column = new QVBoxLayout{this};
    column->setContentsMargins({});
    column->addWidget(m_usual);
    column->addWidget(m_own);
    column->addWidget(m_more);

    connect(m_usual, &QComboBox::activated, this, &RepeatRows::choose);
    connect(m_own, &QLineEdit::textEdited, this, &RepeatRows::readTyped);
    connect(m_from, &QComboBox::activated, this, &RepeatRows::announce);
    connect(m_end, &QComboBox::activated, this, &RepeatRows::readEnd);
    connect(m_count, &QSpinBox::valueChanged, this, &RepeatRows::readEnd);
    connect(m_until, &QDateEdit::dateChanged, this, &RepeatRows::readEnd);
}

void RepeatRows::nameUsualRules(Day day)
{
    const QLocale locale;
    const QDate date = dateOf(day);
    const int index = std::max(0, m_usual->currentIndex());
    m_usual->clear();
    m_usual->addItems({KWLocalizedString("Never"), KWLocalizedString("Every day"),
                       KWLocalizedString("Monday to Friday"),
                       KWLocalizedString("Every week on %1").arg(locale.standaloneDayName(date.dayOfWeek())),
                       KWLocalizedString("Every month on day %1").arg(date.day()),
                       KWLocalizedString("Every year on %1").arg(DayText::dayAndMonth(day, locale)),
                       KWLocalizedString("A rule of my own…")});
    m_usual->setCurrentIndex(index);
}

void RepeatRows::setRepeat(const QString &rule, CXRecurrenceFrom from, Day day)
{
    m_day = day;
    nameUsualRules(day);
    m_from->setCurrentIndex(from == CXRecurrenceFromCompletionDate ? 1 : 0);
    showRule(rule);
}

void RepeatRows::setDay(Day day)
{
    m_day = day;
    nameUsualRules(day);
}

QString RepeatRows::words(const CXTimeZone &zone) const
{
    return m_rule && m_usual->currentIndex() == own ? RuleWording::words(*m_rule, zone, QLocale{})
                                                    : QString{};
}

void RepeatRows::showRule(const QString &rule)
{
    m_rule.reset();
    m_problem.clear();
    m_own->clear();
    int index = none;
    if (!rule.isEmpty()) {
        const Result<CXRecurrenceRule> read = CXRecurrenceRule::parse(rule);
        index = read ? indexOf(*read) : own;
        m_own->setText(read ? plainText(*read) : rule);
        if (read)
            m_rule = *read;
        else
            m_problem = read.error().sentence;
    }
    m_usual->setCurrentIndex(index);
    showEnd();
    showRows();
}

void RepeatRows::showEnd()
{
    const QSignalBlocker noCount{m_count}, noDay{m_until};
    m_until->setMinimumDate(dateOf(m_day));
    const std::optional<Day> last = m_rule ? lastDay(*m_rule) : std::nullopt;
    if (m_rule && m_rule->count) m_count->setValue(*m_rule->count);
    m_until->setDate(dateOf(last.value_or(m_day + std::chrono::days{30})));
    m_end->setCurrentIndex(m_rule && m_rule->count ? AfterCount : last ? OnDay : Never);
}

void RepeatRows::showRows()
{
    m_own->setVisible(m_usual->currentIndex() == own);
    m_more->setVisible(m_usual->currentIndex() != none);
    m_count->setVisible(m_end->currentIndex() == AfterCount);
    m_until->setVisible(m_end->currentIndex() == OnDay);
}

void RepeatRows::choose(int index)
{
    m_problem.clear();
    if (index == own) {
        showRows();
        m_own->setFocus();
        m_own->selectAll();
        if (m_own->text().isEmpty() && m_rule) m_own->setText(plainText(*m_rule));
        return readTyped();
    }
    m_rule = index == none ? std::nullopt : std::optional{usualRule(index)};
    readEnd();
}

void RepeatRows::readTyped()
{
    m_problem.clear();
    m_rule.reset();
    const Result<QString> read = m_readRule(m_own->text());
    if (!read) {
        m_problem = read.error().sentence;
        return announce();
    }
    m_rule = *CXRecurrenceRule::parse(*read);
    if (m_rule->count || m_rule->until) showEnd();
    readEnd();
}

void RepeatRows::readEnd()
{
    if (m_rule) {
        m_rule->count.reset();
        m_rule->until.reset();
        if (m_end->currentIndex() == AfterCount) m_rule->count = m_count->value();
        if (m_end->currentIndex() == OnDay) m_rule->until = dayOf(m_until->date());
    }
    announce();
}

void RepeatRows::announce()
{
    showRows();
    Q_EMIT repeatChanged(m_rule ? m_rule->toIcal() : QString{},
                         CXRecurrenceFrom(m_from->currentData().toInt()));
}
