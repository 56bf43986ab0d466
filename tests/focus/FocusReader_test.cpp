#include "focus/FocusReader.h"

#include "focus/FocusFixture.h"
#include "focus/FocusPageLoader.h"
#include "model/OrvaneKit.h"
#include "model/events/NotificationNames.h"
#include "model/records/KWTask.h"
#include "model/settings/KWPomoSettingsManager.h"
#include "model/store/KWTaskEditor.h"
#include "support/Answers.h"
#include "support/CaseTable.h"
#include "support/TestMain.h"

#include <QSignalSpy>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

QString figures(const QString &name, std::chrono::seconds focused, int pomos)
{
    return u"%1=%2/%3"_s.arg(name).arg(double(focused.count()) / 60).arg(pomos);
}

QString listed(const QStringList &texts) { return texts.isEmpty() ? u"-"_s : texts.join(u", "_s); }

QString listed(const QList<FocusShare> &shares)
{
    QStringList texts;
    for (const FocusShare &each : shares)
        texts << figures(each.name, each.focused, each.pomos);
    return listed(texts);
}

QString listed(const QList<FocusDay> &days)
{
    QStringList texts;
    for (const FocusDay &each : days)
        if (each.focused.count() > 0 || each.pomos > 0)
            texts << figures(QString::number(unsigned(std::chrono::year_month_day{each.day}.day())),
                             each.focused, each.pomos);
    return listed(texts);
}

FocusPeriod periodOf(const QString &text)
{
    const QStringList words = text.split(u' ');
    const auto kind = words.first() == u"day"    ? FocusPeriod::Kind::OneDay
                      : words.first() == u"week" ? FocusPeriod::Kind::Week
                                                 : FocusPeriod::Kind::Month;
    return {.kind = kind, .offset = words.last().toInt()};
}

Day day(const char *text)
{
    return std::chrono::floor<std::chrono::days>(LocalTime{at(text).time_since_epoch()});
}

} // namespace

/// What the page of focus and its statistics say.
class FocusReader_test : public QObject {
    Q_OBJECT

    static FocusPageContent page(FocusFixture &fixture, const FocusPageRequest &request = {})
    {
        auto read = FocusReader::readPage(request, fixture.store.userID(), fixture.store.context());
        if (!read) qFatal("%s", qUtf8Printable(read.error().sentence));
        return *read;
    }

private Q_SLOTS:
    void addsUpAPeriod_data() { addCaseRows("focus/statistics.txt", 7); }
    void addsUpAPeriod()
    {
        QFETCH(const QStringList, cells);
        const QByteArray zone = cells[0].toLatin1();
        FocusFixture fixture{cells[1].toLatin1().constData(), zone.constData()};
        for (const QString &each : cells[3].split(u"; "_s)) {
            const QStringList words = each.split(u' ');
            const QByteArray start = (words[1] + u' ' + words[2]).toLatin1();
            fixture.session(words[0], at(start.constData(), zone.constData()), words[3]);
        }
        fixture.deleteWhatIsGone();
        const auto statistics =
            FocusReader::readStatistics(periodOf(cells[2]), fixture.store.userID(), fixture.store.context());
        QVERIFY(statistics);
        QCOMPARE(listed(statistics->days), cells[4]);
        QCOMPARE(listed(statistics->lists), cells[5]);
        QCOMPARE(listed(statistics->tags), cells[6]);
        std::chrono::seconds inAll{0};
        for (const FocusShare &each : statistics->lists)
            inAll += each.focused;
        QCOMPARE(statistics->focused, inAll);
    }

    void countsPeriodsFromToday()
    {
        using enum FocusPeriod::Kind;
        const Day wednesday = day("2030-05-01 00:00");
        const auto between = [](const char *first, const char *end) {
            return FocusDays{day(first), day(end)};
        };
        QVERIFY((FocusPeriod{OneDay, -1}.days(wednesday, std::chrono::Monday)) ==
                between("2030-04-30 00:00", "2030-05-01 00:00"));
        QVERIFY((FocusPeriod{Week, 0}.days(wednesday, std::chrono::Wednesday)) ==
                between("2030-05-01 00:00", "2030-05-08 00:00"));
        QVERIFY((FocusPeriod{Week, -1}.days(wednesday, std::chrono::Thursday)) ==
                between("2030-04-18 00:00", "2030-04-25 00:00"));
        QVERIFY((FocusPeriod{Month, -3}.days(day("2030-05-31 00:00"), std::chrono::Monday)) ==
                between("2030-02-01 00:00", "2030-03-01 00:00"));
    }

    void tellsTheRecordsLatestFirst()
    {
        FocusFixture fixture;
        fixture.session(u"pomo"_s, at("2030-04-30 22:00"), u"D:25"_s);
        fixture.session(u"stopwatch"_s, at("2030-05-01 08:00"), u"B:10+pause:5+A:20+B:5"_s);
        fixture.deleteWhatIsGone();
        setSaved<KWTask>(fixture.store, fixture.target(u"A"_s).entityID, &KWTaskModel::title, u"A now"_s);

        FocusPageContent shown = page(fixture, {.recordLimit = 1});
        QVERIFY(shown.hasMoreRecords);
        QCOMPARE(shown.records.size(), 1);
        const FocusRecordRow &row = shown.records.first();
        QCOMPARE(row.focused, 35min);
        QCOMPARE(row.pause, 5min);
        QCOMPARE(row.sliceCount, 3);
        QCOMPARE(row.subjects.size(), 2);
        QCOMPARE(row.mainSubject().title, u"A now"_s);
        QCOMPARE(row.mainSubject().tags, QStringList({u"x"_s, u"y"_s}));
        QVERIFY(row.mainSubject().isThere);
        QCOMPARE(row.subjects.last().focused, 15min);
        QCOMPARE(row.subjects.last().listName, u"Inbox"_s);

        shown = page(fixture, {.recordDays = FocusDays{day("2030-05-01 00:00"), day("2030-05-02 00:00")}});
        QVERIFY(!shown.hasMoreRecords);
        QCOMPARE(shown.records.size(), 2); // midnight in Berlin
        QCOMPARE(shown.records.last().mainSubject().title, u"D"_s);
        QCOMPARE(shown.records.last().mainSubject().listName, u"Work"_s);
        QVERIFY(!shown.records.last().mainSubject().isThere);
    }

    void tellsTheGoalsAndTheWeek()
    {
        FocusFixture fixture;
        KWPomoSettingsManager settings{fixture.store.kit().manager(), fixture.store.kit().center(),
                                       fixture.store.userID()};
        KWPomoSettingsModel chosen = settings.settings();
        chosen.dailyPomoGoal = 8;
        chosen.dailyFocusGoal = 90;
        QVERIFY(settings.save(chosen));
        fixture.session(u"pomo"_s, at("2030-04-24 09:00"), u"A:25"_s); // eight days
        fixture.session(u"pomo"_s, at("2030-04-25 09:00"), u"A:25"_s);
        fixture.session(u"pomo"_s, at("2030-05-01 06:00"), u"A:30"_s);
        const FocusPageContent shown = page(fixture);
        QCOMPARE(shown.pomoGoal, 8);
        QCOMPARE(shown.focusGoal, 90min);
        QCOMPARE(listed(QList<FocusDay>(shown.week.begin(), shown.week.end())), u"25=25/1, 1=30/1"_s);
        QCOMPARE(shown.today().focused, 30min);
    }

    void tellsWhatATaskAndAHabitHad()
    {
        FocusFixture fixture;
        fixture.session(u"pomo"_s, at("2030-05-01 08:00"), u"A:20+H:5"_s);
        fixture.session(u"stopwatch"_s, at("2030-05-01 09:00"), u"A:10"_s);
        fixture.session(u"stopwatch"_s, at("2030-04-30 09:00"), u"H:10"_s);
        const QString task = fixture.target(u"A"_s).entityID;
        KWTaskEditor editor{fixture.store.kit().manager()};
        const auto undo = editor.setEstimate(task, 3, 2h);
        QVERIFY(undo);
        auto &context = fixture.store.context();
        const FocusOfTask expected{.pomos = 1, .focused = 30min, .estimatedPomos = 3, .estimated = 2h};
        QVERIFY(FocusReader::readTask(task, context) == expected);
        for (const auto &[pomos, duration] : {std::pair{-1, 0h}, {1001, 0h}, {0, -1h}, {0, 1001h}})
            QVERIFY(isRefused(editor.setEstimate(task, pomos, duration)));
        QVERIFY(undo->undo(fixture.store.kit().manager()));
        QCOMPARE(FocusReader::readTask(task, context)->estimatedPomos, 0);
        const FocusOfHabit ofHabit{.today = 5min, .inTotal = 15min};
        QVERIFY(FocusReader::readHabit(fixture.target(u"H"_s).entityID, context) == ofHabit);
        QVERIFY(!FocusReader::readTask(u"none"_s, context) && !FocusReader::readHabit(u"none"_s, context));
    }

    void readsAgainWhatMayHaveChanged()
    {
        FocusFixture fixture;
        FocusPageLoader loader{fixture.store.kit()};
        QSignalSpy loaded{&loader, &FocusPageLoader::loaded};
        fixture.session(u"pomo"_s, at("2030-05-01 06:00"), u"A:25"_s); // not asked for yet
        loader.load();
        loader.showPeriod({.kind = FocusPeriod::Kind::Month}); // while it reads
        QTRY_COMPARE(loaded.size(), 1);
        const auto latest = [&loaded] { return loaded.last().first().value<FocusPageContent>(); };
        QCOMPARE(latest().statistics.days.size(), 31);
        QCOMPARE(latest().records.size(), 1);
        fixture.session(u"pomo"_s, at("2030-05-01 07:00"), u"B:25"_s);
        QTRY_COMPARE(loaded.size(), 2);
        setSaved<KWTask>(fixture.store, fixture.target(u"B"_s).entityID, &KWTaskModel::title, u"B now"_s);
        QTRY_COMPARE(loaded.size(), 3);
        QCOMPARE(latest().records.first().mainSubject().title, u"B now"_s);
        fixture.store.clock.advance(24h);
        fixture.store.kit().center().post(KWNewDayComesNotification);
        QTRY_COMPARE(loaded.size(), 4);
        QCOMPARE(latest().today().pomos, 0);
        loader.stop();
        fixture.session(u"pomo"_s, at("2030-05-01 08:00"), u"B:25"_s);
        loader.load({.recordLimit = 1});
        QTRY_COMPARE(loaded.size(), 5); // none for the session
        loader.loadMoreRecords();
        QTRY_COMPARE(loaded.size(), 6);
        QCOMPARE(latest().records.size(), 3);
    }
};

ORVANE_TEST(FocusReader_test)
#include "FocusReader_test.moc"
