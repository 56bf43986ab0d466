#include "gui/ClientFixture.h"
#include "gui/WindowHelp.h"
#include "model/records/KWTask.h"
#include "support/CaseTable.h"
#include "support/TestMain.h"
#include "views/addfield/KWNewTaskTextField.h"
#include "views/main/MainWindow.h"
#include "views/tasklist/PageHeader.h"
#include "views/tasklist/TaskListPane.h"
#include "views/tasklist/TaskListView.h"

#include <QLabel>

using namespace Qt::StringLiterals;

namespace {

const QString example = u"Call the venue tomorrow 5pm !high #errand ~Client launch"_s;

} // namespace

/// The road of one typed task, in real windows with real keys.
class TypedTask_test : public QObject {
    Q_OBJECT

    std::unique_ptr<ClientFixture> m_client;

    TaskListPane &pane() { return m_client->window()->listPane(); }
    QList<KWTaskModel> tasks() { return m_client->kit().context().models<KWTask>({}); }
    void add(const QString &text)
    {
        m_client->type(text);
        m_client->press(Qt::Key_Return);
    }

private Q_SLOTS:
    void init()
    {
        m_client = std::make_unique<ClientFixture>();
        QVERIFY(!m_client->window());
        m_client->useOnThisComputer();
    }
    void cleanup() { m_client.reset(); }

    void piecesAreMarkedWhileOneTypes()
    {
        KWNewTaskTextField &field = pane().addField();
        QVERIFY(field.hasFocus()); // from the first moment on
        QList<RecognizedPieceType> marked;
        for (const QChar key : example) {
            m_client->type(QString{key});
            if (field.pieces().size() > marked.size()) marked.append(field.pieces().last().type);
        }
        QCOMPARE(marked, (QList{RecognizedPieceType::Date, RecognizedPieceType::Priority,
                                RecognizedPieceType::Tag, RecognizedPieceType::List}));
    }

    void theTypedTaskIsFoundEverywhereAndSurvivesARestart()
    {
        add(example);
        QCOMPARE(pane().addField().text(), QString{});

        for (const QString &list : {u"Tomorrow"_s, u"Client launch"_s, u"errand"_s, u"Next 7 Days"_s}) {
            m_client->openList(list);
            QCOMPARE(m_client->shownTitles(), QStringList{u"Call the venue"_s});
        }
        m_client->openList(u"Inbox"_s);
        QCOMPARE(m_client->shownTitles(), QStringList{});

        m_client->openList(u"Client launch"_s);
        m_client->restart();
        QVERIFY(m_client->window());
        QCOMPARE(m_client->shownTitles(), QStringList{u"Call the venue"_s});
        QCOMPARE(pane().header().accessibleName(), u"Client launch"_s);
    }

    void tomorrowBecomesTodayAtMidnight()
    {
        m_client->clock.advanceTo(at("2026-11-21 23:58"));
        add(u"Water the plants tomorrow"_s);
        m_client->openList(u"Today"_s);
        QCOMPARE(m_client->shownTitles(), QStringList{});

        m_client->clock.advance(std::chrono::minutes{2});
        QCOMPARE(m_client->shownTitles(), QStringList{u"Water the plants"_s});
        QVERIFY(pane().header().accessibleDescription().contains(u"22"_s));
        m_client->openList(u"Tomorrow"_s);
        QCOMPARE(m_client->shownTitles(), QStringList{});
    }

    void aTaskTypedIntoAListGoesThere()
    {
        add(example);
        for (const QString &list : {u"Tomorrow"_s, u"Client launch"_s, u"errand"_s}) {
            m_client->openList(list);
            m_client->press(Qt::Key_N, Qt::ControlModifier);
            add(u"Order the flowers"_s);
            QVERIFY2(m_client->shownTitles().contains(u"Order the flowers"_s), qPrintable(list));
            QVERIFY(!pane().list().currentTask().isEmpty());
        }
    }

    void aTaskThatBelongsElsewhereIsNamedAndOpened_data() { addCaseRows("gui/elsewhere.txt", 3); }
    void aTaskThatBelongsElsewhereIsNamedAndOpened()
    {
        QFETCH(QStringList, cells);
        const QString &place = cells[2];
        m_client->openList(cells[0]);
        m_client->press(Qt::Key_N, Qt::ControlModifier);
        add(cells[1]);
        QCOMPARE(m_client->shownTitles(), QStringList{});
        QCOMPARE(m_client->find<QLabel>("toastMessage").text(), u"Added to "_s + place);
        QVERIFY(pane().addField().hasFocus());

        for (int i = 0; i < 4; ++i) // past the three buttons of the field
            m_client->press(Qt::Key_Tab);
        m_client->clock.advance(std::chrono::seconds{6});
        QVERIFY(m_client->find<QWidget>("toast").isVisible()); // the keyboard is in it
        m_client->press(Qt::Key_Space);
        QVERIFY(!m_client->find<QWidget>("toast").isVisible());
        QCOMPARE(pane().header().accessibleName(), place);
        QCOMPARE(m_client->shownTitles(), QStringList{u"Pack"_s});
        QVERIFY(!pane().list().currentTask().isEmpty());
        QVERIFY(pane().list().hasFocus());
    }

    void aClickOnAMarkTakesTheRecognitionBack()
    {
        m_client->type(u"Read the memo tomorrow"_s);
        KWNewTaskTextField &field = pane().addField();
        QCOMPARE(field.pieces().size(), 1);
        const auto placeOf = [&field](int location) {
            QTextCursor cursor = field.textCursor();
            cursor.setPosition(location);
            return field.cursorRect(cursor).center();
        };
        QTest::mouseClick(field.viewport(), Qt::LeftButton, {}, placeOf(2));
        // Dragging over it selects text and undoes nothing.
        QTest::mousePress(field.viewport(), Qt::LeftButton, {}, placeOf(15));
        QTest::mouseMove(field.viewport(), placeOf(20));
        QTest::mouseRelease(field.viewport(), Qt::LeftButton, {}, placeOf(20));
        QCOMPARE(field.pieces().size(), 1);
        QTest::mouseClick(field.viewport(), Qt::LeftButton, {}, placeOf(18));
        QCOMPARE(field.pieces().size(), 0);
        m_client->press(Qt::Key_Return);
        QCOMPARE(tasks().first().title, u"Read the memo tomorrow"_s);
        // Only Today's day is left: the list in which it was typed.
        QCOMPARE(*tasks().first().startDate, at("2026-11-21 00:00"));

        m_client->press(Qt::Key_N, Qt::ControlModifier);
        m_client->type(u"Next memo tomorrow"_s);
        QCOMPARE(field.pieces().size(), 1);
    }

    void whatCannotBeAddedStaysInTheFieldAndTheToastGoesByItself()
    {
        add(u"#errand !high tomorrow"_s);
        QCOMPARE(pane().addField().text(), u"#errand !high tomorrow"_s);
        QVERIFY(tasks().isEmpty());
        QVERIFY(m_client->find<QWidget>("toast").isVisible());
        m_client->clock.advance(std::chrono::seconds{6});
        QVERIFY(!m_client->find<QWidget>("toast").isVisible());
    }

    void spaceCompletesAndTheToastTakesItBack()
    {
        add(u"Pay rent"_s);
        m_client->find<QWidget>("taskList").setFocus();
        m_client->press(Qt::Key_Space);
        const auto isClosed = [this] { return pane().model().tasks().constFirst().isClosed(); };
        QTRY_VERIFY(isClosed());
        QVERIFY(m_client->find<QWidget>("toast").isVisible());
        verifyControlsHaveNames(*m_client->window());
        QTest::mouseClick(&m_client->find<QWidget>("toastAction"), Qt::LeftButton);
        QTRY_VERIFY(!isClosed());
        QVERIFY(!m_client->find<QWidget>("toast").isVisible());
    }

    void deleteHidesTheTaskUntilItIsUndoneOrOver()
    {
        const auto inboxCount = [this] {
            KWProjectListPresenter &sidebar = m_client->rooms().sidebar();
            return sidebar.countOf(*sidebar.selectedNode()).value_or(0);
        };
        m_client->openList(u"Inbox"_s);
        m_client->press(Qt::Key_N, Qt::ControlModifier);
        add(u"Pay rent"_s);
        QTRY_COMPARE(inboxCount(), 1);
        m_client->find<QWidget>("taskList").setFocus();
        m_client->press(Qt::Key_Delete);
        QCOMPARE(m_client->shownTitles(), QStringList{});
        QCOMPARE(inboxCount(), 0);
        QCOMPARE(m_client->find<QLabel>("toastMessage").text(), u"Pay rent deleted"_s);
        m_client->press(Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(m_client->shownTitles(), QStringList{u"Pay rent"_s});
        QCOMPARE(inboxCount(), 1);

        pane().list().selectTask(tasks().first().sid);
        m_client->press(Qt::Key_Backspace);
        m_client->clock.advance(std::chrono::seconds{5});
        QVERIFY(tasks().first().isTrashed);
        add(u"Water the plants"_s);
        m_client->find<QWidget>("taskList").setFocus();
        m_client->press(Qt::Key_Delete);
        m_client->restart();
        QCOMPARE(m_client->shownTitles(), QStringList{});
        QVERIFY(tasks().last().isTrashed);
    }
};

ORVANE_TEST(TypedTask_test)
#include "TypedTask_test.moc"
