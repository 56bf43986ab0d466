#include "app/LinkOpener.h"

#include "corvexkit/time/TimeText.h"
#include "model/records/KWCalSubscriptionEvent.h"
#include "model/records/KWHabit.h"
#include "model/records/KWProject.h"
#include "model/records/KWRepeatInstance.h"
#include "model/records/KWTask.h"
#include "model/settings/KWCalendarDisplayConfigurationManager.h"
#include "model/store/CalSubscriptionEditor.h"
#include "support/CaseTable.h"
#include "support/EventBuilder.h"
#include "support/TaskBuilder.h"
#include "support/TestMain.h"

using namespace Qt::StringLiterals;

namespace {

struct RecordingTarget final : LinkTarget {
    void showList(const KWListIdentifier &list) override { shown << u"list "_s + list.userDefaultEncode(); }
    void showTask(const QString &taskID, const KWListIdentifier &list) override
    {
        shown << u"task %1 in %2"_s.arg(taskID, list.userDefaultEncode());
    }
    void showEvent(const QString &eventID, Instant start) override
    {
        const QString day = TimeText::fromDay(CXTimeZone{}.dayOf(start));
        shown << u"event %1 on %2"_s.arg(eventID, day);
    }
    void showHabit(const QString &habitID) override { shown << u"habit "_s + habitID; }
    void showMessage(const QString &sentence) override { shown << sentence; }
    QStringList shown;
};

} // namespace

class LinkOpener_test : public QObject {
    Q_OBJECT

    StoreFixture m_store;
    RecordingTarget m_target;
    QString m_calendar;
    std::optional<LinkOpener> m_links;

private Q_SLOTS:
    void initTestCase()
    {
        for (const auto &[id, isClosed] : {std::pair{u"list"_s, false}, {u"closed"_s, true}}) {
            KWProjectModel model;
            model.sid = id;
            model.userID = m_store.userID();
            model.closed = isClosed;
            saved(m_store, [&model](ObjectContext &context) { context.insert<KWProject>(model); });
        }
        for (const auto &[id, list, state] : {std::tuple{u"task"_s, u"list"_s, u"open"_s},
                                              {u"done"_s, u"list"_s, u"completed"_s},
                                              {u"dropped"_s, u"list"_s, u"abandoned"_s},
                                              {u"thrown"_s, u"list"_s, u"trashed"_s},
                                              {u"deleted"_s, u"list"_s, u"deleted"_s},
                                              {u"shelved"_s, u"closed"_s, u"open"_s}})
            aTask("Repot the fig")
                .with(&KWTaskModel::sid, id)
                .in(list)
                .inState(state, "2030-05-01 08:00")
                .savedIn(m_store);
        const QString calendar = makeCalendar(m_store, "Sports");
        const auto add = [&](const char *id, EventBuilder event) {
            KWCalSubscriptionEventModel model = event.in(calendar).model();
            model.sid = QString::fromLatin1(id);
            model.userID = m_store.userID();
            saved(m_store,
                  [&model](ObjectContext &context) { context.insert<KWCalSubscriptionEvent>(model); });
        };
        add("match", anEvent("Match").from("2030-04-20 18:00", "2030-04-20 20:00"));
        add("training", anEvent("Training").on("2029-01-01").repeating("FREQ=DAILY"));
        add("ended", anEvent("Ended").on("2029-01-01").repeating("FREQ=DAILY;COUNT=2"));
        add("coming", anEvent("Coming").on("2030-06-01").repeating("FREQ=YEARLY"));
        saved(m_store, [this](ObjectContext &context) {
            std::vector<KWRepeatInstance::Made> made;
            for (const char *day : {"2030-04-30 00:00", "2030-05-02 00:00", "2030-05-03 00:00"})
                made.push_back({u"training"_s, KWRepeatInstanceTypeEvent, at(day), at(day)});
            QVERIFY(KWRepeatInstance::insertAll(made, m_store.userID(), context));
        });
        m_calendar = calendar;
        KWHabitModel habit;
        habit.sid = u"habit"_s;
        habit.userID = m_store.userID();
        saved(m_store, [&habit](ObjectContext &context) { context.insert<KWHabit>(habit); });
        m_links.emplace(m_store.kit().manager(), m_store.account(), m_store.kit().center(), m_target);
    }
    void init() { m_target.shown.clear(); }

    void opens_data() { addCaseRows("app/links.txt", 2); }
    void opens()
    {
        QFETCH(QStringList, cells);
        m_links->open(cells.at(0));
        QCOMPARE(m_target.shown.size(), 1);
        QString shown = m_target.shown.constFirst();
        shown.replace(KWProject::inboxIDOfUser(m_store.userID()), u"inbox"_s);
        QVERIFY2(shown.contains(cells.at(1)), qUtf8Printable(shown));
        if (const auto link = OrvaneLink::parse(cells.at(0))) QCOMPARE(OrvaneLink::parse(link->text()), link);
    }

    void opensNoEventOfACalendarThatIsNotSeen()
    {
        KWCalendarDisplayConfigurationManager hiding{m_store.kit().manager(), m_store.kit().center(),
                                                     m_store.userID()};
        QVERIFY(hiding.setShowsCalendar(false, m_calendar));
        m_links->open(u"orvane://event/match"_s);
        QVERIFY(m_target.shown.last().contains(u"hidden"_s));
        QVERIFY(hiding.setShowsCalendar(true, m_calendar));
        KWCalendarDisplayConfigurationModel plain = hiding.configuration();
        plain.showsRepeats = false;
        QVERIFY(hiding.save(plain));
        m_links->open(u"orvane://event/training"_s);
        QCOMPARE(m_target.shown.last(), u"event training on 2029-01-01"_s); // the only one on the page
        CalSubscriptionEditor editor{m_store.kit().manager(), m_store.userID()};
        const Result<UndoToken> removed = editor.remove(m_calendar);
        m_links->open(u"orvane://event/match"_s);
        QVERIFY(m_target.shown.last().contains(u"not here"_s));
        QVERIFY(removed->undo(m_store.kit().manager()));
    }

    void waitsForSomebodyToSignIn()
    {
        QVERIFY(m_store.account().signOut());
        m_links->open(u"orvane://task/task"_s);
        QCOMPARE(m_target.shown, QStringList{});
        QVERIFY(m_store.account().signInLocally(QLocale::c()));
        QCOMPARE(m_target.shown, QStringList{u"task task in 1:list"_s});
    }
};

ORVANE_TEST(LinkOpener_test)
#include "LinkOpener_test.moc"
