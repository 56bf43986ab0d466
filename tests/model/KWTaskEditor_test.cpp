#include "model/store/KWTaskEditor.h"

#include "model/records/KWChecklistItem.h"
#include "model/records/KWProject.h"
#include "model/records/KWTask.h"
#include "support/Answers.h"
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
    QString items(const QString &taskID)
    {
        return joined(m_editor.read(taskID)->items, &KWChecklistItemModel::title);
    }

private Q_SLOTS:
    void putsOnAnotherDay_data() { addCaseRows("model/days.txt", 6); }
    void putsOnAnotherDay()
    {
        QFETCH(QStringList, cells);
        TaskBuilder task = aTask("Water the seedlings").with(&KWTaskModel::startDate, when(cells.at(0)));
        task.with(&KWTaskModel::endDate, when(cells.at(1)));
        const QString id = task.with(&KWTaskModel::isAllDay, cells.at(2) == u"yes").savedIn(m_store);
        const Day day = CXTimeZone::named(QLatin1StringView{berlin})->dayOf(*when(cells.at(3) + u" 12:00"_s));

        QVERIFY(m_editor.setDay(id, day));
        QCOMPARE(taskWith(id).startDate, when(cells.at(4)));
        QCOMPARE(taskWith(id).endDate, when(cells.at(5)));
        QCOMPARE(taskWith(id).isAllDay, cells.at(4).endsWith(u"00:00"));
        QCOMPARE(taskWith(id).timeZone, QString::fromLatin1(berlin));

        QVERIFY(m_editor.clearDate(id));
        QVERIFY(!taskWith(id).startDate && !taskWith(id).endDate && !taskWith(id).isAllDay);
    }

    void editsTheTitleAndTheText()
    {
        const QString id = aTask("Pay rent").savedIn(m_store);
        QVERIFY(m_editor.setTitle(id, u"\r\n😀\nPay\r\nthe\u2028rent \n"_s));
        const QString odd = u"\u202Eשלום‏ 👩‍🚀 𝒙\n'; DROP TABLE tasks; -- \" ? % _ \\"_s +
                            QChar{u'\0'} + QString{100'000, u'語'};
        QVERIFY(m_editor.setContent(id, odd));
        QVERIFY(isRefused(m_editor.setTitle(id, u" \n"_s)));
        QVERIFY(m_editor.addItem(id, {}, u"item"_s)); // makes a checklist of it
        const auto fresh = std::move(*m_store.kit().store().makeContext());
        QCOMPARE(fresh->find<KWTask>(id)->model().desc, odd);
        QVERIFY(m_editor.setContent(id, u"In cash"_s));
        QCOMPARE(taskWith(id).title, u"😀 Pay the rent"_s);
        QCOMPARE(taskWith(id).desc, u"In cash"_s);
        QCOMPARE(taskWith(id).content, QString{});
    }

    void keepsTheItemsOfAChecklistInOrder()
    {
        const QString id = aTask("Pay rent").savedIn(m_store);
        const QString second = *m_editor.addItem(id, {}, u"second"_s);
        QVERIFY(m_editor.addItem(id, {}, u"first"_s));
        const QString last = *m_editor.addItem(id, u"no such item"_s, u"last"_s);
        QString titles = u"last"_s;
        for (int i = 0; i < 60; ++i) { // more than there is room for
            QVERIFY(m_editor.addItem(id, second, QString::number(i)));
            titles.prepend(QString::number(i) + u' ');
        }
        QCOMPARE(items(id), u"first second "_s + titles);

        QVERIFY(m_editor.tickItem(last) && m_editor.read(id)->items.last().isCompleted());
        QVERIFY(m_editor.tickItem(last) && !m_editor.read(id)->items.last().isCompleted());
        QVERIFY(m_editor.setItemTitle(last, u"the\nlast"_s));
        QVERIFY(m_editor.removeItem(second) && !m_editor.tickItem(second));
        QCOMPARE(items(id), u"first "_s + titles.replace(u"last"_s, u"the last"_s));
    }

    void datesAnItem()
    {
        const QString id = aTask("Pay rent").savedIn(m_store);
        const QString itemID = *m_editor.addItem(id, {}, u"first"_s);
        const auto item = [&] { return m_editor.read(id)->items.first(); };
        const Instant evening = at("2030-05-02 18:00", berlin);
        QVERIFY(m_editor.setItemDate(itemID, KWDateTime{evening, true}));
        QCOMPARE(item().remindTime, evening);
        setSaved<KWChecklistItem>(m_store, itemID, &KWChecklistItemModel::snoozedRemindDate, evening);

        const auto moved = m_editor.setItemDate(itemID, KWDateTime{at("2030-05-03 00:00", berlin), false});
        QVERIFY(moved && item().isAllDay && !item().snoozedRemindDate && !item().remindTime);
        QVERIFY(m_editor.setItemTitle(itemID, u"other"_s));
        QVERIFY(moved->undo(m_store.kit().manager()));
        QVERIFY(!item().isAllDay);
        QCOMPARE(item().startDate, evening);
        QCOMPARE(item().snoozedRemindDate, evening);
        QCOMPARE(item().title, u"other"_s);
        QVERIFY(!m_editor.setItemDate(itemID, std::nullopt)->isEmpty() && !item().startDate);
        QVERIFY(m_editor.setItemDate(itemID, std::nullopt)->isEmpty());
    }

    void refusesWhatATaskCannotTake()
    {
        const QString deleted = aTask("Seedlings").inState(u"deleted"_s, {}).savedIn(m_store);
        for (const QString &each : {u"gone"_s, deleted}) {
            QVERIFY(!m_editor.setTitle(each, u"Rent"_s) && !m_editor.addItem(each, {}, u"Item"_s));
            QVERIFY(!m_editor.setDay(each, m_store.clock.today()) && !m_editor.read(each));
        }
        const QString note = aTask("Rent").with(&KWTaskModel::kind, KWTaskKindNote).savedIn(m_store);
        QVERIFY(!m_editor.addItem(note, {}, u"Item"_s) && m_editor.read(note)->items.isEmpty());
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

        QVERIFY(isRefused(m_editor.setTitle(id, u"other"_s), u"Office"));
        QVERIFY(!m_editor.setDay(id, m_store.clock.today()) && !m_editor.addItem(id, {}, u"other"_s));
        QVERIFY(!m_editor.tickItem(item) && !m_editor.setItemDate(item, {}) && !m_editor.removeItem(item) &&
                !m_editor.restoreItem(removed));
        QCOMPARE(taskWith(id), before);
        QCOMPARE(m_editor.read(id)->items.size(), 1);
    }
};

ORVANE_TEST(KWTaskEditor_test)
#include "KWTaskEditor_test.moc"
