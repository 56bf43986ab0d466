#include "views/search/SearchPage.h"

#include "gui/MainWindowHands.h"
#include "model/records/KWProject.h"
#include "model/records/KWTask.h"
#include "support/TestMain.h"
#include "views/controls/ChoicePopup.h"
#include "views/main/MainWindow.h"

#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>

using namespace Qt::StringLiterals;

/// What was found is worked on where it stands, by keyboard.
class SearchPage_test : public QObject, MainWindowHands {
    Q_OBJECT

    SearchPage &page() { return m_client->find<SearchPage>("searchPage"); }
    QLineEdit &field() { return m_client->find<QLineEdit>("searchField"); }
    QStringList hits()
    {
        QStringList titles;
        for (int row = 0; row < page().rows().rows().rowCount(); ++row)
            titles << page().rows().rows().index(row).data().toString();
        return titles;
    }
    QString current() { return page().rows().current() ? page().rows().current()->title : QString{}; }
    KWTaskModel oats()
    {
        return m_client->kit().context().models<KWTask>({.where = "title = 'Milk the oats'"}).first();
    }
    void chooseOfHit(const QString &entry)
    {
        Q_EMIT page().rows().customContextMenuRequested(
            page().rows().visualRect(page().rows().currentIndex()).center());
        auto *menu = page().findChild<QMenu *>(u"taskMenu"_s);
        QVERIFY(menu);
        menu->close();
        for (QAction *each : menu->actions())
            if (each->text() == entry) return each->trigger();
        qFatal("the menu has no %s", qUtf8Printable(entry));
    }

private Q_SLOTS:
    void init()
    {
        startClient();
        for (const QString &each : {u"Buy milk ^Shopping"_s, u"Milk the oats ^Garden"_s, u"Paint"_s})
            QVERIFY(m_client->rooms().newTasks().add(each));
        m_client->press(Qt::Key_F, Qt::ControlModifier);
        m_client->type(u"milk"_s);
        QCOMPARE(hits(), QStringList({u"Open"_s, u"Milk the oats"_s, u"Buy milk"_s}));
    }
    void cleanup() { endClient(); }

    void goesFromTheFieldIntoTheHitsAndBack()
    {
        m_client->press(Qt::Key_Down);
        QVERIFY(page().rows().hasFocus());
        QCOMPARE(current(), u"Buy milk"_s);
        m_client->press(Qt::Key_Home);
        QCOMPARE(current(), u"Milk the oats"_s);
        m_client->press(Qt::Key_Up);
        QVERIFY(field().hasFocus());
        m_client->press(Qt::Key_Down);
        m_client->type(u"y"_s); // goes on with the text
        QCOMPARE(field().text(), u"milky"_s);
        QVERIFY(field().hasFocus());
        QCOMPARE(m_client->find<QLabel>("nothingFound").text(), u"No task was found for “milky”."_s);
        m_client->press(Qt::Key_Down);
        QVERIFY(field().hasFocus());
        m_client->press(Qt::Key_Backspace);
        m_client->press(Qt::Key_Down);
        m_client->press(Qt::Key_Return);
        QVERIFY(!page().isAncestorOf(QApplication::focusWidget()));
        m_client->press(Qt::Key_Escape); // from the detail back to the hit
        QVERIFY(page().rows().hasFocus());
        m_client->press(Qt::Key_Escape);
        QVERIFY(page().isHidden() && list().hasFocus());
    }

    void keysActOnTheHitAndAreTakenBack()
    {
        m_client->press(Qt::Key_Down);
        m_client->press(Qt::Key_Home);
        const KWTaskModel before = oats();
        const Qt::KeyboardModifiers ctrlShift = Qt::ControlModifier | Qt::ShiftModifier;
        struct Case {
            Qt::Key key;
            Qt::KeyboardModifiers modifiers;
            std::function<bool(const KWTaskModel &)> isDone;
        };
        const auto isOn = [this](int days) {
            return [day = m_client->clock.today() + std::chrono::days{days}](const KWTaskModel &task) {
                return task.startDate == CXTimeZone::utc().startOfDay(day);
            };
        };
        const auto isTicked = [](const KWTaskModel &task) { return task.status == KWTaskStatusCompleted; };
        const Case cases[] = {
            {Qt::Key_Space, Qt::NoModifier, isTicked},
            {Qt::Key_Return, ctrlShift, isTicked},
            {Qt::Key_T, Qt::ControlModifier, isOn(0)},
            {Qt::Key_T, ctrlShift, isOn(1)},
            {Qt::Key_3, Qt::AltModifier,
             [](const KWTaskModel &task) { return task.priority == KWTaskPriorityHigh; }},
        };
        for (const Case &each : cases) {
            m_client->press(each.key, each.modifiers);
            QVERIFY2(each.isDone(oats()), qUtf8Printable(QKeySequence{each.key}.toString()));
            QCOMPARE(current(), u"Milk the oats"_s);
            undo();
            QVERIFY2(!each.isDone(oats()), qUtf8Printable(QKeySequence{each.key}.toString()));
        }
        QCOMPARE(oats().startDate, before.startDate);
    }

    void aHitThatIsDeletedGivesWayToItsNeighbour()
    {
        m_client->press(Qt::Key_Down);
        QCOMPARE(current(), u"Buy milk"_s);
        m_client->press(Qt::Key_Delete);
        QCOMPARE(hits(), QStringList({u"Open"_s, u"Milk the oats"_s}));
        QCOMPARE(current(), u"Milk the oats"_s);
        m_client->press(Qt::Key_Delete);
        QCOMPARE(hits(), QStringList{});
        QVERIFY(field().hasFocus());
        QVERIFY(!m_client->rooms().menu().action(MenuCommand::CompleteTask).isEnabled());
        undo();
        QCOMPARE(current(), u"Milk the oats"_s);
        QVERIFY(m_client->rooms().menu().action(MenuCommand::CompleteTask).isEnabled());
    }

    void givesWayToAListAlone()
    {
        QVERIFY(m_client->rooms().newTasks().add(u"Milk jug #kitchen ^Cupboard"_s)); // the sidebar changes
        QVERIFY(page().isVisible());
        QCOMPARE(hits().size(), 4);
        m_client->openList(m_client->rooms().sidebar().titleOfSelectedList()); // the one below
        QVERIFY(page().isHidden());
    }

    void saysThatThereIsMore()
    {
        QVERIFY(!m_client->find<QWidget>("moreFound").isVisible());
        const KWTaskModel one = oats();
        QVERIFY(KWCoreDataService{m_client->kit().manager()}.sync_save(
            [&one](ObjectContext &context) -> Result<void> {
                for (int i = 0; i < 200; ++i) {
                    KWTaskModel more = one;
                    more.sid.clear();
                    context.insert<KWTask>(std::move(more));
                }
                return {};
            }));
        QCOMPARE(hits().size(), 1 + 200);
        QVERIFY(m_client->find<QWidget>("moreFound").isVisible());
    }

    void theMenuActsOnTheHit()
    {
        chooseOfHit(u"Pin"_s);
        QVERIFY(oats().pinnedDate);
        chooseOfHit(u"Move to List…"_s);
        auto *popup = m_client->window()->findChild<ChoicePopup *>();
        QVERIFY(popup);
        const QList<KWProjectModel> lists =
            m_client->kit().context().models<KWProject>({.where = "name = 'Shopping'"});
        Q_EMIT popup->chosen(lists.first().sid);
        QCOMPARE(oats().projectID, lists.first().sid);
        popup->close();
    }

    void aClickOnTheCheckboxCompletes()
    {
        const QRect row = page().rows().visualRect(page().rows().currentIndex());
        QTest::mouseClick(page().rows().viewport(), Qt::LeftButton, {}, row.center());
        QCOMPARE(oats().status, KWTaskStatusOpen);
        QTest::mouseClick(page().rows().viewport(), Qt::LeftButton, {},
                          QPoint{row.left() + 20, row.center().y()});
        QCOMPARE(oats().status, KWTaskStatusCompleted);
        QCOMPARE(hits(), QStringList({u"Open"_s, u"Buy milk"_s, u"Completed"_s, u"Milk the oats"_s}));
    }
};

ORVANE_TEST(SearchPage_test)
#include "SearchPage_test.moc"
