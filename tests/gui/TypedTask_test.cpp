#include "gui/ClientFixture.h"
#include "model/events/NotificationNames.h"
#include "model/records/KWProject.h"
#include "model/records/KWTask.h"
#include "model/store/KWTaskTicker.h"
#include "support/TestMain.h"
#include "views/addfield/KWNewTaskTextField.h"
#include "views/main/MainWindow.h"
#include "views/tasklist/PageHeader.h"
#include "views/tasklist/TaskListPane.h"
#include "views/tasklist/TaskListView.h"

using namespace Qt::StringLiterals;

namespace {

const QString example = u"Call the venue tomorrow 5pm !high #errand ~Client launch"_s;

} // namespace

/// The road of one typed task, in real windows with real keys.
class TypedTask_test : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void aFreshStartOffersTheComputerAndOpensTheWindow()
    {
        ClientFixture client;
        QVERIFY(!client.window());
        client.useOnThisComputer();
        QVERIFY(client.window()->isVisible());
        QVERIFY(!client.rooms().welcomeWindow().window());
        QVERIFY(client.window()->listPane().addField().hasFocus());
    }

    void piecesAreMarkedWhileOneTypes()
    {
        ClientFixture client;
        client.useOnThisComputer();
        KWNewTaskTextField &field = client.window()->listPane().addField();
        QHash<qsizetype, int> marksAt;
        for (const QChar key : example) {
            client.type(QString{key});
            marksAt.insert(field.text().size(), int(field.pieces().size()));
        }
        QCOMPARE(field.text(), example);
        QCOMPARE(marksAt.value(14), 0); // "Call the venue"
        QCOMPARE(marksAt.value(23), 1); // "… tomorrow"
        QCOMPARE(marksAt.value(33), 2); // "… !high"
        QList<RecognizedPieceType> types;
        for (const RecognizedPiece &each : field.pieces())
            types.append(each.type);
        QCOMPARE(types, (QList{RecognizedPieceType::Date, RecognizedPieceType::Priority,
                               RecognizedPieceType::Tag, RecognizedPieceType::List}));
    }

    void theTypedTaskIsFoundEverywhereAndSurvivesARestart()
    {
        ClientFixture client;
        client.useOnThisComputer();
        client.type(example);
        client.press(Qt::Key_Return);
        QCOMPARE(client.window()->listPane().addField().text(), QString{});

        const auto tasks = client.kit().context().models<KWTask>({});
        QCOMPARE(tasks.size(), 1);
        const KWTaskModel &task = tasks.first();
        QCOMPARE(task.title, u"Call the venue"_s);
        QCOMPARE(task.priority, KWTaskPriorityHigh);
        QCOMPARE(task.tags, QStringList{u"errand"_s});
        QCOMPARE(*task.startDate, at("2026-11-22 17:00"));
        QCOMPARE(task.isAllDay, false);
        QCOMPARE(client.kit().context().find<KWProject>(task.projectID)->model().name, u"Client launch"_s);

        for (const QString &list : {u"Tomorrow"_s, u"Client launch"_s, u"errand"_s, u"Next 7 Days"_s}) {
            client.openList(list);
            QCOMPARE(client.shownTitles(), QStringList{u"Call the venue"_s});
        }
        client.openList(u"Inbox"_s);
        QCOMPARE(client.shownTitles(), QStringList{});

        client.openList(u"Client launch"_s);
        client.restart();
        QVERIFY(client.window());
        QCOMPARE(client.shownTitles(), QStringList{u"Call the venue"_s});
        QCOMPARE(client.window()->listPane().header().accessibleName(), u"Client launch"_s);
    }

    void tomorrowBecomesTodayAtMidnight()
    {
        ClientFixture client{"2026-11-21 23:58"};
        client.useOnThisComputer();
        client.type(u"Water the plants tomorrow"_s);
        client.press(Qt::Key_Return);
        client.openList(u"Today"_s);
        QCOMPARE(client.shownTitles(), QStringList{});

        client.clock.advance(std::chrono::minutes{2});
        QCOMPARE(client.shownTitles(), QStringList{u"Water the plants"_s});
        QVERIFY(client.window()->listPane().header().accessibleDescription().contains(u"22"_s));
        client.openList(u"Tomorrow"_s);
        QCOMPARE(client.shownTitles(), QStringList{});
    }

    void aTaskTypedIntoAListGoesThere_data()
    {
        QTest::addColumn<QString>("list");
        QTest::newRow("the day") << u"Tomorrow"_s;
        QTest::newRow("a list") << u"Client launch"_s;
        QTest::newRow("a tag") << u"errand"_s;
    }

    void aTaskTypedIntoAListGoesThere()
    {
        QFETCH(QString, list);
        ClientFixture client;
        client.useOnThisComputer();
        client.type(example);
        client.press(Qt::Key_Return);
        client.openList(list);
        client.press(Qt::Key_N, Qt::ControlModifier);
        client.type(u"Order the flowers"_s);
        client.press(Qt::Key_Return);
        QVERIFY(client.shownTitles().contains(u"Order the flowers"_s));
        QCOMPARE(client.window()->listPane().list().currentTask().isEmpty(), false);
    }

    void aClickOnAMarkTakesTheRecognitionBack()
    {
        ClientFixture client;
        client.useOnThisComputer();
        client.type(u"Read the memo tomorrow"_s);
        KWNewTaskTextField &field = client.window()->listPane().addField();
        QCOMPARE(field.pieces().size(), 1);
        Q_EMIT field.pieceClicked(field.pieces().first());
        QCOMPARE(field.pieces().size(), 0);
        client.press(Qt::Key_Return);
        const auto tasks = client.kit().context().models<KWTask>({});
        QCOMPARE(tasks.first().title, u"Read the memo tomorrow"_s);
        // Only Today's day is left: the list in which it was typed.
        QCOMPARE(*tasks.first().startDate, at("2026-11-21 00:00"));

        client.press(Qt::Key_N, Qt::ControlModifier);
        client.type(u"Next memo tomorrow"_s);
        QCOMPARE(field.pieces().size(), 1);
    }

    void whatCannotBeAddedStaysInTheField_data()
    {
        QTest::addColumn<QString>("text");
        QTest::newRow("spaces") << u"   "_s;
        QTest::newRow("tokens only") << u"#errand !high tomorrow"_s;
    }

    void whatCannotBeAddedStaysInTheField()
    {
        QFETCH(QString, text);
        ClientFixture client;
        client.useOnThisComputer();
        client.type(text);
        client.press(Qt::Key_Return);
        QCOMPARE(client.window()->listPane().addField().text(), text);
        QVERIFY(client.find<QWidget>("toast").isVisible());
        QVERIFY(client.kit().context().models<KWTask>({}).isEmpty());
    }

    void spaceCompletesAndTheToastTakesItBack()
    {
        ClientFixture client;
        client.useOnThisComputer();
        client.type(u"Pay rent"_s);
        client.press(Qt::Key_Return);
        client.find<QWidget>("taskList").setFocus();
        client.press(Qt::Key_Space);
        QTRY_COMPARE(client.shownTitles(), QStringList{});
        QVERIFY(client.find<QWidget>("toast").isVisible());
        QTest::mouseClick(&client.find<QWidget>("toastAction"), Qt::LeftButton);
        QTRY_COMPARE(client.shownTitles(), QStringList{u"Pay rent"_s});
        QVERIFY(!client.find<QWidget>("toast").isVisible());
    }

    void theToastGoesByItself()
    {
        ClientFixture client;
        client.useOnThisComputer();
        client.type(u"  "_s);
        client.press(Qt::Key_Return);
        QVERIFY(client.find<QWidget>("toast").isVisible());
        client.clock.advance(std::chrono::seconds{6});
        QVERIFY(!client.find<QWidget>("toast").isVisible());
    }

    void aChangeFromAnotherProcessIsShown()
    {
        ClientFixture client;
        client.useOnThisComputer();
        client.type(u"Pay rent"_s);
        client.press(Qt::Key_Return);
        const QString id = client.window()->listPane().model().rows().first().sid;

        // As the command line does it: the same file, other objects.
        const auto other = OrvaneKit::open(client.kit().folders(), client.clock);
        QVERIFY(bool(KWTaskTicker{other.kit->manager()}.updateStatus(KWTaskStatusCompleted, id)));
        client.kit().manager().refreshAll();
        client.kit().center().post(KWDataDidChangeOutsideMainAppNotification);
        QCOMPARE(client.shownTitles(), QStringList{});
    }

    void aLongListShowsItsTopAtOnceAndTheRestSoon()
    {
        ClientFixture client;
        client.useOnThisComputer();
        const QString user = client.kit().account().currentUserID();
        const auto saved =
            KWCoreDataService{client.kit().manager()}.sync_save([&](ObjectContext &context) -> Result<void> {
                for (int i = 0; i < 1000; ++i) {
                    KWTaskModel task;
                    task.userID = user;
                    task.projectID = KWProject::inboxIDOfUser(user);
                    task.title = u"Task %1"_s.arg(i);
                    task.sortOrder = i;
                    context.insert<KWTask>(std::move(task));
                }
                return {};
            });
        QVERIFY(bool(saved));
        client.openList(u"Inbox"_s);
        QVERIFY(client.shownTitles().size() >= 100);
        QCOMPARE(client.shownTitles().first(), u"Task 0"_s);
        QTRY_COMPARE(client.shownTitles().size(), 1000);
        QCOMPARE(client.shownTitles().last(), u"Task 999"_s);
    }
};

ORVANE_TEST(TypedTask_test)
#include "TypedTask_test.moc"
