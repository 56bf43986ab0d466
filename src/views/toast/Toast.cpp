#include "views/toast/Toast.h"

#include "views/controls/PaintedButton.h"
#include "views/theme/Fonts.h"
#include "views/theme/Metrics.h"
#include "views/theme/Painting.h"
#include "views/theme/Theme.h"
#include "views/theme/ThemeConfigurator.h"

#include <QAccessible>
#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>

using namespace Qt::StringLiterals;

namespace {

constexpr int textMargin = 14;
constexpr int actionMargin = 6;

// A button that is its text alone, coloured for the toast.
class ToastButton : public PaintedButton {
public:
    using PaintedButton::PaintedButton;

    QSize sizeHint() const override
    {
        return {fontMetrics().horizontalAdvance(text()) + 16, fontMetrics().height() + 12};
    }

protected:
    void paintContent(QPainter &painter) override
    {
        painter.setPen(Theme::current().toastAction);
        painter.drawText(rect(), Qt::AlignCenter, text());
    }
};

} // namespace

Toast::Toast(QWidget &parent) : QWidget(&parent), m_message(new QLabel{this}), m_action(new ToastButton{this})
{
    setObjectName(u"toast"_s);
    m_message->setObjectName(u"toastMessage"_s);
    m_message->setTextFormat(Qt::PlainText);
    m_action->setObjectName(u"toastAction"_s);
    m_action->setCursor(Qt::PointingHandCursor);
    auto *layout = new QHBoxLayout{this};
    layout->setSpacing(Metrics::grid);
    layout->addWidget(m_message);
    layout->addWidget(m_action);
    hide();

    parent.installEventFilter(this);
    connect(&ThemeConfigurator::shared(), &ThemeConfigurator::themeChanged, this, &Toast::dress);
    connect(m_action, &QAbstractButton::clicked, this, [this] {
        dismiss();
        Q_EMIT actionTriggered();
    });
    dress();
}

void Toast::dress()
{
    m_message->setFont(Fonts::font(Fonts::Role::Body));
    m_action->setFont(Fonts::font(Fonts::Role::BodyStrong));
    QPalette palette = m_message->palette();
    palette.setColor(QPalette::WindowText, Theme::current().onToast);
    m_message->setPalette(palette);
    place();
}

void Toast::showMessage(const QString &message, const QString &action)
{
    m_message->setText(message);
    m_action->setText(action);
    m_action->setAccessibleName(action);
    m_action->setVisible(!action.isEmpty());
    const int behind = action.isEmpty() ? textMargin : actionMargin;
    const bool isMirrored = layoutDirection() == Qt::RightToLeft;
    layout()->setContentsMargins(isMirrored ? behind : textMargin, Metrics::grid,
                                 isMirrored ? textMargin : behind, Metrics::grid);
    setAccessibleName(message);
    place();
    show();
    raise();
    QAccessibleEvent announcement{this, QAccessible::Alert};
    QAccessible::updateAccessibility(&announcement);
}

void Toast::dismiss() { hide(); }

QWidget &Toast::actionButton() { return *m_action; }

void Toast::place()
{
    const QWidget *parent = parentWidget();
    QSize size = layout()->sizeHint().expandedTo({0, Metrics::scaled(36)});
    size.setWidth(std::min(size.width(), parent->width() - 2 * Metrics::margin));
    setGeometry((parent->width() - size.width()) / 2, parent->height() - size.height() - Metrics::margin,
                size.width(), size.height());
}

bool Toast::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::Resize) place();
    return QWidget::eventFilter(watched, event);
}

void Toast::paintEvent(QPaintEvent *)
{
    const Theme &theme = Theme::current();
    QPainter painter{this};
    const bool needsOutline = theme.scheme == ColorScheme::Dark;
    Painting::roundedBox(painter, rect(), Metrics::fieldRadius, theme.toast,
                         needsOutline ? theme.control : QColor{});
}
