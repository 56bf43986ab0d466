#include "views/focus/KWStopwatchConfirmViewController.h"

#include "focus/StopwatchLength.h"
#include "model/settings/KWLocalizedString.h"
#include "views/controls/PlainLabel.h"
#include "views/controls/TabOrder.h"
#include "views/focus/FieldBorderView.h"
#include "views/theme/Metrics.h"

#include <QLabel>
#include <QLineEdit>
#include <QLocale>
#include <QPushButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

constexpr int confirmTextWidth = 320;
constexpr int lengthFieldWidth = 40;
constexpr int longestLengthText = 4;

// Stays on one line.
QString unbroken(QString length) { return length.replace(u' ', QChar::Nbsp); }

} // namespace

KWStopwatchConfirmViewController::KWStopwatchConfirmViewController(double originalDuration, bool isAutoStoped,
                                                                   QWidget *parent)
    : QWidget(parent)
    , m_originalDuration(originalDuration)
    , m_isAutoStoped(isAutoStoped)
    , m_message(makePlainLabel(message(), Fonts::Role::Body))
    , m_hrs(makePart("hrs", KWLocalizedString("Hours"), StopwatchLength::ofSeconds(originalDuration).hours))
    , m_mins(makePart("mins", KWLocalizedString("Minutes"),
                      StopwatchLength::ofSeconds(originalDuration).minutes))
    , m_problem(makeProblemLine("stopwatchConfirmProblem"))
    , m_confirm(new QPushButton{KWLocalizedString("Confirm")})
{
    setObjectName(u"stopwatchConfirmView"_s);
    m_message->setObjectName(u"stopwatchConfirmMessage"_s);
    m_message->setFixedWidth(Metrics::scaled(confirmTextWidth));
    m_problem->setFixedWidth(m_message->width());
    m_confirm->setObjectName(u"stopwatchConfirm"_s);
    m_confirm->setAccessibleName(m_confirm->text());
    m_confirm->setDefault(true);
    connect(m_confirm, &QPushButton::clicked, this, &KWStopwatchConfirmViewController::confirm);

    auto *fields = new QHBoxLayout;
    fields->setSpacing(Metrics::gap);
    fields->addStretch(1);
    fields->addWidget(m_hrs.borderView);
    fields->addWidget(m_mins.borderView);
    fields->addStretch(1);
    auto *footer = new QHBoxLayout;
    footer->addStretch(1);
    footer->addWidget(m_confirm);
    auto *column = new QVBoxLayout{this};
    column->setContentsMargins(Metrics::margin, Metrics::margin, Metrics::margin, Metrics::gap);
    column->setSpacing(Metrics::gap);
    column->addWidget(m_message);
    column->addLayout(fields);
    column->addWidget(m_problem);
    column->addLayout(footer);
    setTabOrderOf(controlsInOrder(*this));
    showUnits();
}

KWStopwatchConfirmViewController::Part
KWStopwatchConfirmViewController::makePart(const char *name, const QString &what, int value)
{
    const QString named = QString::fromLatin1(name);
    auto *field = new QLineEdit{locale().toString(value)};
    field->setObjectName(named + u"TextField"_s);
    field->setAccessibleName(what);
    field->setAlignment(Qt::AlignTrailing | Qt::AlignVCenter);
    field->setMaxLength(longestLengthText);
    field->setFixedWidth(Metrics::scaled(lengthFieldWidth));
    connect(field, &QLineEdit::textEdited, this, &KWStopwatchConfirmViewController::edited);
    QLabel *unit = makePlainLabel({}, Fonts::Role::Body, QPalette::PlaceholderText);
    unit->setObjectName(named + u"Label"_s);
    unit->setWordWrap(false);
    auto *border = new FieldBorderView{*field, *unit};
    border->setObjectName(named + u"BorderView"_s);
    return {.borderView = border, .textField = field, .label = unit};
}

QString KWStopwatchConfirmViewController::message() const
{
    return m_isAutoStoped
               ? KWLocalizedString(
                     "Stopwatch ends automatically due to the upper limit. Please check the duration.")
               : KWLocalizedString("You've been focusing for over 1 hour. Please check the duration.");
}

void KWStopwatchConfirmViewController::focusFirstField()
{
    m_hrs.textField->setFocus(Qt::OtherFocusReason);
    m_hrs.textField->selectAll();
}

// Nothing typed is none. Digits of the interface's language and Western ones are read.
std::optional<int> KWStopwatchConfirmViewController::numberIn(const QLineEdit &field) const
{
    const QString text = field.text().trimmed();
    if (text.isEmpty()) return 0;
    for (const QLocale &each : {locale(), QLocale::c()}) {
        bool isNumber = false;
        const int number = each.toInt(text, &isNumber);
        if (isNumber && number >= 0) return number;
    }
    return std::nullopt;
}

std::optional<double> KWStopwatchConfirmViewController::typedDuration() const
{
    const auto hours = numberIn(*m_hrs.textField);
    const auto minutes = numberIn(*m_mins.textField);
    if (!hours || !minutes) return std::nullopt;
    const StopwatchLength typed{.hours = *hours, .minutes = *minutes};
    // The seconds that are not shown belong to a length that was left as it was.
    const bool isOriginal = typed.seconds() == StopwatchLength::ofSeconds(m_originalDuration).seconds();
    return isOriginal ? m_originalDuration : typed.seconds();
}

QString KWStopwatchConfirmViewController::problemWith(std::optional<double> typed) const
{
    if (!typed) return KWLocalizedString("Write the hours and the minutes as whole numbers.");
    if (*typed > m_originalDuration)
        return KWLocalizedString("Please don't exceed the duration of this timing: %@")
            .replace(u"%@"_s, unbroken(StopwatchLength::ofSeconds(m_originalDuration).text()));
    return {};
}

void KWStopwatchConfirmViewController::edited()
{
    showUnits();
    const std::optional<double> typed = typedDuration();
    if (const QString problem = problemWith(typed); !problem.isEmpty()) return sayIn(*m_problem, problem);
    m_problem->hide();
    if (valueChangedHandler) valueChangedHandler(*typed);
}

void KWStopwatchConfirmViewController::confirm()
{
    const std::optional<double> typed = typedDuration();
    QString problem = problemWith(typed);
    if (problem.isEmpty() && !(*typed > 0)) problem = KWLocalizedString("A timing has at least one minute.");
    if (problem.isEmpty()) {
        if (confirmActionHandler) confirmActionHandler();
        return;
    }
    sayIn(*m_problem, problem);
    focusFirstField();
}

void KWStopwatchConfirmViewController::showUnits()
{
    const StopwatchLength typed{.hours = numberIn(*m_hrs.textField).value_or(0),
                                .minutes = numberIn(*m_mins.textField).value_or(0)};
    m_hrs.label->setText(typed.hoursUnit());
    m_mins.label->setText(typed.minutesUnit());
}
