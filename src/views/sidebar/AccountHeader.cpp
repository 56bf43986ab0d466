#include "views/sidebar/AccountHeader.h"

#include "model/settings/KWLocalizedString.h"
#include "views/menu/MenuButton.h"
#include "views/theme/Fonts.h"
#include "views/theme/Metrics.h"
#include "views/theme/Theme.h"

#include <QPainter>
#include <QStyle>
#include <QTextBoundaryFinder>

using namespace Qt::StringLiterals;

namespace {

constexpr int headerMargin = 18;
constexpr int menuMargin = 12;
constexpr int headerHeight = 60;

// The first character as a person counts them: one with combining marks or a pair of surrogates is one.
QString initialOf(const QString &name)
{
    const QString trimmed = name.trimmed();
    QTextBoundaryFinder finder{QTextBoundaryFinder::Grapheme, trimmed};
    return trimmed.left(std::max<qsizetype>(0, finder.toNextBoundary())).toUpper();
}

} // namespace

AccountHeader::AccountHeader(QWidget *parent) : QWidget(parent), m_menuButton(new MenuButton{this})
{
    setObjectName(u"accountHeader"_s);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

void AccountHeader::setAccountName(const QString &name)
{
    m_name = name;
    setAccessibleName(KWLocalizedString("Account: %1").arg(name));
    update();
}

QSize AccountHeader::sizeHint() const
{
    return {Metrics::sidebarMinimumWidth, Metrics::scaled(headerHeight)};
}

void AccountHeader::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    const QSize size = m_menuButton->sizeHint();
    const QRect bounds{width() - menuMargin - size.width(), (height() - size.height()) / 2, size.width(),
                       size.height()};
    m_menuButton->setGeometry(QStyle::visualRect(layoutDirection(), rect(), bounds));
}

void AccountHeader::paintEvent(QPaintEvent *)
{
    const Theme &theme = Theme::current();
    QPainter painter{this};
    painter.setRenderHint(QPainter::Antialiasing);
    const auto visual = [this](const QRect &bounds) {
        return QStyle::visualRect(layoutDirection(), rect(), bounds);
    };
    const auto leading = layoutDirection() == Qt::RightToLeft ? Qt::AlignRight : Qt::AlignLeft;

    const int side = Metrics::scaled(Metrics::avatar);
    const QRect avatar = visual({headerMargin, (height() - side) / 2, side, side});
    painter.setPen(Qt::NoPen);
    painter.setBrush(theme.accent);
    painter.drawEllipse(avatar);
    painter.setPen(theme.onAccent);
    Fonts::drawLine(painter, Fonts::Role::CaptionStrong, avatar, Qt::AlignHCenter, initialOf(m_name));

    painter.setPen(theme.text);
    const int nameLeft = headerMargin + side + Metrics::grid * 2;
    const QRect name{nameLeft, 0, width() - headerMargin - m_menuButton->width() - nameLeft, height()};
    Fonts::drawLine(painter, Fonts::Role::BodyStrong, visual(name), leading, m_name);
}
