// One key pressed in the add field of an account with 1,000 lists and 2,000 tags: until what is recognised
// is marked and what can complete the token stands on the screen.

#include "Account.h"
#include "app/ShortcutConfiguration.h"
#include "app/ports/AlertPort.h"
#include "capture/NewTaskService.h"
#include "views/addfield/AddFieldController.h"
#include "views/addfield/KWNewTaskTextField.h"

#include <QApplication>
#include <QKeyEvent>

#include <benchmark/benchmark.h>

using namespace Qt::StringLiterals;

namespace {

struct LargeAccount : Account {
    LargeAccount()
    {
        fill([this](ObjectContext &context) {
            insertLists(1000, context);
            insertTags(2000, context);
        });
    }
};

LargeAccount &account()
{
    static LargeAccount account;
    return account;
}

// A field of that account, with the keyboard.
struct AddField {
    AddField()
    {
        field.resize(640, field.sizeHint().height());
        field.show();
        field.activateWindow();
        field.setFocus();
        QApplication::processEvents();
    }

    NewTaskService service{*account().kit};
    AlertPort alerts;
    const ShortcutConfiguration shortcuts{account().kit->defaults()};
    KWNewTaskTextField field;
    AddFieldController controller{field, {*account().kit, account().clock, service, alerts, shortcuts}};
};

// The last key of `text`.
void press(benchmark::State &state, const QString &text)
{
    AddField add;
    KWNewTaskTextField &field = add.field;
    const QString key = text.last(1);
    for (auto _ : state) {
        state.PauseTiming();
        field.setText(text.chopped(1));
        QApplication::processEvents();
        state.ResumeTiming();
        QKeyEvent typed{QEvent::KeyPress, 0, Qt::NoModifier, key};
        QApplication::sendEvent(&field, &typed);
        QApplication::processEvents();
    }
    if (!field.hasFocus()) state.SkipWithError("The field has not got the keyboard.");
}
BENCHMARK_CAPTURE(press, plainWord, u"Call the venue tomorrow 5pm !high"_s)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(press, everyTag, u"Call the venue tomorrow 5pm #"_s)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(press, manyTags, u"Call the venue tomorrow 5pm #tag1"_s)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(press, everyList, u"Call the venue tomorrow 5pm ~"_s)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(press, manyLists, u"Call the venue tomorrow 5pm ~List 9"_s)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(press, hundredThousandCharacters,
                  u"Call the venue tomorrow 5pm, then "_s.repeated(100'000 / 34) + u"go"_s)
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(press, sixThousandMarks, u"call #errand or "_s.repeated(100'000 / 16) + u"go"_s)
    ->Unit(benchmark::kMillisecond);

// All but the kind that is meant go.
void manyPriorities(benchmark::State &state)
{
    AddField add;
    const QString text = u"!low !high "_s.repeated(state.range());
    for (auto _ : state) {
        add.field.setText(text);
        QApplication::processEvents();
    }
    if (add.field.text().contains(u"!low"_s)) state.SkipWithError("Two priorities stand in the field.");
}
BENCHMARK(manyPriorities)->Arg(100)->Arg(400)->Arg(1600)->Unit(benchmark::kMillisecond);

} // namespace
