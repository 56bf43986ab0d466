#include "gui/MainWindowHands.h"
#include "model/records/KWTask.h"
#include "support/Answers.h"
#include "support/TestMain.h"
#include "views/datepicker/SchedulePicker.h"
#include "views/main/MainWindow.h"

#include <QApplication>
#include <QMenu>

using namespace Qt::StringLiterals;

/// One date of a repeating task is skipped, parted and moved in the real window.
class OccurrenceMenus_test : public QObject, MainWindowHands {
    Q_OBJECT

    QString m_taskID;

    // "21", "22 repeats": their days of November.
    QString days()
    {
        const auto tasks = m_client->kit().context().models<KWTask>({.orderBy = "startDate, repeatRule"});
        return joined(tasks, [](const KWTaskModel &each) {
            const std::chrono::year_month_day day{CXTimeZone{}.dayOf(*each.startDate)};
            return QString::number(unsigned(day.day())) + (each.repeatRule.isEmpty() ? u""_s : u"+"_s);
        });
    }
    // The date of the selected task is the next day now, by the picker.
    void chooseTheNextDay()
    {
        QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete); // the one before
        goTo(taskRow(u"Water"_s));
        m_client->press(Qt::Key_D, Qt::ControlModifier);
        auto *picker = m_client->window()->findChild<SchedulePicker *>();
        QVERIFY(picker && picker->focusWidget());
        QTest::keyClick(picker->focusWidget(), Qt::Key_Right);
        QTest::keyClick(picker->focusWidget(), Qt::Key_Return);
    }
    void answerTheQuestion(Qt::Key key, const QString &choices)
    {
        auto *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
        QVERIFY(menu);
        QCOMPARE(joined(menu->actions(), &QAction::text), choices);
        QTest::keyClick(menu, key);
        if (key != Qt::Key_Escape) QTest::keyClick(menu, Qt::Key_Return);
    }

private Q_SLOTS:
    void init()
    {
        startClient(); // on Saturday the 21st
        m_taskID = m_client->rooms().newTasks().add(u"Water today every day"_s)->sid;
        m_client->openList(u"Today"_s);
        goTo(taskRow(u"Water"_s));
    }
    void cleanup() { endClient(); }

    void skipsFromTheMenuOfTheRow()
    {
        QCOMPARE(days(), u"21+"_s);
        chooseInMenu(u"Skip"_s);
        QCOMPARE(days(), u"22+"_s);
        QTRY_COMPARE(shown(), QString{});
        undo();
        QTRY_COMPARE(shown(), u"[Today] Water"_s);
        chooseInMenu(u"Make It a Task of Its Own"_s);
        QCOMPARE(days(), u"21 22+"_s);
        undo();
        chooseInMenu(u"Make It the Last One"_s);
        QCOMPARE(days(), u"21"_s);
    }

    void completesAndSkipsLaterOnes()
    {
        m_client->openList(u"Next 7 Days"_s);
        const auto tomorrow = [this] {
            const auto &model = pane().model();
            for (int row = 0; row < model.rowCount(); ++row)
                if (const QModelIndex index = model.index(row);
                    model.rowAt(index).task.occurrence == at("2026-11-22 00:00"))
                    return index;
            return QModelIndex{};
        };
        QTRY_VERIFY(tomorrow().isValid());
        goTo(tomorrow());
        m_client->press(Qt::Key_Space);
        QCOMPARE(days(), u"21+ 22"_s);
        QTRY_VERIFY(!tomorrow().isValid());
        undo();
        QCOMPARE(days(), u"21+"_s);
        QTRY_VERIFY(tomorrow().isValid());
        goTo(tomorrow());
        chooseInMenu(u"Skip"_s);
        QCOMPARE(m_client->kit().context().find<KWTask>(m_taskID)->model().exDates,
                 QList{at("2026-11-22 00:00")});
    }

    void asksWhatANewDateIsFor()
    {
        const QString choices = u"Only This One All of Them"_s;
        chooseTheNextDay();
        answerTheQuestion(Qt::Key_Escape, choices);
        QCOMPARE(days(), u"21+"_s);
        chooseTheNextDay();
        answerTheQuestion(Qt::Key_Up, choices); // from the first to the last
        QCOMPARE(days(), u"22+"_s);
        undo();
        QTRY_COMPARE(shown(), u"[Today] Water"_s);
        chooseTheNextDay();
        answerTheQuestion(Qt::Key_Home, choices);
        QCOMPARE(days(), u"22 22+"_s);
    }
};

ORVANE_TEST(OccurrenceMenus_test)
#include "OccurrenceMenus_test.moc"
