#include "model/records/KWHabitSectionModel.h"
#include "model/records/KWSortOrderResetable.h"
#include "model/records/KWTask.h"
#include "model/records/SortOrder.h"
#include "support/TaskBuilder.h"
#include "support/TestMain.h"

using namespace Qt::StringLiterals;

/// Orders made by hand.
class SortOrder_test : public QObject {
    Q_OBJECT

    using Places = QList<std::int64_t>;

    /// The places after renumbering; none when nothing was to do.
    template <class Record>
    static Places reset(QList<Record *> run, const Places &places)
    {
        for (qsizetype i = 0; i < places.size(); ++i)
            KWEntitySortOrder::update(*run[i], places[i]);
        if (!resetSortOrderIfNeeded(run)) return {};
        Places found;
        for (const Record *each : run)
            found << KWEntitySortOrder::of(*each);
        return found;
    }

private Q_SLOTS:
    // Of value twins and of records alike.
    void aRunIsRenumberedWhenPlacesCollide()
    {
        constexpr std::int64_t step = KWSortOrderStep;
        StoreFixture store;
        for (const auto &[places, expected] : {std::pair{Places{}, Places{}},
                                               {{-3, 0, 1}, {}},
                                               {{7, 7, 8}, {7, 7 + step, 7 + 2 * step}},
                                               {{5, 4}, {5, 5 + step}},
                                               {{KWSortOrderMax, std::numeric_limits<std::int64_t>::max()},
                                                {KWSortOrderMax - step, KWSortOrderMax}},
                                               {{std::numeric_limits<std::int64_t>::min(), KWSortOrderMin},
                                                {KWSortOrderMin, KWSortOrderMin + step}}}) {
            QList<KWHabitSectionModel> sections(places.size());
            QList<KWHabitSectionModel *> twins;
            QList<KWTask *> tasks;
            for (KWHabitSectionModel &each : sections) {
                twins << &each;
                tasks << &store.context().insert<KWTask>({});
            }
            QCOMPARE(reset(twins, places), expected);
            QCOMPARE(reset(tasks, places), expected);
        }
        store.context().rollback();
    }

    // An import brings any number.
    void aStepStaysWithinTheBounds()
    {
        using Limits = std::numeric_limits<std::int64_t>;
        QCOMPARE(sortOrderAfter(7), 7 + KWSortOrderStep);
        QCOMPARE(sortOrderBefore(7), 7 - KWSortOrderStep);
        for (const std::int64_t far : {KWSortOrderMax, Limits::max()})
            QCOMPARE(sortOrderAfter(far), KWSortOrderMax);
        for (const std::int64_t far : {KWSortOrderMin, Limits::min()})
            QCOMPARE(sortOrderBefore(far), KWSortOrderMin);
    }
};

ORVANE_TEST(SortOrder_test)
#include "SortOrder_test.moc"
