#include "views/habits/DayNamesHeader.h"

#include "views/theme/Fonts.h"
#include "views/theme/Metrics.h"
#include "views/theme/Theme.h"

#include <QPainter>

DayNamesHeader::DayNamesHeader(int todayRole, int lines, QWidget *parent)
    : QHeaderView(Qt::Horizontal, parent), m_todayRole(todayRole), m_lines(lines)
{
    setSectionsClickable(false);
    setHighlightSections(false);
    setStretchLastSection(false);
    setMinimumSectionSize(1);
    setSectionResizeMode(QHeaderView::Fixed);
    setFocusPolicy(Qt::NoFocus);
}

QSize DayNamesHeader::sizeHint() const
{
    const QFontMetrics metrics{Fonts::font(Fonts::Role::Caption)};
    return {Metrics::scaled(120), m_lines * metrics.height() + 2 * Metrics::grid};
}

// Nothing behind the names.
void DayNamesHeader::paintEvent(QPaintEvent *)
{
    QPainter painter{viewport()};
    for (int section = 0; section < count(); ++section)
        if (!isSectionHidden(section))
            paintSection(&painter,
                         {sectionViewportPosition(section), 0, sectionSize(section), viewport()->height()},
                         section);
}

void DayNamesHeader::paintSection(QPainter *painter, const QRect &bounds, int section) const
{
    const Theme &theme = Theme::current();
    const bool isToday = model()->headerData(section, orientation(), m_todayRole).toBool();
    painter->setFont(Fonts::font(isToday ? Fonts::Role::CaptionStrong : Fonts::Role::Caption));
    painter->setPen(isToday ? theme.accentText : theme.faintText);
    painter->drawText(bounds, Qt::AlignHCenter | Qt::AlignTop,
                      model()->headerData(section, orientation(), Qt::DisplayRole).toString());
}
