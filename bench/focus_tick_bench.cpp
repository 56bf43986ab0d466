// What a second of a Pomo costs on the main thread with its page in view: the engine's step, told through the
// notification centre, without and with the painting; and with the page hidden.

#include "Account.h"
#include "client/FocusRooms.h"
#include "views/focus/FocusPane.h"

#include <QCoreApplication>

#include <benchmark/benchmark.h>

namespace {

struct FocusPage : Account {
    AlertPort alerts;
    FocusPopoverPort popover;
    UserNotificationCenterPort notifications;
    FocusSoundPort sound;
    FocusRooms rooms{*kit,
                     clock,
                     {.alerts = alerts,
                      .popover = popover,
                      .notifications = notifications,
                      .sound = sound,
                      .window = []() -> QWidget * { return nullptr; },
                      .openWindow = [](const QString &) {},
                      .tellFailure = [](const QString &) {}}};
    FocusPane pane;

    explicit FocusPage(bool isShown)
    {
        pane.setPresenter(rooms.presenter());
        pane.resize(680, 800);
        pane.setVisible(isShown);
        rooms.pomo().oc_startFocus();
        QCoreApplication::processEvents();
    }
    void tick()
    {
        if (rooms.pomo().currentCountDown() < 10) rooms.pomo().setCountDownDuration(1500);
        rooms.pomo().timerStep();
    }
};

void tickHidden(benchmark::State &state)
{
    FocusPage page{false};
    for ([[maybe_unused]] auto each : state)
        page.tick();
}
BENCHMARK(tickHidden);

void tickVisible(benchmark::State &state)
{
    FocusPage page{true};
    for ([[maybe_unused]] auto each : state)
        page.tick();
}
BENCHMARK(tickVisible);

void tickVisibleAndPainted(benchmark::State &state)
{
    FocusPage page{true};
    for ([[maybe_unused]] auto each : state) {
        page.tick();
        QCoreApplication::processEvents();
    }
}
BENCHMARK(tickVisibleAndPainted);

} // namespace
