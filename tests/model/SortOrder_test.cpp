#include "model/records/KWColumn.h"
#include "model/records/KWHabit.h"
#include "model/records/KWHabitSectionModel.h"
#include "model/records/KWProject.h"
#include "model/records/KWProjectPinnedSortOrder.h"
#include "model/records/KWSortOrderResetable.h"
#include "model/records/KWTask.h"
#include "model/records/KWTaskSortOrders.h"
#include "model/records/KWTeamworker.h"
#include "model/records/KWUser.h"
#include "support/TaskBuilder.h"
#include "support/TestMain.h"

using namespace Qt::StringLiterals;

static_assert(KWSortOrderResetable<KWTask> && KWSortOrderResetable<KWColumn> &&
              KWSortOrderResetable<KWHabit> && KWSortOrderResetable<KWProjectPinnedSortOrder> &&
              KWSortOrderResetable<KWTaskTagSortOrder> && KWSortOrderResetable<KWHabitSectionModel>);
static_assert(!KWSortOrderResetable<KWUser> && !KWSortOrderResetable<KWTeamworker>);

/// Orders made by hand and orders by name.
class SortOrder_test : public QObject {
    Q_OBJECT

    using Places = QList<std::int64_t>;

    /// The places after renumbering, of value twins and of records alike; none when nothing was to do.
    static Places reset(const Places &places)
    {
        QList<KWHabitSectionModel> sections(places.size());
        StoreFixture store;
        QList<KWHabitSectionModel *> twins;
        QList<KWTask *> tasks;
        for (qsizetype i = 0; i < places.size(); ++i) {
            sections[i].sortOrder = places[i];
            twins << &sections[i];
            KWTaskModel task = aTask("A").in(KWProject::inboxIDOfUser(store.userID())).model();
            task.sortOrder = places[i];
            tasks << &store.context().insert<KWTask>(task);
        }
        Places found;
        const bool isReset = resetSortOrderIfNeeded(twins);
        if (isReset != resetSortOrderIfNeeded(tasks)) qFatal("Twins and records differ");
        for (qsizetype i = 0; i < places.size(); ++i) {
            if (sections[i].sortOrder != tasks[i]->model().sortOrder) qFatal("Twins and records differ");
            found << sections[i].sortOrder;
        }
        store.context().rollback();
        return isReset ? found : Places{};
    }

private Q_SLOTS:
    void aRunIsRenumberedWhenPlacesCollide()
    {
        constexpr std::int64_t step = KWSortOrderStep;
        QCOMPARE(reset({}), Places{});
        QCOMPARE(reset({-3, 0, 1}), Places{});
        QCOMPARE(reset({7, 7, 8}), Places({7, 7 + step, 7 + 2 * step}));
        QCOMPARE(reset({5, 4}), Places({5, 5 + step}));
        QCOMPARE(reset({KWSortOrderMax, 0}), Places({KWSortOrderMax - step, KWSortOrderMax}));
    }

    void aPlaceStaysInsideTheBounds()
    {
        KWHabitSectionModel section;
        KWEntitySortOrder::update(section, std::numeric_limits<std::int64_t>::max());
        QCOMPARE(section.sortOrder, KWSortOrderMax);
        KWEntitySortOrder::update(section, std::numeric_limits<std::int64_t>::min());
        QCOMPARE(section.sortOrder, KWSortOrderMin);
    }

    void membersStandByNameAsTheLanguageOrders()
    {
        StoreFixture store;
        QList<KWTeamworker *> members;
        for (const QString &name : {u"zebra"_s, u"Part 10"_s, u"part 2"_s, u"Äpfel"_s, u"birne"_s}) {
            KWTeamworkerModel member;
            member.name = name;
            members << &store.context().insert<KWTeamworker>(member);
        }
        QStringList names;
        for (const KWTeamworker *each : KWTeamworker::sortedByName(members, QLocale{u"de_DE"_s}))
            names << each->model().name;
        QCOMPARE(names.join(u", "_s), u"Äpfel, birne, part 2, Part 10, zebra"_s);
        store.context().rollback();
    }
};

ORVANE_TEST(SortOrder_test)
#include "SortOrder_test.moc"
