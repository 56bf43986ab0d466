#include "gui/FilterHands.h"
#include "gui/MainWindowHands.h"
#include "model/records/KWSmartProject.h"
#include "model/records/KWTask.h"
#include "support/Answers.h"
#include "support/TestMain.h"
#include "views/main/MainWindow.h"
#include "views/tasklist/TaskMimeData.h"

#include <QApplication>

using namespace Qt::StringLiterals;

/// A day in the real window: what is made, put in order, finished and deleted stays so, also over a new
/// start.
class DayInTheClient_test : public QObject, MainWindowHands {
    Q_OBJECT

    QString lists() const { return rowsBelow(listSection(KWSmartProject::project())); }
    QString tags() const { return rowsBelow(listSection(KWSmartProject::tag())); }
    QString filters() const { return rowsBelow(listSection(KWSmartProject::filter())); }
    QString titles() const { return joined(pane().model().tasks(), &KWTaskListItemModel::title); }

    void makeFolderListAndTags()
    {
        chooseInSidebar(listSection(KWSmartProject::project()), u"New Folder"_s);
        typeName(u"Home"_s);
        chooseInSidebar(listRow(u"Home"_s), u"New List"_s);
        typeName(u"Garden"_s);
        for (const QString &each : {u"errand"_s, u"quick"_s})
            addTo(KWSmartProject::tag(), each);
        QCOMPARE(lists(), u"Home(Garden)"_s);
        QCOMPARE(tags(), u"errand quick"_s);
    }

    // T1 to T20: three priorities, four days, two tags, in turn.
    void typeTwentyTasks()
    {
        m_client->openList(u"Garden"_s);
        m_client->press(Qt::Key_N, Qt::ControlModifier);
        const QStringList days{u"in 3 days"_s, u"today"_s, u"tomorrow"_s, {}};
        const QStringList priorities{u"!high"_s, u"!low"_s, {}};
        const QStringList tags{u"#errand"_s, u"#quick"_s, {}};
        for (int i = 0; i < 20; ++i) {
            m_client->type(u"T%1 %2 %3 %4"_s.arg(i + 1).arg(days[i % 4], priorities[i % 3], tags[i % 3]));
            m_client->press(Qt::Key_Return);
        }
        QTRY_COMPARE(pane().model().tasks().size(), 20);
    }

    void nestAndFold()
    {
        sortBy(u"Custom"_s);
        drop({u"T4"_s, u"T8"_s}, taskRow(u"T12"_s), 0.5);
        QTRY_VERIFY2(shown().contains(u"T12 .T4 .T8"_s), qPrintable(shown()));
        goTo(taskRow(u"T12"_s));
        m_client->press(Qt::Key_Left);
        QVERIFY(!shown().contains(u".T4"_s));
    }

    void sortByEachType()
    {
        for (const auto &[type, begins] : {std::pair{"By Time", "[Today] "},
                                           {"By Title", "T1 "},
                                           {"By Tag", "[errand] "},
                                           {"By Priority", "[High] "}}) {
            sortBy(QString::fromLatin1(type));
            QTRY_VERIFY2(shown().startsWith(QString::fromLatin1(begins)), qPrintable(shown()));
            QVERIFY(shown().contains(u"T12"_s) && !shown().contains(u".T4"_s));
        }
    }

    // What is quick or due tomorrow.
    void makeAFilter()
    {
        m_client->rooms().menu().action(MenuCommand::NewFilter).trigger();
        const FilterHands filter{*m_client->window()};
        filter.takeKeyboard();
        m_client->type(u"Soon"_s);
        filter.addCondition();
        filter.choose("dateChoices", u"Tomorrow"_s);
        filter.addCondition();
        filter.chooseSubject(1, u"Tag"_s);
        filter.choose("conditionChoices", u"quick"_s);
        auto &join = filter.find<QWidget>("filterJoin");
        join.setFocus();
        m_client->press(Qt::Key_Down);
        filter.find<QWidget>("filterName").setFocus();
        m_client->press(Qt::Key_Return);
        QTRY_VERIFY(!filter.isOpen());

        m_client->openList(u"Today"_s);
        m_client->openList(u"Soon"_s);
        const auto sorted = [this] {
            QStringList all = titles().split(u' ');
            all.sort();
            return all.join(u' ');
        };
        QTRY_COMPARE(sorted(), u"T11 T14 T15 T16 T17 T19 T2 T20 T3 T5 T7 T8"_s);
    }

    void drag()
    {
        sortBy(u"By Time"_s);
        drop({u"T20"_s}, sectionRow(u"Tomorrow"_s), 0.5);
        QTRY_VERIFY2(shown().contains(u"[Tomorrow] T20"_s), qPrintable(shown()));
        QVERIFY(dropOnList(TaskMimeData::make({idOf(u"T16"_s)}, {}), listRow(u"quick"_s), 0.5));
        m_client->openList(u"quick"_s);
        QTRY_VERIFY(titles().contains(u"T16"_s));
    }

    void completeDeleteAndUndo()
    {
        m_client->openList(u"Today"_s);
        QTRY_VERIFY(titles().contains(u"T2"_s));
        goTo(taskRow(u"T2"_s));
        m_client->press(Qt::Key_Space);
        QVERIFY(m_client->kit().context().find<KWTask>(m_idOfT2)->isCompleted());
        undo();
        QVERIFY(!m_client->kit().context().find<KWTask>(m_idOfT2)->isCompleted());
        QTRY_VERIFY(titles().contains(u"T2"_s));
        goTo(taskRow(u"T2"_s));
        m_client->press(Qt::Key_Space);

        goTo(taskRow(u"T6"_s));
        m_client->press(Qt::Key_Delete);
        QTRY_VERIFY(!titles().split(u' ').contains(u"T6"_s));
        undo();
        QTRY_VERIFY(titles().split(u' ').contains(u"T6"_s));
        goTo(taskRow(u"T10"_s));
        m_client->press(Qt::Key_Delete);
    }

    void search()
    {
        goTo(taskRow(u"T1"_s));
        m_client->press(Qt::Key_K, Qt::ControlModifier);
        auto &field = m_client->find<QWidget>("paletteField");
        field.setFocus();
        QTest::keyClicks(&field, u"T13"_s);
        QTest::keyClick(&field, Qt::Key_Return);
        QTRY_COMPARE(list().currentTask(), idOf(u"T13"_s));
    }

    QString m_idOfT2;

private Q_SLOTS:
    void aDayOfWorkIsFoundAsItWasLeft()
    {
        startClient(); // a Saturday
        makeFolderListAndTags();
        typeTwentyTasks();
        m_idOfT2 = idOf(u"T2"_s);
        nestAndFold();
        sortByEachType();
        drag();
        makeAFilter();
        completeDeleteAndUndo();

        m_client->openList(u"Garden"_s);
        QTRY_VERIFY(titles().contains(u"T20"_s));
        search();
        const QString left = shown();
        QVERIFY(!left.contains(u"T10"_s) && !left.contains(u".T4"_s));
        m_client->restart();
        QTRY_COMPARE(shown(), left);
        QCOMPARE(lists(), u"Home(Garden)"_s);
        QCOMPARE(tags(), u"errand quick"_s);
        QCOMPARE(filters(), u"Soon"_s);
        m_client->openList(u"Trash"_s);
        QTRY_COMPARE(titles(), u"T10"_s);
    }
};

ORVANE_TEST(DayInTheClient_test)
#include "DayInTheClient_test.moc"
