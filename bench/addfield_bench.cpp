// One key pressed in the add field of an account with 1,000 lists and 2,000 tags: until what is recognised
// is marked and what can complete the token stands on the screen.

#include "app/ports/AlertPort.h"
#include "capture/NewTaskService.h"
#include "corvexkit/time/SystemClock.h"
#include "model/OrvaneKit.h"
#include "model/records/KWProject.h"
#include "model/records/KWTag.h"
#include "views/addfield/AddFieldController.h"
#include "views/addfield/KWNewTaskTextField.h"
#include "views/theme/ThemeConfigurator.h"

#include <QApplication>
#include <QKeyEvent>
#include <QLocale>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

#include <cstdlib>

using namespace Qt::StringLiterals;

namespace {

constexpr int listCount = 1000;
constexpr int tagCount = 2000;

struct Home {
    QTemporaryDir folder;
    SystemClock clock{CXTimeZone::utc()};
    std::unique_ptr<OrvaneKit> kit = OrvaneKit::open(DataFolders::locate(folder.path()), clock).kit;

    Home()
    {
        if (!kit || !kit->account().openLocalAccount(QLocale::c())) std::abort();
        const auto filled = KWCoreDataService{kit->manager()}.sync_save([this](ObjectContext &context) {
            const QString user = kit->account().currentUserID();
            for (int i = 0; i < listCount; ++i)
                KWProject::createProjectNamed(u"List %1"_s.arg(i), user, context);
            for (int i = 0; i < tagCount; ++i)
                KWTag::createNewTagWithName(u"tag%1"_s.arg(i), user, TagUniqueness::MayExist, context);
            return Result<void>{};
        });
        if (!filled) std::abort();
    }
};

// The last key of `text`.
void press(benchmark::State &state, const QString &text)
{
    static Home home;
    NewTaskService service{*home.kit};
    AlertPort alerts;
    KWNewTaskTextField field;
    AddFieldController controller{field, {service, home.clock, home.kit->defaults(), alerts}};
    field.resize(640, field.sizeHint().height());
    field.show();
    field.activateWindow();
    field.setFocus();
    QApplication::processEvents();
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

} // namespace

int main(int argc, char **argv)
{
    const QApplication application{argc, argv};
    ThemeConfigurator::shared().apply();
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
