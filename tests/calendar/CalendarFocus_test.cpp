#include "calendar/CalendarPageLoader.h"
#include "calendar/CalendarPageReader.h"
#include "calendar/KWRepeatInstanceService.h"
#include "corvexkit/time/TimeText.h"
#include "focus/FocusFixture.h"
#include "focus/FocusRecordEditor.h"
#include "model/records/KWHabit.h"
#include "model/records/KWProject.h"
#include "model/records/KWTask.h"
#include "model/settings/KWCalendarDisplayConfigurationManager.h"
#include "support/TestMain.h"

using namespace Qt::StringLiterals;
using namespace std::chrono;

/// Focus sessions among the other things of a page.
class CalendarFocus_test : public QObject {
    Q_OBJECT

    static constexpr const char *berlin = "Europe/Berlin";

    std::unique_ptr<FocusFixture> m_focus;

    StoreFixture &store() { return m_focus->store; }
    QString session(const char *start, const QString &stretches, const QString &type = u"pomo"_s)
    {
        return m_focus->session(type, at(start, berlin), stretches);
    }
    void configure(const std::function<void(KWCalendarDisplayConfigurationModel &)> &change)
    {
        KWCalendarDisplayConfigurationManager manager{store().kit().manager(), store().kit().center(),
                                                      store().userID()};
        auto configuration = manager.configuration();
        change(configuration);
        QVERIFY(manager.save(configuration));
    }
    void showFocus()
    {
        configure([](auto &configuration) { configuration.showsFocus = true; });
    }
    static CalendarPage week()
    {
        return CalendarPage::around(Day{2030y / 5 / 1}, CalendarPage::Kind::Week, Monday);
    }
    static std::vector<CalendarItem> sessionsOf(const CalendarPageContent &content)
    {
        std::vector<CalendarItem> sessions = content.items;
        std::erase_if(sessions,
                      [](const CalendarItem &each) { return each.kind != CalendarItem::Kind::Focus; });
        return sessions;
    }
    /// "A 04-29 09:00-09:25", of sessions.
    static QString textOf(const CalendarPageContent &content)
    {
        QStringList texts;
        for (const CalendarItem &each : sessionsOf(content))
            texts << each.title + u' ' + TimeText::fromLocalTime(each.start).mid(5, 11).replace(u'T', u' ') +
                         u'-' + TimeText::fromLocalTime(each.end).mid(11, 5);
        return texts.isEmpty() ? u"-"_s : texts.join(u"; "_s);
    }
    CalendarPageContent read()
    {
        auto content = readCalendarPage(week(), store().userID(), {}, store().context());
        if (!content) qFatal("%s", qUtf8Printable(content.error().sentence));
        return *content;
    }
    QString shown() { return textOf(read()); }

private Q_SLOTS:
    void init() { m_focus = std::make_unique<FocusFixture>("2030-05-03 12:00", berlin); }
    void cleanup() { m_focus.reset(); }

    void areShownOnlyWhenWanted()
    {
        session("2030-05-01 09:00", u"A:25"_s);
        QCOMPARE(shown(), u"-"_s);
        showFocus();
        QCOMPARE(shown(), u"A 05-01 09:00-09:25"_s);
    }

    void areThoseThatTakePlaceOnThePage()
    {
        showFocus();
        session("2030-04-28 23:00", u"A:60"_s); // ends where the week begins
        session("2030-04-28 23:50", u"B:0.5"_s);
        session("2030-04-28 23:55", u"A:25"_s, u"stopwatch"_s);
        session("2030-05-01 23:50", u"B:25"_s);
        session("2030-05-02 09:00", u"A:25"_s, u"abandoned"_s);
        session("2030-05-05 23:59", u"H:25"_s);
        session("2030-05-06 00:00", u"A:25"_s);
        QCOMPARE(shown(), u"A 04-28 23:55-00:20; B 05-01 23:50-00:15; H 05-05 23:59-00:24"_s);
        const CalendarPageContent content = read();
        QCOMPARE(content.timed.size(), 4U); // one over midnight stands on both days, others on one
        for (const LaneBar &each : content.bars)
            QVERIFY(content.items[each.item].kind != CalendarItem::Kind::Focus);
    }

    void areTitledByWhatTheyWereSpentOn()
    {
        showFocus();
        session("2030-05-01 08:00", u"A:10+pause:5+B:10+A:10"_s);
        session("2030-05-01 09:00", u"nothing:25"_s);
        session("2030-05-01 10:00", u"nothing:10+H:10"_s);
        session("2030-05-01 11:00", u"D:25"_s);
        session("2030-05-01 12:00", u"G:25"_s);
        m_focus->deleteWhatIsGone();
        QCOMPARE(shown(), u"A, B 05-01 08:00-08:35; Focus 05-01 09:00-09:25; H 05-01 10:00-10:20; "
                          "D 05-01 11:00-11:25; G 05-01 12:00-12:25"_s);
    }

    void canBeReadAloneInTheColorOfTheList()
    {
        showFocus();
        const QString work =
            store().context().find<KWTask>(m_focus->target(u"A"_s).entityID)->model().projectID;
        setSaved<KWProject>(store(), work, &KWProjectModel::color, u"#112233"_s);
        session("2030-05-01 09:00", u"B:10+A:10"_s);
        session("2030-05-01 11:00", u"B:10"_s);
        const auto sessions = sessionsOf(read());
        QCOMPARE(sessions.size(), 2U);
        for (const CalendarItem &each : sessions)
            QVERIFY(each.isReadOnly && !each.isAllDay && !each.isClosed && each.taskID.isEmpty());
        QCOMPARE(sessions.front().color, u"#112233"_s);
        QCOMPARE(sessions.back().color, u""_s);

        configure([&work](auto &configuration) { configuration.hiddenLists = {work}; });
        session("2030-05-01 13:00", u"A:25"_s);
        QCOMPARE(shown(), u"B 05-01 09:00-09:20; B 05-01 11:00-11:10"_s);
    }

    void standBehindWhatTheyOverlap()
    {
        showFocus();
        aTask("Call", berlin).startingAt("2030-05-01 09:10").endingAt("2030-05-01 10:00").savedIn(store());
        aTask("Mail", berlin).startingAt("2030-05-01 09:10").endingAt("2030-05-01 10:00").savedIn(store());
        session("2030-05-01 09:00", u"A:25"_s);
        const CalendarPageContent content = read();
        QCOMPARE(content.timed.size(), 3U);
        for (const TimedBox &each : content.timed) {
            QCOMPARE(each.columns, 3);
            QCOMPARE(each.column == 2, content.items[each.item].kind == CalendarItem::Kind::Focus);
        }
    }

    void areReadAgainWhenTheyChange()
    {
        showFocus();
        KWRepeatInstanceService repeats{store().kit().manager(), store().account(), store().kit().center(),
                                        store().clock};
        CalendarPageLoader loader{store().kit(), repeats, store().clock};
        QString told;
        connect(&loader, &CalendarPageLoader::loaded, this,
                [&told](const CalendarPageContent &content) { told = textOf(content); });
        loader.load(week());
        QTRY_COMPARE(told, u"-"_s);
        const QString id = session("2030-05-01 09:00", u"A:25"_s);
        QTRY_COMPARE(told, u"A 05-01 09:00-09:25"_s);
        FocusRecordEditor editor{store().kit()};
        QVERIFY(editor.change(id, {.startDate = at("2030-05-01 10:00", berlin),
                                   .endDate = at("2030-05-01 10:30", berlin),
                                   .target = m_focus->target(u"B"_s)}));
        QTRY_COMPARE(told, u"B 05-01 10:00-10:30"_s);
        QVERIFY(editor.remove(id));
        QTRY_COMPARE(told, u"-"_s);
    }
};

ORVANE_TEST(CalendarFocus_test)
#include "CalendarFocus_test.moc"
