#include "model/store/KWFilterService.h"

#include "model/records/KWFilter.h"
#include "model/store/KWListDataFetcher.h"
#include "model/store/KWTagService.h"
#include "support/Answers.h"
#include "support/TaskBuilder.h"
#include "support/TestMain.h"

using namespace Qt::StringLiterals;

class KWFilterService_test : public QObject {
    Q_OBJECT

    StoreFixture m_store{"2030-05-01 09:00"};

    KWFilterService service() { return {m_store.kit().manager(), m_store.userID()}; }
    static CXSmartFilter filter(const char16_t *rule)
    {
        return *CXSmartFilter::parse(QString::fromUtf16(rule));
    }
    KWFilter &stored(const QString &id) { return *m_store.context().find<KWFilter>(id); }
    Result<QList<KWTaskListItemModel>> rows(const QString &filterID)
    {
        return KWListDataFetcher{m_store.clock}.reloadDataModel(
            {m_store.userID(), KWListIdentifier::filter(filterID)}, m_store.context().connection());
    }

private Q_SLOTS:
    void cleanup()
    {
        saved(m_store, [](ObjectContext &context) {
            for (KWFilter *each : context.fetch<KWFilter>({}))
                context.remove(*each);
        });
    }

    void makesChangesAndDeletes()
    {
        const QString first = *service().create(u" Errands\nsoon "_s, filter(uR"({"tag":["errand"]})"));
        const QString second = *service().create(u"Rest"_s, {});
        QCOMPARE(stored(first)->name, u"Errands soon"_s);
        QCOMPARE(stored(first)->rule, uR"({"tag":["errand"],"version":1})"_s);
        QCOMPARE(KWFilter::findFiltersOfUser(m_store.userID(), m_store.context()),
                 (QList{&stored(first), &stored(second)}));

        QVERIFY(service().change(first, u"errands SOON"_s, filter(uR"({"priority":[5]})")));
        QVERIFY(stored(first).parsedSmartFilter().value() == filter(uR"({"priority":[5]})"));
        QCOMPARE(service().create(u"rest"_s, {}).error().sentence, u"There is a filter “Rest” already."_s);
        QCOMPARE(service().change(second, u" "_s, {}).error().sentence, u"A filter needs a name."_s);
        QCOMPARE(stored(second)->name, u"Rest"_s);

        QVERIFY(service().remove(second));
        QCOMPARE(KWFilter::findFiltersOfUser(m_store.userID(), m_store.context()), QList{&stored(first)});
        QVERIFY(service().create(u"Rest"_s, {}));
        for (const Result<void> &each :
             {service().change(second, u"Else"_s, {}), service().change(u"nothing"_s, u"Else"_s, {})})
            QCOMPARE(each.error().sentence, u"There is no such filter any more."_s);
        QVERIFY(!service().remove(second));
    }

    void showsAndCountsWhatFits()
    {
        aTask("Soap").tagged("errand").dueOn("2030-05-02").savedIn(m_store);
        aTask("Bread").tagged("errand").dueOn("2030-05-01").savedIn(m_store);
        aTask("Oil").tagged("errand").completedAt("2030-05-01 08:00").savedIn(m_store);
        const CXSmartFilter errands = filter(uR"({"tag":["errand"]})");
        const QString id = *service().create(u"Errands"_s, errands);
        QCOMPARE(joined(*rows(id), &KWTaskListItemModel::title), u"Bread Soap"_s);
        QCOMPARE(service().countOfTasks(errands).value(), 2);
        QCOMPARE(service().countOfTasks({}).value(), 2);
    }

    // Nothing but the list is lost, and that says why.
    void keepsARuleThatCannotBeRead()
    {
        const QString id = *service().create(u"Errands"_s, {});
        setSaved<KWFilter>(m_store, id, &KWFilterModel::rule, uR"({"colour":["red"]})"_s);
        QCOMPARE(
            rows(id).error().sentence,
            u"The filter's rule cannot be read at its beginning: a condition that asks nothing known."_s);
        QVERIFY(KWTagService(m_store.kit().manager(), m_store.userID()).create({.label = u"red"_s}));
        QVERIFY(KWTagService(m_store.kit().manager(), m_store.userID()).rename(u"red"_s, u"green"_s));
        QCOMPARE(stored(id)->rule, uR"({"colour":["red"]})"_s);
        QVERIFY(rows(u"nothing"_s)->isEmpty());
    }

    void followsARenamedTag()
    {
        KWTagService tags{m_store.kit().manager(), m_store.userID()};
        QVERIFY(tags.create({.label = u"Shop"_s}));
        const QString id = *service().create(u"Shopping"_s, filter(uR"({"not":{"tag":["shop"]}})"));
        QVERIFY(tags.rename(u"Shop"_s, u"Market"_s));
        QVERIFY(stored(id).parsedSmartFilter().value() == filter(uR"({"not":{"tag":["market"]}})"));
    }
};

ORVANE_TEST(KWFilterService_test)
#include "KWFilterService_test.moc"
