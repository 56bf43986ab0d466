#include "views/addfield/PickerButton.h"

#include "views/theme/Fonts.h"
#include "views/theme/Metrics.h"
#include "views/theme/Painting.h"
#include "views/theme/Theme.h"

#include <QPainter>

using namespace Qt::StringLiterals;

namespace {

constexpr int widestWords = 104;
constexpr int endPadding = 8;

int side() { return Metrics::scaled(Metrics::quietButton); }

} // namespace

PickerButton::PickerButton(Icon icon, QWidget *parent) : PaintedButton(parent), m_icon(icon)
{
    setFocusPolicy(Qt::TabFocus); // a click leaves the keyboard in the text
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

void PickerButton::setChoice(const Choice &choice)
{
    if (choice == m_choice) return;
    m_choice = choice;
    updateGeometry();
    update();
}

void PickerButton::describe(const QString &words, const QString &keys)
{
    setAccessibleName(words);
    setToolTip(keys.isEmpty() ? words : u"%1 (%2)"_s.arg(words, keys));
}

void PickerButton::setSpelledOut(bool isSpelledOut)
{
    if (isSpelledOut == m_isSpelledOut) return;
    m_isSpelledOut = isSpelledOut;
    updateGeometry();
    update();
}

int PickerButton::widthOf(bool isSpelledOut) const
{
    if (!isSpelledOut || !hasChoice()) return side();
    const int words = Fonts::width(Fonts::Role::Secondary, m_choice.words);
    return side() + std::min(words, Metrics::scaled(widestWords)) + endPadding;
}

QSize PickerButton::sizeHint() const { return {widthOf(m_isSpelledOut), side()}; }

void PickerButton::paintContent(QPainter &painter)
{
    const QColor color = hasChoice() ? m_choice.text : Theme::current().faintText;
    if (hasChoice()) Painting::roundedBox(painter, rect(), ring().radius, m_choice.soft);
    if (!hasChoice() || isDown()) paintBackground(painter);
    Icons::paint(painter, visual({0, 0, side(), height()}), m_icon, Metrics::scaled(Metrics::icon), color);
    if (!hasChoice() || !m_isSpelledOut) return;
    painter.setPen(color);
    Fonts::drawLine(painter, Fonts::Role::Secondary,
                    visual({side(), 0, width() - side() - endPadding, height()}), leading(), m_choice.words);
}
