#include "views/taskdetail/DetailFooter.h"

#include "views/theme/Fonts.h"
#include "views/theme/Metrics.h"
#include "views/theme/Painting.h"
#include "views/theme/Theme.h"

#include <QPainter>
#include <QStyle>

using namespace Qt::StringLiterals;

namespace {
constexpr int detailFooterHeight = 48;
}

DetailFooter::DetailFooter(QWidget *parent) : QWidget(parent)
{
    setObjectName(u"detailFooter"_s);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

void DetailFooter::setContent(const QString &listName, const QString &listColor, const QStringList &tags)
{
    m_listName = listName;
    m_listColor = listColor;
    m_tags = tags;
    setAccessibleName((QStringList{listName} + tags).join(u", "_s));
    update();
}

QSize DetailFooter::sizeHint() const { return {Metrics::scaled(200), Metrics::scaled(detailFooterHeight)}; }

void DetailFooter::paintEvent(QPaintEvent *)
{
    const Theme &theme = Theme::current();
    QPainter painter{this};
    const auto visual = [this](const QRect &bounds) {
        return QStyle::visualRect(layoutDirection(), rect(), bounds);
    };
    const int right = width() - Metrics::sideMargin;
    painter.fillRect(QRect{Metrics::sideMargin, 0, right - Metrics::sideMargin, 1}, theme.hairline);

    int x = Metrics::sideMargin + 3;
    const QRect dot = visual({x, 0, Metrics::dot, height()});
    if (!m_listName.isEmpty()) Painting::dot(painter, QRectF{dot}.center(), m_listColor);
    x += Metrics::dot + Metrics::gap;

    painter.setPen(theme.secondaryText);
    const int listWidth = std::min((right - x) / 2, Fonts::width(Fonts::Role::Secondary, m_listName));
    Fonts::drawLine(painter, Fonts::Role::Secondary, visual({x, 0, listWidth, height()}), Qt::AlignLeft,
                    m_listName);
    x += listWidth + Metrics::gap - 2;

    for (const QString &tag : std::as_const(m_tags)) {
        const int tagWidth = Painting::pillWidth(tag);
        if (x + tagWidth > right) break;
        Painting::pill(painter, visual({x, 0, tagWidth, height()}), tag);
        x += tagWidth + Metrics::grid + 2;
    }
}
