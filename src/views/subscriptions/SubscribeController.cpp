#include "views/subscriptions/SubscribeController.h"

#include "calendar/subscriptions/CalSubscriptionService.h"
#include "views/subscriptions/SubscribeDialog.h"

SubscribeController::SubscribeController(CalSubscriptionService &calendars, QWidget &window)
    : m_calendars(calendars), m_window(window)
{
}

void SubscribeController::open()
{
    if (m_dialog) return m_dialog->activateWindow();
    m_dialog = new SubscribeDialog{&m_window};
    m_dialog->setAttribute(Qt::WA_DeleteOnClose);
    connect(m_dialog, &SubscribeDialog::subscribeRequested, this, &SubscribeController::subscribe);
    m_dialog->open();
}

void SubscribeController::subscribe()
{
    m_dialog->setIsReading(true);
    m_calendars.subscribe(m_dialog->address(), m_dialog->name(),
                          [dialog = m_dialog](const Result<QString> &subscribed) {
                              if (!dialog) return; // closed meanwhile; the sidebar shows what came of it
                              if (subscribed)
                                  dialog->accept();
                              else
                                  dialog->showProblem(subscribed.error().sentence);
                          });
}
