#include "views/datepicker/TimeField.h"

#include "model/settings/ClockFormat.h"

#include <QKeyEvent>
#include <QLocale>
#include <QRegularExpression>
#include <QTime>

using namespace Qt::StringLiterals;
using namespace std::chrono;

namespace {

constexpr minutes quarter{15};
constexpr minutes wholeDay{hours{24}};

} // namespace

TimeField::TimeField(QWidget *parent) : QLineEdit(parent)
{
    connect(this, &QLineEdit::textEdited, this, &TimeField::readTyped);
}

std::optional<minutes> TimeField::timeIn(const QString &typed)
{
    static const QRegularExpression pattern{uR"(^(\d{1,2})(?:[:.h]?(\d{2}))?\s*(?:([ap])\.?m?\.?)?$)"_s,
                                            QRegularExpression::CaseInsensitiveOption};
    const QString plain = typed.simplified();
    const QRegularExpressionMatch found = pattern.match(plain);
    if (!found.hasMatch()) {
        // As the locale writes it: "下午5:30".
        const QTime time = QLocale{}.toTime(plain, ClockFormat::pattern(QLocale{}));
        return time.isValid() ? std::optional{minutes{time.msecsSinceStartOfDay() / 60'000}} : std::nullopt;
    }
    int hour = found.capturedView(1).toInt();
    const int minute = found.capturedView(2).toInt();
    if (found.hasCaptured(3)) {
        if (hour < 1 || hour > 12) return std::nullopt;
        hour = hour % 12 + (found.captured(3).toLower() == u"p" ? 12 : 0);
    }
    if (hour > 23 || minute > 59) return std::nullopt;
    return hours{hour} + minutes{minute};
}

std::optional<minutes> TimeField::durationIn(const QString &typed)
{
    static const QRegularExpression pattern{
        uR"(^\+?\s*(?:(\d{1,3})\s*h[a-z]*\s*(?:(\d{1,2})\s*(?:m[a-z]*)?)?|(\d{1,4})\s*m[a-z]*)$)"_s,
        QRegularExpression::CaseInsensitiveOption};
    const QRegularExpressionMatch found = pattern.match(typed.simplified());
    if (!found.hasMatch()) return std::nullopt;
    return hours{found.capturedView(1).toInt()} +
           minutes{found.capturedView(2).toInt() + found.capturedView(3).toInt()};
}

void TimeField::setTime(std::optional<minutes> time)
{
    m_time = time;
    if (!hasFocus() || !isModified()) showTime();
}

void TimeField::showTime()
{
    setText(m_time ? ClockFormat::timeOfDay(*m_time, QLocale{}) : QString{});
    m_isReadable = true;
}

void TimeField::readTyped(const QString &typed)
{
    if (const auto duration = m_takesDuration ? durationIn(typed) : std::nullopt) {
        m_isReadable = true;
        return Q_EMIT durationTyped(*duration);
    }
    const std::optional<minutes> time = timeIn(typed);
    m_isReadable = time || typed.trimmed().isEmpty();
    if (!m_isReadable) return;
    m_time = time;
    Q_EMIT timeChanged(time);
}

void TimeField::step(int quarters)
{
    // Down from 9:10 is 9:00, up is 9:15; an empty field begins with the first step.
    minutes from = m_firstStep - quarter * quarters;
    if (m_time) from = (*m_time + (quarters < 0 ? quarter - minutes{1} : minutes{0})) / quarter * quarter;
    m_time = (from + quarter * quarters + wholeDay) % wholeDay;
    setModified(false);
    showTime();
    selectAll();
    Q_EMIT timeChanged(m_time);
}

void TimeField::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Up)
        step(1);
    else if (event->key() == Qt::Key_Down)
        step(-1);
    else
        QLineEdit::keyPressEvent(event);
}

void TimeField::wheelEvent(QWheelEvent *event)
{
    if (hasFocus() && event->angleDelta().y() != 0) step(event->angleDelta().y() > 0 ? 1 : -1);
    event->accept();
}

void TimeField::focusOutEvent(QFocusEvent *event)
{
    QLineEdit::focusOutEvent(event);
    setModified(false);
    if (m_isReadable) showTime();
}
