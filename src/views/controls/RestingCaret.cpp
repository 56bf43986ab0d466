#include "views/controls/RestingCaret.h"

#include <QEvent>
#include <QGuiApplication>
#include <QStyleHints>

#include <chrono>

namespace {

using namespace std::chrono_literals;

constexpr auto patience = 10s;
constexpr int still = 0;
constexpr int asTheDesktopSays = -1;

} // namespace

RestingCaret::RestingCaret(CXClock &clock, QObject *parent) : QObject(parent), m_clock(clock)
{
    qApp->installEventFilter(this);
    wake();
}

RestingCaret::~RestingCaret() { QGuiApplication::styleHints()->setCursorFlashTime(asTheDesktopSays); }

bool RestingCaret::eventFilter(QObject *watched, QEvent *event)
{
    switch (event->type()) {
    case QEvent::KeyPress:
    case QEvent::MouseButtonPress:
    case QEvent::FocusIn:
        wake();
        break;
    default:
        break;
    }
    return QObject::eventFilter(watched, event);
}

void RestingCaret::wake()
{
    QGuiApplication::styleHints()->setCursorFlashTime(asTheDesktopSays);
    m_rest = m_clock.callAfter(patience, [] { QGuiApplication::styleHints()->setCursorFlashTime(still); });
}
