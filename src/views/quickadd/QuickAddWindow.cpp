#include "views/quickadd/QuickAddWindow.h"

#include "model/settings/KWLocalizedString.h"
#include "views/addfield/KWNewTaskTextField.h"
#include "views/controls/PlainLabel.h"
#include "views/theme/Metrics.h"
#include "views/theme/Theme.h"
#include "views/theme/ThemeConfigurator.h"

#include <QApplication>
#include <QCursor>
#include <QKeyEvent>
#include <QLabel>
#include <QPainter>
#include <QScreen>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

constexpr int quickAddWidth = 600;

// One line, cut where it is too long, so that the window stays as it is while one types.
class SummaryLine : public QLabel {
public:
    SummaryLine() { setTextFormat(Qt::PlainText); }

    QSize sizeHint() const override { return minimumSizeHint(); }
    QSize minimumSizeHint() const override
    {
        return {0, QFontMetrics{Fonts::font(Fonts::Role::Secondary)}.height()};
    }

protected:
    void paintEvent(QPaintEvent *) override
    {
        QPainter painter{this};
        painter.setPen(Theme::current().secondaryText);
        const auto side = layoutDirection() == Qt::RightToLeft ? Qt::AlignRight : Qt::AlignLeft;
        Fonts::drawLine(painter, Fonts::Role::Secondary, rect(), side, text());
    }
};

const QScreen &screenOfPointer()
{
    const QScreen *there = QGuiApplication::screenAt(QCursor::pos());
    return there ? *there : *QGuiApplication::primaryScreen();
}

} // namespace

QuickAddWindow::QuickAddWindow()
    : PopupFrame(nullptr, Qt::Tool | Qt::WindowStaysOnTopHint)
    , m_field(new KWNewTaskTextField)
    , m_summary(new SummaryLine)
    , m_problem(makeProblemLine("quickAddProblem"))
{
    setObjectName(u"quickAdd"_s);
    setWindowTitle(KWLocalizedString("Add Task"));
    setAccessibleName(windowTitle());
    setAttribute(Qt::WA_QuitOnClose); // as any window in which one types, though it is a tool
    m_summary->setObjectName(u"quickAddSummary"_s);
    m_field->setPlaceholder(KWLocalizedString("What is to be done?"));
    m_field->installEventFilter(this);

    auto *words = new QVBoxLayout;
    words->setContentsMargins(Metrics::gap + KWNewTaskTextField::ring, 0, Metrics::gap, Metrics::grid);
    words->addWidget(m_summary);
    words->addWidget(m_problem);
    auto *column = new QVBoxLayout{this};
    column->setContentsMargins(Metrics::gap, Metrics::gap, Metrics::gap, Metrics::gap);
    column->setSpacing(2 * Metrics::grid);
    column->addWidget(m_field);
    column->addLayout(words);

    connect(m_field, &KWNewTaskTextField::left, this, &QWidget::close);
    connect(&ThemeConfigurator::shared(), &ThemeConfigurator::themeChanged, this, &QuickAddWindow::fit);
}

void QuickAddWindow::popUp()
{
    if (!isVisible()) {
        const QRect bounds = screenOfPointer().availableGeometry();
        resize(std::min(Metrics::scaled(quickAddWidth), bounds.width() - 2 * Metrics::margin), height());
        fit();
        const QPoint corner{bounds.center().x() - width() / 2, bounds.top() + bounds.height() / 5};
        move(within(bounds, {corner, size()}).topLeft());
    }
    show();
    raise();
    activateWindow();
    m_field->setFocus(Qt::PopupFocusReason);
}

void QuickAddWindow::setSummary(const QString &summary)
{
    m_summary->setText(summary);
    m_summary->setAccessibleName(summary);
    m_summary->show();
    m_problem->hide();
    fit();
}

void QuickAddWindow::showProblem(const QString &sentence)
{
    m_summary->hide();
    sayIn(*m_problem, sentence);
    fit();
}

// As high as what it says.
void QuickAddWindow::fit()
{
    layout()->activate();
    resize(width(), layout()->totalHeightForWidth(width()));
}

bool QuickAddWindow::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::KeyPress) {
        const Qt::KeyboardModifiers modifiers = static_cast<const QKeyEvent *>(event)->modifiers();
        m_isHeldOpen = modifiers & (Qt::ControlModifier | Qt::ShiftModifier);
    }
    return PopupFrame::eventFilter(watched, event);
}

void QuickAddWindow::changeEvent(QEvent *event)
{
    PopupFrame::changeEvent(event);
    if (event->type() != QEvent::ActivationChange || isActiveWindow()) return;
    Q_EMIT left();
    // A question about what was pasted is part of it, and so is a popup in which something is chosen.
    const bool isAsked = QApplication::activeModalWidget() || QApplication::activePopupWidget();
    if (m_field->text().isEmpty() && !isAsked) close();
}

void QuickAddWindow::hideEvent(QHideEvent *event)
{
    PopupFrame::hideEvent(event);
    Q_EMIT left();
}
