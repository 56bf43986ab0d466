#include "views/focus/FocusShareList.h"

#include "model/settings/KWLocalizedString.h"
#include "views/focus/FocusWording.h"
#include "views/theme/Fonts.h"
#include "views/theme/ItemColors.h"
#include "views/theme/Metrics.h"
#include "views/theme/Painting.h"
#include "views/theme/Theme.h"

#include <QPainter>
#include <QStyle>

using namespace Qt::StringLiterals;

namespace {

constexpr int shareBar = 6;

QString withPomos(const QString &length, const FocusShare &share)
{
    return share.pomos == 0 ? length : length + u", "_s + FocusWording::pomos(share.pomos);
}

} // namespace

FocusShareList::FocusShareList(const char *name, const QString &what, QWidget *parent)
    : QWidget(parent), m_what(what)
{
    setObjectName(QLatin1StringView{name});
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

void FocusShareList::setShares(const QList<FocusShare> &shares)
{
    m_shares = shares;
    QStringList all;
    for (const FocusShare &each : shares)
        all << each.name + u": "_s + withPomos(FocusWording::spokenLength(each.focused), each);
    setAccessibleName(m_what);
    setAccessibleDescription(all.join(u"; "_s));
    updateGeometry();
    update();
}

int FocusShareList::rowHeight() const
{
    return QFontMetrics{Fonts::font(Fonts::Role::Secondary)}.height() + shareBar + Metrics::gap;
}

QSize FocusShareList::sizeHint() const { return {Metrics::scaled(200), rowHeight() * int(m_shares.size())}; }

void FocusShareList::paintEvent(QPaintEvent *)
{
    const Theme &theme = Theme::current();
    QPainter painter{this};
    const auto visual = [this](const QRect &bounds) {
        return QStyle::visualRect(layoutDirection(), rect(), bounds);
    };
    const int line = QFontMetrics{Fonts::font(Fonts::Role::Secondary)}.height();
    // The first is the largest.
    const double most =
        m_shares.isEmpty() ? 1 : double(std::max<qint64>(1, m_shares.first().focused.count()));
    for (qsizetype i = 0; i < m_shares.size(); ++i) {
        const FocusShare &each = m_shares[i];
        const int top = rowHeight() * int(i);
        const QString length = withPomos(FocusWording::length(each.focused), each);
        const int lengthWidth = Fonts::width(Fonts::Role::Secondary, length);
        painter.setPen(theme.secondaryText);
        Fonts::drawLine(painter, Fonts::Role::Secondary,
                        visual({width() - lengthWidth, top, lengthWidth, line}),
                        QStyle::visualAlignment(layoutDirection(), Qt::AlignRight), length);
        painter.setPen(theme.text);
        Fonts::drawLine(painter, Fonts::Role::Secondary,
                        visual({0, top, width() - lengthWidth - Metrics::gap, line}),
                        QStyle::visualAlignment(layoutDirection(), Qt::AlignLeft), each.name);
        const int wide = std::max(shareBar, int(width() * double(each.focused.count()) / most));
        Painting::roundedBox(painter, visual({0, top + line + 2, wide, shareBar}), shareBar / 2.0,
                             ItemColors::edgeOf(each.color));
    }
}
