#include "capture/NewTaskContextOfList.h"

#include "capture/NewTaskService.h"
#include "corvexkit/filter/CXSmartFilter.h"
#include "corvexkit/time/TimeText.h"
#include "model/records/KWProject.h"
#include "model/settings/KWTaskDefaultConfiguration.h"
#include "model/store/KWFilterService.h"
#include "model/store/KWListDataFetcher.h"
#include "support/CaseTable.h"
#include "support/StoreFixture.h"
#include "support/TaskBuilder.h"
#include "support/TestMain.h"

using namespace Qt::StringLiterals;
using namespace std::chrono;

namespace {

QString textOf(const NewTaskContext &context)
{
    QStringList parts;
    if (context.presetList) parts << u"list "_s + *context.presetList;
    if (context.presetDay) parts << u"day "_s + TimeText::fromDay(*context.presetDay);
    if (context.presetsNoDate) parts << u"no date"_s;
    if (context.presetPriority) parts << u"priority "_s + QString::number(*context.presetPriority);
    for (const QString &each : context.presetTagNames)
        parts << u"tag "_s + each;
    if (context.presetAssignee) parts << u"assignee "_s + QString::number(*context.presetAssignee);
    if (context.isNotedFilter) parts << u"note"_s;
    return parts.isEmpty() ? u"-"_s : parts.join(u", "_s);
}

} // namespace

class NewTaskContextOfList_test : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void takesFromAFilterWhatLeavesNoChoice_data() { addCaseRows("filters/presets.txt", 2); }
    void takesFromAFilterWhatLeavesNoChoice()
    {
        QFETCH(const QStringList, cells);
        const CXSmartFilterFrame frame{
            .zone = CXTimeZone::utc(), .today = local_days{2030y / May / 1}, .firstWeekday = Monday, .me = 7};
        QCOMPARE(textOf(newTaskContextOf(CXSmartFilter::parse(cells[0]).value(), frame)), cells[1]);
    }

    // Whatever the defaults of new tasks are.
    void makesATaskThatStandsInTheFilter()
    {
        StoreFixture store;
        KWTaskDefaultConfiguration defaults = store.account().taskDefaultConfiguration();
        defaults.dateOffset = days{1};
        defaults.priority = KWTaskPriorityMedium;
        QVERIFY(KWTaskDefaultConfigurationManager::save(defaults, store.userID(), store.kit().manager(),
                                                        store.kit().defaults(), store.kit().center()));
        const QString list = store.makeList(u"Garden"_s);
        NewTaskService service{store.kit()};
        const KWListDataFetcher fetcher{store.clock};
        for (const QString &rule :
             {uR"({"all":[{"list":["%1"]},{"priority":[5]},{"date":["today"]}]})"_s.arg(list),
              uR"({"all":[{"date":["none"]},{"priority":[0]},{"tag":["errand"]}]})"_s,
              uR"({"all":[{"kind":["note"]},{"assignee":["me"]}]})"_s}) {
            KWFilterService filters{store.kit().manager(), store.userID()};
            const auto filter = KWListIdentifier::filter(*filters.create(rule, *CXSmartFilter::parse(rule)));
            const Result<KWTaskModel> task = service.add(u"Seeds"_s, service.contextOf(filter));
            const auto isThere =
                fetcher.contains(task->sid, {store.userID(), filter}, store.context().connection());
            QVERIFY2(isThere && *isThere, qPrintable(rule));
        }
        const auto gone =
            newTaskContextOf(KWListIdentifier::filter(u"gone"_s), store.userID(), store.context());
        QCOMPARE(textOf(gone), u"-"_s);
    }

    void folderGivesItsFirstListThatTakesTasks()
    {
        StoreFixture store;
        const auto preset = [&store] {
            return newTaskContextOf(KWListIdentifier::group(u"folder"_s), store.userID(), store.context())
                .presetList;
        };
        QVERIFY(!preset());
        const QString first = store.makeList(u"First"_s);
        const QString second = store.makeList(u"Second"_s);
        for (const QString &each : {first, second})
            setSaved<KWProject>(store, each, &KWProjectModel::groupID, u"folder"_s);
        QCOMPARE(preset(), first);
        setSaved<KWProject>(store, first, &KWProjectModel::permission, KWProjectPermissionRead);
        QCOMPARE(preset(), second);
    }
};

ORVANE_TEST(NewTaskContextOfList_test)
#include "NewTaskContextOfList_test.moc"
