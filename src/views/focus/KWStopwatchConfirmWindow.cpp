#include "views/focus/KWStopwatchConfirmWindow.h"

#include "model/settings/KWLocalizedString.h"
#include "views/focus/KWStopwatchConfirmViewController.h"

#include <QApplication>
#include <QCloseEvent>
#include <QScreen>
#include <QVBoxLayout>

#include <utility>

using namespace Qt::StringLiterals;

KWStopwatchConfirmWindow::KWStopwatchConfirmWindow(const StopwatchConfirmation &confirmation)
    : m_controller(
          new KWStopwatchConfirmViewController{confirmation.originalDuration, confirmation.isAutoStoped})
    , m_postponed(confirmation.postponedHandler)
{
    setObjectName(u"stopwatchConfirmWindow"_s);
    setAttribute(Qt::WA_QuitOnClose, false);
    setWindowTitle(KWLocalizedString("Stopwatch"));
    m_controller->valueChangedHandler = confirmation.valueChangedHandler;
    m_controller->confirmActionHandler = confirmation.confirmActionHandler;
    auto *column = new QVBoxLayout{this};
    column->setContentsMargins({});
    column->setSizeConstraint(QLayout::SetFixedSize);
    column->addWidget(m_controller);
}

void KWStopwatchConfirmWindow::present(const QWidget *window)
{
    const QRect around = window ? window->frameGeometry() : screen()->availableGeometry();
    QRect place{QPoint{}, sizeHint()};
    place.moveCenter(around.center());
    move(place.topLeft());
    m_controller->focusFirstField();
    show();
    raise();
    activateWindow();
}

void KWStopwatchConfirmWindow::closeEvent(QCloseEvent *event)
{
    event->accept();
    if (const auto postponed = std::exchange(m_postponed, {})) postponed();
    deleteLater();
}

StopwatchConfirmPresenter::~StopwatchConfirmPresenter() { delete m_window; }

void StopwatchConfirmPresenter::show(const StopwatchConfirmation &confirmation)
{
    close();
    const QWidget *keyWindow = QApplication::activeWindow();
    m_window = new KWStopwatchConfirmWindow{confirmation};
    m_window->present(keyWindow);
}

// It may be its own button that was pressed.
void StopwatchConfirmPresenter::close()
{
    if (!m_window) return;
    m_window->hide();
    m_window->deleteLater();
    m_window = nullptr;
}
