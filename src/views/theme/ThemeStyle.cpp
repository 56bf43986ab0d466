#include "views/theme/ThemeStyle.h"

#include "views/theme/Icons.h"
#include "views/theme/MenuPainting.h"
#include "views/theme/Metrics.h"
#include "views/theme/Painting.h"
#include "views/theme/PopupEdge.h"
#include "views/theme/Theme.h"

#include <QComboBox>
#include <QPainter>
#include <QStyleOption>

using namespace Qt::StringLiterals;

namespace {

constexpr int scrollBarExtent = 10;
constexpr int shortestThumb = 24;
constexpr int comboBoxPadding = 8;
constexpr int comboBoxMark = 12;
constexpr int buttonPadding = 6; // more than Fusion has
constexpr int fieldInset = 4;    // within its outline
constexpr int fieldPadding = 9;  // so that its text stands below that of a box of choices

bool isAccented(const QStyleOptionButton &button)
{
    return button.features & QStyleOptionButton::DefaultButton;
}

void drawButton(QPainter &painter, const QStyleOptionButton &button)
{
    const Theme &theme = Theme::current();
    const bool pressed = button.state & QStyle::State_Sunken;
    const bool hovered = button.state & QStyle::State_MouseOver;
    const bool enabled = button.state & QStyle::State_Enabled;
    QColor fill = isAccented(button) ? theme.accent : (hovered ? theme.hover : theme.window);
    if (pressed) fill = fill.darker(112);
    if (!enabled) fill = theme.hover;
    const QColor outline = isAccented(button) && enabled ? fill : theme.control;
    const QRect bounds = button.rect.adjusted(2, 2, -2, -2);
    Painting::roundedBox(painter, bounds, Metrics::rowRadius, fill, outline);
    if (button.state & QStyle::State_HasFocus)
        Painting::focusRing(painter, button.rect, Metrics::rowRadius + 2);
}

bool hasOutline(const QStyleOption *field)
{
    const auto *frame = qstyleoption_cast<const QStyleOptionFrame *>(field);
    return frame && frame->lineWidth > 0;
}

void drawField(QPainter &painter, const QStyleOption &field)
{
    const Theme &theme = Theme::current();
    Painting::roundedBox(painter, field.rect.adjusted(2, 2, -2, -2), Metrics::rowRadius, theme.window,
                         theme.control);
    if (field.state & QStyle::State_HasFocus)
        Painting::focusRing(painter, field.rect, Metrics::rowRadius + 2);
}

QRect comboBoxMarkBounds(const QStyleOption &box)
{
    const int side = Metrics::scaled(comboBoxMark);
    const QRect bounds{box.rect.right() + 1 - comboBoxPadding - side, box.rect.top(), side,
                       box.rect.height()};
    return QStyle::visualRect(box.direction, box.rect, bounds);
}

QRect comboBoxTextBounds(const QStyleOption &box)
{
    const int before = comboBoxPadding + 2;
    const int behind = comboBoxPadding + Metrics::scaled(comboBoxMark) + Metrics::grid;
    return QStyle::visualRect(box.direction, box.rect, box.rect.adjusted(before, 2, -behind, -2));
}

void drawComboBox(QPainter &painter, const QStyleOption &box)
{
    drawField(painter, box);
    const bool isEnabled = box.state & QStyle::State_Enabled;
    Icons::paint(painter, comboBoxMarkBounds(box), Icon::ChevronDown, Metrics::scaled(comboBoxMark),
                 isEnabled ? Theme::current().secondaryText : Theme::current().faintText);
}

void drawThumb(QPainter &painter, const QStyleOptionSlider &bar, QRect thumb)
{
    const Theme &theme = Theme::current();
    const bool active = bar.state & (QStyle::State_MouseOver | QStyle::State_Sunken);
    const int inset = active ? 2 : 3;
    if (bar.orientation == Qt::Vertical)
        thumb.adjust(inset, 2, -inset, -2);
    else
        thumb.adjust(2, inset, -2, -inset);
    QColor colour = theme.control;
    colour.setAlphaF(active ? 0.9F : 0.45F);
    Painting::roundedBox(painter, thumb, std::min(thumb.width(), thumb.height()) / 2.0, colour);
}

} // namespace

ThemeStyle::ThemeStyle() : QProxyStyle(u"Fusion"_s) {}

void ThemeStyle::drawPrimitive(PrimitiveElement element, const QStyleOption *option, QPainter *painter,
                               const QWidget *widget) const
{
    switch (element) {
    case PE_FrameFocusRect:
        Painting::focusRing(*painter, option->rect, Metrics::pillRadius);
        return;
    case PE_PanelMenu:
        PopupEdge::paint(*painter, option->rect);
        return;
    case PE_FrameMenu:
    case PE_PanelMenuBar:
    case PE_PanelItemViewRow:
    case PE_PanelItemViewItem:
        return;
    case PE_PanelButtonCommand:
        if (const auto *button = qstyleoption_cast<const QStyleOptionButton *>(option)) {
            drawButton(*painter, *button);
            return;
        }
        break;
    case PE_PanelLineEdit:
        if (hasOutline(option)) {
            drawField(*painter, *option);
            return;
        }
        break;
    default:
        break;
    }
    QProxyStyle::drawPrimitive(element, option, painter, widget);
}

void ThemeStyle::drawControl(ControlElement element, const QStyleOption *option, QPainter *painter,
                             const QWidget *widget) const
{
    if (element == CE_Splitter) {
        painter->fillRect(option->rect, Theme::current().hairline);
        return;
    }
    if (element == CE_MenuEmptyArea) return;
    if (element == CE_MenuBarEmptyArea) return MenuPainting::drawBarBackground(*painter, option->rect);
    if (const auto *item = qstyleoption_cast<const QStyleOptionMenuItem *>(option)) {
        if (element == CE_MenuItem && qobject_cast<const QComboBox *>(widget)) {
            QStyleOptionMenuItem choice = *item;
            choice.rect.adjust(MenuPainting::margin, 0, -MenuPainting::margin, 0);
            return MenuPainting::drawItem(*painter, choice);
        }
        if (element == CE_MenuItem) return MenuPainting::drawItem(*painter, *item);
        if (element == CE_MenuBarItem) return MenuPainting::drawBarItem(*painter, *item);
    }
    if (element == CE_PushButton) {
        if (const auto *button = qstyleoption_cast<const QStyleOptionButton *>(option)) {
            QStyleOptionButton label = *button;
            if (isAccented(*button) && (button->state & State_Enabled))
                label.palette.setColor(QPalette::ButtonText, Theme::current().onAccent);
            drawButton(*painter, *button);
            proxy()->drawControl(CE_PushButtonLabel, &label, painter, widget);
            return;
        }
    }
    QProxyStyle::drawControl(element, option, painter, widget);
}

void ThemeStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex *option,
                                    QPainter *painter, const QWidget *widget) const
{
    const auto *spin = qstyleoption_cast<const QStyleOptionSpinBox *>(option);
    if (control == CC_SpinBox && spin && spin->buttonSymbols == QAbstractSpinBox::NoButtons)
        return drawField(*painter, *option);
    if (control == CC_ComboBox) return drawComboBox(*painter, *option);
    const auto *bar = qstyleoption_cast<const QStyleOptionSlider *>(option);
    if (control != CC_ScrollBar || !bar) {
        QProxyStyle::drawComplexControl(control, option, painter, widget);
        return;
    }
    if (bar->maximum <= bar->minimum) return;
    drawThumb(*painter, *bar, proxy()->subControlRect(control, option, SC_ScrollBarSlider, widget));
}

QRect ThemeStyle::subElementRect(SubElement element, const QStyleOption *option, const QWidget *widget) const
{
    const QRect bounds = QProxyStyle::subElementRect(element, option, widget);
    const bool isField = element == SE_LineEditContents && hasOutline(option);
    return isField ? bounds.adjusted(fieldPadding, 0, -fieldPadding, 0) : bounds;
}

QRect ThemeStyle::subControlRect(ComplexControl control, const QStyleOptionComplex *option,
                                 SubControl subControl, const QWidget *widget) const
{
    const auto *bar = qstyleoption_cast<const QStyleOptionSlider *>(option);
    if (control == CC_ComboBox && subControl == SC_ComboBoxEditField) return comboBoxTextBounds(*option);
    if (control == CC_ComboBox && subControl == SC_ComboBoxArrow) return comboBoxMarkBounds(*option);
    const auto *spin = qstyleoption_cast<const QStyleOptionSpinBox *>(option);
    if (spin && spin->buttonSymbols == QAbstractSpinBox::NoButtons && subControl == SC_SpinBoxEditField)
        return option->rect.adjusted(comboBoxPadding, fieldInset, -comboBoxPadding, -fieldInset);
    if (control != CC_ScrollBar || !bar)
        return QProxyStyle::subControlRect(control, option, subControl, widget);

    const bool vertical = bar->orientation == Qt::Vertical;
    const int length = vertical ? bar->rect.height() : bar->rect.width();
    const int range = bar->maximum - bar->minimum;
    const qint64 share = qint64(length) * bar->pageStep / std::max(1, range + bar->pageStep);
    const int thumb = range > 0 ? std::clamp(int(share), std::min(shortestThumb, length), length) : length;
    const int start = sliderPositionFromValue(bar->minimum, bar->maximum, bar->sliderPosition, length - thumb,
                                              bar->upsideDown);
    const auto part = [&](int from, int to) {
        const QRect rect = vertical ? QRect{0, from, bar->rect.width(), to - from}
                                    : QRect{from, 0, to - from, bar->rect.height()};
        return visualRect(bar->direction, bar->rect, rect.translated(bar->rect.topLeft()));
    };
    switch (subControl) {
    case SC_ScrollBarGroove:
        return part(0, length);
    case SC_ScrollBarSlider:
        return part(start, start + thumb);
    case SC_ScrollBarSubPage:
        return part(0, start);
    case SC_ScrollBarAddPage:
        return part(start + thumb, length);
    default:
        return {};
    }
}

QSize ThemeStyle::sizeFromContents(ContentsType type, const QStyleOption *option, const QSize &contents,
                                   const QWidget *widget) const
{
    if (const auto *item = qstyleoption_cast<const QStyleOptionMenuItem *>(option);
        item && type == CT_MenuItem)
        return MenuPainting::itemSize(*item, contents);
    QSize size = QProxyStyle::sizeFromContents(type, option, contents, widget);
    // Its list has marks and stands within the margins of a menu.
    if (type == CT_ComboBox)
        size.rwidth() +=
            2 * (comboBoxPadding + MenuPainting::margin) + Metrics::scaled(comboBoxMark) - comboBoxMark;
    if (type == CT_PushButton) size.rwidth() += 2 * buttonPadding;
    const bool isField = type == CT_LineEdit && hasOutline(option);
    const bool isControl = isField || type == CT_ComboBox || type == CT_PushButton || type == CT_SpinBox;
    return isControl ? size.expandedTo({0, Metrics::scaled(Metrics::control)}) : size;
}

int ThemeStyle::pixelMetric(PixelMetric metric, const QStyleOption *option, const QWidget *widget) const
{
    switch (metric) {
    case PM_ScrollBarExtent:
        return scrollBarExtent;
    case PM_ScrollBarSliderMin:
        return shortestThumb;
    case PM_ScrollView_ScrollBarSpacing:
        return 0;
    case PM_SplitterWidth:
        return 1;
    case PM_MenuPanelWidth:
        return 0;
    case PM_MenuHMargin:
    case PM_MenuVMargin:
        return MenuPainting::margin;
    case PM_MenuBarPanelWidth:
        return 0;
    case PM_MenuBarHMargin:
    case PM_MenuBarVMargin:
        return 2;
    case PM_ButtonShiftHorizontal:
    case PM_ButtonShiftVertical:
        return 0;
    default:
        return QProxyStyle::pixelMetric(metric, option, widget);
    }
}

int ThemeStyle::styleHint(StyleHint hint, const QStyleOption *option, const QWidget *widget,
                          QStyleHintReturn *returnData) const
{
    switch (hint) {
    case SH_Menu_Mask:
        if (auto *mask = qstyleoption_cast<QStyleHintReturnMask *>(returnData)) {
            mask->region = PopupEdge::shape(option->rect);
            return 1;
        }
        return 0;
    case SH_ItemView_ActivateItemOnSingleClick:
        return 0;
    case SH_ScrollBar_LeftClickAbsolutePosition:
        return 1;
    case SH_UnderlineShortcut:
        return 0;
    default:
        return QProxyStyle::styleHint(hint, option, widget, returnData);
    }
}
