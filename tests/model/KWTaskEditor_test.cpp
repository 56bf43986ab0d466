#include "model/store/KWTaskEditor.h"

#include "model/records/KWProject.h"
#include "model/records/KWTask.h"
#include "support/CaseTable.h"
#include "support/TaskBuilder.h"
#include "support/TestMain.h"

using namespace Qt::StringLiterals;

namespace {

constexpr auto berlin = "Europe/Berlin";

std::optional<Instant> when(const QString &cell)
{
    return cell == u"-" ? std::nullopt : std::optional{at(qPrintable(cell), berlin)};
}

} // namespace

class KWTaskEditor_test : public QObject {
    Q_OBJECT

    StoreFixture m_store{"2030-05-01 09:00", berlin};
    KWTaskEditor m_editor{m_store.kit().manager()};
    const KWTaskModel &taskWith(const QString &id) { return m_store.context().find<KWTask>(id)->model(); }

private Q_SLOTS:
    void putsOnAnotherDay_data() { addCaseRows("model/days.txt", 6); }
    void putsOnAnotherDay()
    {
        QFETCH(QStringList, cells);
        const QString id = aTask("Water the seedlings", berlin).savedIn(m_store);
        setSaved<KWTask>(m_store, id, &KWTaskModel::startDate, when(cells.at(0)));
        setSaved<KWTask>(m_store, id, &KWTaskModel::endDate, when(cells.at(1)));
        setSaved<KWTask>(m_store, id, &KWTaskModel::isAllDay, cells.at(2) == u"yes");
        const Day day = CXTimeZone::named(QLatin1StringView{berlin})->dayOf(*when(cells.at(3) + u" 12:00"_s));

        QVERIFY(m_editor.setDay(id, day));
        QCOMPARE(taskWith(id).startDate, when(cells.at(4)));
        QCOMPARE(taskWith(id).endDate, when(cells.at(5)));
        QCOMPARE(taskWith(id).isAllDay, cells.at(4).endsWith(u"00:00"));
        QCOMPARE(taskWith(id).timeZone, QString::fromLatin1(berlin));

        QVERIFY(m_editor.clearDate(id));
        QVERIFY(!taskWith(id).startDate && !taskWith(id).endDate && !taskWith(id).isAllDay);
    }

    void refusesATaskThatIsGone()
    {
        QVERIFY(!m_editor.setPriority(u"gone"_s, KWTaskPriorityHigh));
        QVERIFY(!m_editor.setDay(u"gone"_s, m_store.clock.today()));
    }

    void changesNothingInAListThatMayOnlyBeRead()
    {
        const QString list = m_store.makeList(u"Office"_s);
        const QString id = aTask("Water the seedlings", berlin).in(list).savedIn(m_store);
        const QString item = *m_editor.addItem(id, {}, u"item"_s);
        const QString removed = *m_editor.addItem(id, {}, u"removed"_s);
        QVERIFY(m_editor.removeItem(removed));
        setSaved<KWProject>(m_store, list, &KWProjectModel::permission, KWProjectPermissionRead);
        const KWTaskModel before = taskWith(id);

        const Result<void> refused = m_editor.setTitle(id, u"other"_s);
        QVERIFY(!refused && refused.error().sentence.contains(u"Office"));
        QVERIFY(!m_editor.setDay(id, m_store.clock.today()) && !m_editor.addItem(id, {}, u"other"_s));
        QVERIFY(!m_editor.tickItem(item) && !m_editor.removeItem(item) && !m_editor.restoreItem(removed));
        QCOMPARE(taskWith(id), before);
        QCOMPARE(m_editor.read(id)->items.size(), 1);
    }

    void givesANoteNoChecklist()
    {
        const QString id = aTask("Seedlings").savedIn(m_store);
        setSaved<KWTask>(m_store, id, &KWTaskModel::kind, KWTaskKindNote);
        QVERIFY(!m_editor.addItem(id, {}, u"item"_s));
        QVERIFY(m_editor.read(id)->items.isEmpty());
    }
};

ORVANE_TEST(KWTaskEditor_test)
#include "KWTaskEditor_test.moc"
