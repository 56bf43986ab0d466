#include "calendar/CalendarChoices.h"

#include "model/records/KWCalSubscription.h"
#include "model/records/KWProject.h"
#include "model/records/KWProjectGroup.h"
#include "model/settings/KWCalendarDisplayConfigurationManager.h"
#include "model/store/ListEditor.h"
#include "support/TaskBuilder.h"
#include "support/TestMain.h"

using namespace Qt::StringLiterals;

/// What is offered to be shown on the calendar, and what a choice stores.
class CalendarChoices_test : public QObject {
    Q_OBJECT

    std::unique_ptr<StoreFixture> m_store;
    QString m_garden; // in the folder Home, beside Kitchen
    QString m_work;

    CalendarChoices choices() const { return CalendarChoices::read(m_store->userID(), m_store->context()); }
    KWCalendarDisplayConfigurationManager configurations() const
    {
        return {m_store->kit().manager(), m_store->kit().center(), m_store->userID()};
    }
    CalendarChoice named(const QString &title) const
    {
        for (const CalendarChoice &each : choices().all())
            if (each.title == title) return each;
        qFatal("there is no choice %s", qUtf8Printable(title));
    }
    void choose(const QString &title, bool isShown) const
    {
        QVERIFY(configurations().save(choices().with(named(title), isShown)));
    }
    /// "Inbox Home~(Garden- Kitchen)": "-" hidden, "~" some of it; without the kinds before them.
    QString sources() const
    {
        QStringList texts;
        for (const CalendarChoice &each : choices().all().sliced(4)) {
            const QString mark = each.shown == CalendarChoice::Shown::All    ? u""_s
                                 : each.shown == CalendarChoice::Shown::None ? u"-"_s
                                                                             : u"~"_s;
            texts << (each.isInFolder ? u"."_s : u""_s) + each.title + mark;
        }
        return texts.join(u' ');
    }

private Q_SLOTS:
    void init()
    {
        m_store = std::make_unique<StoreFixture>();
        ListEditor lists{m_store->kit().manager(), m_store->userID()};
        saved(*m_store, [this](ObjectContext &context) {
            for (const char *each : {"Empty", "Home"}) {
                KWProjectGroupModel folder;
                folder.userID = m_store->userID();
                folder.name = QString::fromLatin1(each);
                context.insert<KWProjectGroup>(folder);
            }
            KWCalSubscriptionModel calendar;
            calendar.userID = m_store->userID();
            calendar.name = u"Holidays"_s;
            context.insert<KWCalSubscription>(calendar);
        });
        const auto folders = KWProjectGroup::findGroupsOfUser(m_store->userID(), m_store->context());
        const QString home =
            (*folders.first())->name == u"Home" ? folders.first()->sid() : folders.last()->sid();
        m_garden = *lists.createList({.name = u"Garden"_s, .groupID = home});
        QVERIFY(lists.createList({.name = u"Kitchen"_s, .groupID = home}));
        m_work = *lists.createList({.name = u"Work"_s});
        const QString archived = m_store->makeList(u"Archived"_s);
        setSaved<KWProject>(*m_store, archived, &KWProjectModel::closed, true);
        const QString quiet = m_store->makeList(u"Quiet"_s);
        setSaved<KWProject>(*m_store, quiet, &KWProjectModel::showsInSmartList, false);
    }

    void offersWhatCanBeSeen()
    {
        QCOMPARE(sources(), u"Inbox Home .Garden .Kitchen Work Holidays"_s);
        QVERIFY(!choices().hideSomething());
    }

    void hidesAListAFolderOrACalendar()
    {
        choose(u"Garden"_s, false);
        QCOMPARE(sources(), u"Inbox Home~ .Garden- .Kitchen Work Holidays"_s);
        QVERIFY(choices().hideSomething());
        choose(u"Home"_s, false);
        QCOMPARE(sources(), u"Inbox Home- .Garden- .Kitchen- Work Holidays"_s);
        choose(u"Home"_s, true);
        choose(u"Holidays"_s, false);
        QCOMPARE(sources(), u"Inbox Home .Garden .Kitchen Work Holidays-"_s);
        QVERIFY(configurations().save(choices().withAllShown()));
        QVERIFY(!choices().hideSomething());
        choose(u"Completed Tasks"_s, false);
        QVERIFY(choices().hideSomething() && !configurations().configuration().showsCompleted);
    }

    // Nothing is hidden by what comes hidden.
    void offersFocus()
    {
        QVERIFY(named(u"Focus"_s).shown == CalendarChoice::Shown::None);
        choose(u"Focus"_s, true);
        QVERIFY(named(u"Focus"_s).shown == CalendarChoice::Shown::All);
        QVERIFY(!choices().hideSomething());
        choose(u"Work"_s, false);
        QVERIFY(configurations().save(choices().withAllShown()));
        QVERIFY(configurations().configuration().showsFocus);
        choose(u"Focus"_s, false);
        QVERIFY(configurations().save(choices().withAllShown()));
        QVERIFY(!configurations().configuration().showsFocus && !choices().hideSomething());
    }

    void newListsAreShownAndDeletedOnesForgotten()
    {
        choose(u"Work"_s, false);
        choose(u"Garden"_s, false);
        ListEditor lists{m_store->kit().manager(), m_store->userID()};
        QVERIFY(lists.createList({.name = u"New"_s}));
        QVERIFY(sources().contains(u"New"_s) && !sources().contains(u"New-"_s));
        lists.deleteList(m_work, [](const Result<void> &) {});
        QTRY_COMPARE(configurations().configuration().hiddenLists, QStringList{m_garden});
        // What is archived is not on the calendar in any case.
        setSaved<KWProject>(*m_store, m_garden, &KWProjectModel::closed, true);
        QVERIFY(!choices().hideSomething());
    }
};

ORVANE_TEST(CalendarChoices_test)
#include "CalendarChoices_test.moc"
