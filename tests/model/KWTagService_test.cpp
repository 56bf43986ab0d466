#include "model/store/KWTagService.h"

#include "model/events/NotificationNames.h"
#include "model/records/KWListDisplayConfiguration.h"
#include "model/records/KWListIdentifier.h"
#include "model/records/KWTag.h"
#include "model/records/KWTask.h"
#include "model/records/KWTaskSortOrders.h"
#include "model/records/SortOrderContext.h"
#include "model/settings/KWListDisplayConfigurationManager.h"
#include "model/store/KWTagCache.h"
#include "support/Answers.h"
#include "support/TaskBuilder.h"
#include "support/TestMain.h"

using namespace Qt::StringLiterals;

class KWTagService_test : public QObject {
    Q_OBJECT

    std::unique_ptr<StoreFixture> m_store;
    std::unique_ptr<KWTagService> m_service;
    QString m_task;

    /// "errand chore<errand": the tags by name, each with its parent.
    QString tags() const
    {
        const auto found = KWTag::findTagsOfUser(m_store->userID(), m_store->context());
        return joined(found, [](const KWTag *each) {
            return (*each)->name + ((*each)->parent.isEmpty() ? QString{} : u'<' + (*each)->parent);
        });
    }
    /// A manual position of the task in the list of a tag, in the group of a tag.
    void place(const char *list, const char *group)
    {
        saved(*m_store, [&](ObjectContext &context) {
            KWTaskTagSortOrderModel place;
            place.userID = m_store->userID();
            place.taskID = m_task;
            place.contextID = contextID({.tagName = QString::fromLatin1(list)});
            place.tagName = QString::fromLatin1(group);
            context.insert<KWTaskTagSortOrder>(place);
        });
    }
    /// "tag:errand errand tag:errand home": those positions.
    QString places() const
    {
        const auto places = m_store->context().models<KWTaskTagSortOrder>(
            {.where = "isDeleted = 0", .orderBy = "contextID, tagName"});
        return joined(places, [](const auto &each) { return each.contextID + u' ' + each.tagName; });
    }
    QString tagsOfTask() const { return (*m_store->context().find<KWTask>(m_task))->tags.join(u' '); }

private Q_SLOTS:
    void init()
    {
        m_store = std::make_unique<StoreFixture>();
        m_service = std::make_unique<KWTagService>(m_store->kit().manager(), m_store->userID());
        for (const char *each : {"Errand", "Chore", "Home"})
            QVERIFY(m_service->create({QString::fromLatin1(each)}));
        QVERIFY(m_service->setParent(u"chore"_s, u"Errand"_s));
        m_task = aTask("A").tagged("other").tagged("errand").tagged("home").savedIn(*m_store);
        place("errand", "errand");
        KWListDisplayConfigurationManager lists{m_store->kit().manager(), m_store->kit().center(),
                                                m_store->userID()};
        for (const QString &each : {u"errand"_s, u"home"_s})
            QVERIFY(lists.save(lists.configuration(KWListIdentifier::tag(each))));
    }

    void aRenameReachesAllThatNamesTheTag()
    {
        QCOMPARE(m_service->rename(u"errand"_s, u" Way "_s)->name, u"way"_s);
        QCOMPARE(tags(), u"way chore<way home"_s);
        QCOMPARE(tagsOfTask(), u"other way home"_s);
        QCOMPARE(places(), u"tag:way way"_s);
        QCOMPARE(m_store->context().models<KWListDisplayConfiguration>({.where = "listID = '4:way'"}).size(),
                 1);
        QCOMPARE(m_service->rename(u"way"_s, u"WAY"_s)->name, u"way"_s);
        QCOMPARE(KWTag::findTagNamed(u"way"_s, m_store->userID(), m_store->context())->model().label,
                 u"WAY"_s);
    }

    void aRenameToAnotherTagMakesThemOne()
    {
        place("home", "home");
        place("home", "errand");
        place("errand", "other");
        place("other", "errand");
        const auto taken = [this](const Result<UndoToken> &done) {
            return bool(done->undo(m_store->kit().manager()));
        };
        const QString before = tags() + u", "_s + places() + u", "_s + tagsOfTask();
        const auto joined = m_service->rename(u"errand"_s, u"home"_s);
        QVERIFY(joined->isJoined && taken(joined->undo));
        QCOMPARE(tags() + u", "_s + places() + u", "_s + tagsOfTask(), before);
        QVERIFY(taken(m_service->remove(u"errand"_s)));
        QCOMPARE(tags() + u", "_s + places() + u", "_s + tagsOfTask(), before);
        QVERIFY(m_service->rename(u"errand"_s, u"home"_s));
        QCOMPARE(places(), u"tag:home home tag:home other tag:other home"_s); // each once
        QCOMPARE(tags(), u"chore<home home"_s);
        QCOMPARE(tagsOfTask(), u"other home"_s);
        QCOMPARE(m_store->context().models<KWListDisplayConfiguration>({}).size(), 1);
        QVERIFY(m_service->rename(u"home"_s, u"chore"_s)); // into what is below it
        QCOMPARE(tags(), u"chore"_s);
        QCOMPARE(tagsOfTask(), u"other chore"_s);
    }

    void aDeletedTagLeavesNothingBehind()
    {
        saved(*m_store, [this](ObjectContext &context) { // the service has it
            KWTag::findTagNamed(u"errand"_s, m_store->userID(), context)->markDone();
        });
        QVERIFY(m_service->remove(u"errand"_s));
        QCOMPARE(tags(), u"chore home"_s);
        QCOMPARE(tagsOfTask(), u"other home"_s);
        QCOMPARE(places(), QString{});
        QVERIFY(!m_service->remove(u"errand"_s) && m_service->create({u"ERRAND"_s}));
        QCOMPARE(tags(), u"chore home errand"_s);
    }

    void refusesWhatCannotBe()
    {
        for (const char *each : {"", "  ", "two words", "a#b", "-a", "errand", "ERRAND"})
            QVERIFY2(!m_service->create({QString::fromLatin1(each)}), each);
        QVERIFY(!m_service->create({.label = u"new"_s, .parent = u"nothing"_s}));
        QVERIFY(!m_service->rename(u"home"_s, u"a b"_s));
        QVERIFY(!m_service->rename(u"nothing"_s, u"new"_s));
        QVERIFY(!m_service->setParent(u"home"_s, u"home"_s));
        QVERIFY(!m_service->setParent(u"home"_s, u"chore"_s));  // is below a tag itself
        QVERIFY(!m_service->setParent(u"errand"_s, u"home"_s)); // has one below it
        QVERIFY(!m_service->setColor(u"nothing"_s, u"#112233"_s));
        QCOMPARE(tags(), u"errand chore<errand home"_s);
    }

    void theCacheFollowsAndTells()
    {
        int told = 0;
        const auto observation = m_store->kit().center().addObserver(
            KWTagCacheDidUpdateNotification, [&told](const KWNotification &) { ++told; });
        const KWTagCache &cache = m_store->kit().tags();
        QVERIFY(m_service->setColor(u"home"_s, u"#112233"_s)); // no name changed
        QCOMPARE(told, 0);
        QVERIFY(m_service->rename(u"home"_s, u"House"_s));
        QCOMPARE(told, 1);
        QCOMPARE(cache.names().join(u' '), u"errand chore house"_s);
        QCOMPARE(cache.labelOf(u"house"_s), u"House"_s);
        QVERIFY(!cache.contains(u"home"_s));
        QVERIFY(m_store->account().signOut());
        QCOMPARE(told, 2);
        QVERIFY(cache.names().isEmpty());
    }
};

ORVANE_TEST(KWTagService_test)
#include "KWTagService_test.moc"
