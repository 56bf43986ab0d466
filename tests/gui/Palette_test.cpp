#include "gui/ClientFixture.h"
#include "gui/WindowHelp.h"
#include "model/records/KWProject.h"
#include "model/records/KWTask.h"
#include "model/store/ListEditor.h"
#include "support/TestMain.h"
#include "views/main/MainWindow.h"
#include "views/palette/CommandPalette.h"
#include "views/palette/FoundRowsView.h"
#include "views/palette/NameRanking.h"
#include "views/search/SearchPage.h"

#include <QApplication>
#include <QListView>

using namespace Qt::StringLiterals;

namespace {

QStringList titlesOf(const FoundRowsView &view)
{
    QStringList titles;
    for (int row = 0; row < view.model()->rowCount(); ++row)
        titles.append(view.model()->index(row, 0).data().toString());
    return titles;
}

} // namespace

/// The command palette and the search page, by keyboard.
class Palette_test : public QObject {
    Q_OBJECT

    std::unique_ptr<ClientFixture> m_client;

    CommandPalette *palette() { return m_client->window()->findChild<CommandPalette *>(); }
    QStringList paletteFor(const QString &typed)
    {
        m_client->rooms().menu().action(MenuCommand::OpenPalette).trigger();
        if (!palette()) qFatal("no palette has opened");
        auto *field = palette()->findChild<QWidget *>(u"paletteField"_s);
        field->setFocus();
        QTest::keyClicks(field, typed);
        return titlesOf(palette()->rows());
    }
    void answer(Qt::Key key)
    {
        QTest::keyClick(palette()->findChild<QWidget *>(u"paletteField"_s), key);
        QTRY_VERIFY(!palette());
    }
    SearchPage &page() { return m_client->find<SearchPage>("searchPage"); }
    QString title() { return m_client->rooms().sidebar().titleOfSelectedList(); }

private Q_SLOTS:
    void init()
    {
        m_client = std::make_unique<ClientFixture>();
        m_client->useOnThisComputer();
        for (const QString &each : {u"Buy milk ^Shopping"_s, u"Milk the oats ^Garden"_s, u"Paint"_s})
            QVERIFY(m_client->rooms().newTasks().add(each));
    }

    void ranksNames()
    {
        const QStringList titles{u"Trip to Rome"_s, u"Old trips"_s, u"Round-trip"_s, u"Strips"_s, u"Été"_s};
        QList<FoundRow> rows;
        for (const QString &each : titles)
            rows.append({.kind = FoundRow::Kind::List, .id = each, .title = each});
        const NameRanking names{rows};
        const auto found = [&names](const QString &typed, const QStringList &recent = {}) {
            const NameRanking::Found all = names.find(typed, recent);
            QStringList ids;
            for (const FoundRow &each : all.byWord + all.withinWord)
                ids.append(each.id);
            return ids.join(u", "_s);
        };
        QCOMPARE(found(u"TRIP"_s), u"Trip to Rome, Old trips, Round-trip, Strips"_s);
        QCOMPARE(found(u"trip"_s, {u"Round-trip"_s}), u"Trip to Rome, Round-trip, Old trips, Strips"_s);
        QCOMPARE(found(u"rome tri"_s), u"Trip to Rome"_s);
        QCOMPARE(found(u"ete"_s), u"Été"_s);
        QCOMPARE(found(u"→"_s), QString{});
        QCOMPARE(found({}, {u"Strips"_s}).section(u", "_s, 0, 1), u"Strips, Trip to Rome"_s);
        QCOMPARE(names.find(u"rome"_s, {}).byWord.first().titleMarks, (QList<TextMark>{{8, 4}}));
    }

    void opensListsTasksAndCommands()
    {
        QCOMPARE(paletteFor(u"shop"_s).first(), u"Shopping"_s);
        answer(Qt::Key_Return);
        QCOMPARE(title(), u"Shopping"_s);
        QCOMPARE(m_client->shownTitles(), QStringList{u"Buy milk"_s});

        const QStringList found = paletteFor(u"milk"_s);
        QCOMPARE(found, QStringList({u"Milk the oats"_s, u"Buy milk"_s, u"Search all for “milk”"_s}));
        answer(Qt::Key_Return);
        QCOMPARE(title(), u"Garden"_s);

        QCOMPARE(paletteFor(u"tomor"_s).first(), u"Tomorrow"_s);
        answer(Qt::Key_Escape);
        QCOMPARE(title(), u"Garden"_s);

        QVERIFY(paletteFor({}).indexOf(u"Shopping"_s) == 0); // used last
        answer(Qt::Key_Escape);

        // The command that opens the list has no row of its own, and gives its keys to that of the list.
        QCOMPARE(paletteFor(u"tomor"_s).filter(u"Tomorrow"_s),
                 QStringList({u"Tomorrow"_s, u"Task: Tomorrow"_s}));
        QCOMPARE(palette()->rows().current()->note, u"Ctrl+3"_s);
        QVERIFY(palette()->rows().current()->icon == Icon::Tomorrow);
        answer(Qt::Key_Escape);

        QCOMPARE(paletteFor(u"tags"_s), QStringList{u"Search all for “tags”"_s}); // a heading is no list
        answer(Qt::Key_Escape);

        paletteFor(u"summary"_s);
        answer(Qt::Key_Return);
        QVERIFY(m_client->window()->isSummaryShown());

        paletteFor(u"print"_s);
        QTest::keyClick(palette()->findChild<QWidget *>(u"paletteField"_s), Qt::Key_Return);
        QVERIFY(palette()); // there is no list, and the row says so
        QCOMPARE(palette()->rows().current()->note, u"This is for lists, and the summary is shown."_s);
        answer(Qt::Key_Escape);

        paletteFor(u"habits"_s);
        answer(Qt::Key_Return);
        QVERIFY(m_client->window()->isHabitsShown());
    }

    void opensTasksOfArchivedLists()
    {
        m_client->openList(u"Garden"_s);
        const QString garden = m_client->rooms().sidebar().selectedList().entityID;
        QVERIFY(ListEditor(m_client->kit().manager(), m_client->kit().account().currentUserID())
                    .setClosed(garden, true));
        const QStringList found = paletteFor(u"oats"_s);
        QCOMPARE(found.first(), u"Milk the oats"_s);
        QCOMPARE(palette()->rows().current()->note, u"Garden"_s);
        answer(Qt::Key_Return);
        QCOMPARE(title(), u"Garden"_s);
        QCOMPARE(m_client->shownTitles(), QStringList{u"Milk the oats"_s});
    }

    void showsWhatASearchFinds()
    {
        QVERIFY(m_client->rooms().newTasks().add(u"Milk bottles back"_s));
        const QList<KWTaskModel> bottles =
            m_client->kit().context().models<KWTask>({.where = "title = 'Milk bottles back'"});
        QVERIFY(KWCoreDataService{m_client->kit().manager()}.sync_save(
            [&](ObjectContext &context) -> Result<void> {
                KWTask &task = *context.find<KWTask>(bottles.first().sid);
                task.set(&KWTaskModel::title, u"Bottles"_s);
                task.set(&KWTaskModel::content, u"Those of the milk, rinsed"_s);
                task.updateStatus(KWTaskStatusCompleted);
                return {};
            }));
        paletteFor(u"milk"_s);
        for (int i = 0; i < 5; ++i)
            QTest::keyClick(palette()->findChild<QWidget *>(u"paletteField"_s), Qt::Key_Down);
        answer(Qt::Key_Return);
        QVERIFY(page().isVisible());
        QCOMPARE(titlesOf(page().rows()),
                 QStringList({u"Open"_s, u"Milk the oats"_s, u"Buy milk"_s, u"Completed"_s, u"Bottles"_s}));
        QCOMPARE(page().rows().current()->title, u"Milk the oats"_s);
        const FoundRow &hit = page().rows().rows().rowAt(page().rows().rows().index(4));
        QCOMPARE(hit.excerpt.sliced(hit.excerptMarks.first().position, 4), u"milk"_s);

        m_client->window()->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(m_client->window()));
        m_client->find<QWidget>("searchField").setFocus();
        m_client->press(Qt::Key_Down);
        m_client->press(Qt::Key_Down); // over the heading
        QCOMPARE(page().rows().current()->title, u"Bottles"_s);
        verifyControlsHaveNames(page());

        m_client->type(u"zebra"_s);
        QCOMPARE(titlesOf(page().rows()), QStringList{});
        m_client->press(Qt::Key_Escape);
        QVERIFY(!page().isVisible());
        m_client->press(Qt::Key_F, Qt::ControlModifier);
        QVERIFY(page().isVisible());
        m_client->type(u"oats"_s); // in place of what stood there
        QCOMPARE(titlesOf(page().rows()), QStringList({u"Open"_s, u"Milk the oats"_s}));
        QVERIFY(m_client->rooms().newTasks().add(u"More oats"_s));
        QCOMPARE(titlesOf(page().rows()).size(), 3);
        m_client->press(Qt::Key_N, Qt::ControlModifier);
        QVERIFY(!page().isVisible());
    }
};

ORVANE_TEST(Palette_test)
#include "Palette_test.moc"
