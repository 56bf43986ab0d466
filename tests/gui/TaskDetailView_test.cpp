#include "views/taskdetail/TaskDetailView.h"

#include "gui/WindowHelp.h"
#include "support/ManualClock.h"
#include "support/TestMain.h"
#include "views/controls/CommittingTextEdit.h"

#include <QApplication>
#include <QSignalSpy>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

KWChecklistItemModel item(const QString &sid, const QString &title)
{
    KWChecklistItemModel made;
    made.sid = sid;
    made.title = title;
    return made;
}

TaskDetailData taskWith(const QList<KWChecklistItemModel> &items = {})
{
    TaskDetailData data;
    data.task.sid = u"task"_s;
    data.task.title = u"Write the announcement"_s;
    data.task.content = u"One page"_s;
    data.items = items;
    return data;
}

} // namespace

/// The view with a record behind it that takes every edit, and shows it again, as the controller does.
class TaskDetailView_test : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_clock = std::make_unique<ManualClock>("2030-05-01 09:00");
        m_view = std::make_unique<TaskDetailView>(*m_clock);
        m_view->resize(352, 700);
        m_view->show();
        QVERIFY(QTest::qWaitForWindowActive(m_view.get()));
        m_record = taskWith();
    }
    void cleanup() { m_view.reset(); }

    void losesNothingOfWhatIsTyped()
    {
        keepRecord();
        QTest::keyClicks(&title(), u"x"_s);
        m_view->hide();
        QCOMPARE(m_record.task.title, u"xWrite the announcement"_s);
        m_view->show();
        QTest::keyClicks(&content(), u"y"_s);
        m_view->commitEdits();
        QCOMPARE(m_record.task.content, u"yOne page"_s);
        QTest::keyClicks(&content(), u"z"_s);
        m_view->setTask(std::nullopt);
        QCOMPARE(m_record.task.content, u"yzOne page"_s);
    }

    void enterGoesOnToTheNextItem()
    {
        m_record = taskWith({item(u"a"_s, u"First"_s), item(u"b"_s, u"Last"_s)});
        keepRecord();
        putCaret(0, 5);
        QTest::keyClick(focused(), Qt::Key_Return);
        QCOMPARE(titles(), (QStringList{u"First"_s, QString{}, u"Last"_s}));
        QTest::keyClicks(focused(), u"Middle"_s);
        QTest::keyClick(focused(), Qt::Key_Return);
        QCOMPARE(stored(), (QStringList{u"First"_s, u"Middle"_s, u"Last"_s}));
        // Enter in the empty one ends the list and leaves nothing behind.
        QTest::keyClick(focused(), Qt::Key_Return);
        QCOMPARE(titles(), (QStringList{u"First"_s, u"Middle"_s, u"Last"_s}));
        QCOMPARE(stored().size(), 3);
    }

    void enterWithinAnItemPartsIt()
    {
        m_record = taskWith({item(u"a"_s, u"Bread and milk"_s)});
        keepRecord();
        putCaret(0, 5);
        QTest::keyClick(focused(), Qt::Key_Return);
        QCOMPARE(stored(), (QStringList{u"Bread"_s, u" and milk"_s}));
        QCOMPARE(titles(), stored());
        QCOMPARE(focused()->textCursor().position(), 0);
    }

    void newItemIsKeptAndTypedOn()
    {
        keepRecord();
        QTest::mouseClick(m_view->findChild<QWidget *>(u"addChecklistItem"_s), Qt::LeftButton);
        QTest::keyClicks(focused(), u"Mi"_s);
        m_clock->advance(1s);
        QCOMPARE(stored(), QStringList{u"Mi"_s});
        QTest::keyClicks(focused(), u"lk"_s);
        m_clock->advance(1s);
        QCOMPARE(stored(), QStringList{u"Milk"_s});
    }

    void backspaceInAnEmptyItemRemovesIt()
    {
        m_record = taskWith({item(u"a"_s, u"First"_s), item(u"b"_s, u"x"_s)});
        keepRecord();
        putCaret(1, 1);
        QTest::keyClick(focused(), Qt::Key_Backspace);
        QCOMPARE(titles().size(), 2);
        QTest::keyClick(focused(), Qt::Key_Backspace);
        QCOMPARE(stored(), QStringList{u"First"_s});
        QCOMPARE(titles(), QStringList{u"First"_s});
        QCOMPARE(focused(), rows().at(0));
    }

    void typedTextOutlivesItsItem()
    {
        m_record = taskWith({item(u"a"_s, u"First"_s), item(u"b"_s, u"Second"_s)});
        keepRecord();
        putCaret(1, 0);
        QTest::keyClicks(focused(), u"My "_s);
        // Somebody else removes the item meanwhile.
        m_record.items.removeLast();
        m_view->setTask(m_record);
        QCOMPARE(titles(), (QStringList{u"First"_s, u"My Second"_s}));
        m_clock->advance(1s);
        QCOMPARE(stored(), (QStringList{u"First"_s, u"My Second"_s}));
    }

    void ticksItemsAndTask()
    {
        m_view->setTask(taskWith({item(u"a"_s, u"A"_s)}));
        QSignalSpy itemToggled{m_view.get(), &TaskDetailView::itemToggled};
        QSignalSpy completionToggled{m_view.get(), &TaskDetailView::completionToggled};
        QTest::mouseClick(m_view->findChild<QWidget *>(u"checklistItemCheckbox"_s), Qt::LeftButton);
        QTest::mouseClick(m_view->findChild<QWidget *>(u"detailCheckbox"_s), Qt::LeftButton);
        QCOMPARE(itemToggled.last().first().toString(), u"a"_s);
        QCOMPARE(completionToggled.count(), 1);
        m_view->setTask(std::nullopt);
        QVERIFY(!title().isVisible());
    }

    void everyPartHasAName()
    {
        m_view->setTask(taskWith({item(u"a"_s, u"A"_s)}));
        verifyControlsHaveNames(*m_view);
    }

private:
    CommittingTextEdit &title() { return *m_view->findChild<CommittingTextEdit *>(u"taskTitle"_s); }
    CommittingTextEdit &content() { return *m_view->findChild<CommittingTextEdit *>(u"taskContent"_s); }
    CommittingTextEdit *focused() { return qobject_cast<CommittingTextEdit *>(QApplication::focusWidget()); }

    QList<CommittingTextEdit *> rows()
    {
        QApplication::sendPostedEvents(); // lays out, and takes away what was dropped
        QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        auto found = m_view->findChildren<CommittingTextEdit *>(u"checklistItemTitle"_s);
        std::sort(found.begin(), found.end(), [this](const auto *one, const auto *other) {
            return one->mapTo(m_view.get(), QPoint{}).y() < other->mapTo(m_view.get(), QPoint{}).y();
        });
        return found;
    }
    QStringList titles()
    {
        QStringList found;
        for (const CommittingTextEdit *row : rows())
            found.append(row->text());
        return found;
    }
    QStringList stored() const
    {
        QStringList found;
        for (const KWChecklistItemModel &each : m_record.items)
            found.append(each.title);
        return found;
    }

    void putCaret(int row, int position)
    {
        rows().at(row)->setFocus();
        QTextCursor caret = focused()->textCursor();
        caret.setPosition(position);
        focused()->setTextCursor(caret);
    }

    // What a signal of the view does to the record, which the view then shows.
    template <class Signal, class Change>
    void onSignal(Signal signal, Change change)
    {
        connect(m_view.get(), signal, m_view.get(), [this, change](const auto &...arguments) {
            change(arguments...);
            m_view->setTask(m_record);
        });
    }
    void keepRecord()
    {
        using View = TaskDetailView;
        const auto find = [this](const QString &sid) {
            return std::find_if(m_record.items.begin(), m_record.items.end(),
                                [&sid](const KWChecklistItemModel &each) { return each.sid == sid; });
        };
        onSignal(&View::titleEdited, [this](const QString &text) { m_record.task.title = text; });
        onSignal(&View::contentEdited, [this](const QString &text) { m_record.task.content = text; });
        onSignal(&View::itemTitleEdited,
                 [find](const QString &sid, const QString &text) { find(sid)->title = text; });
        onSignal(&View::itemRemoved, [=, this](const QString &sid) { m_record.items.erase(find(sid)); });
        onSignal(&View::itemAdded, [=, this](const QString &after, const QString &text) {
            const auto place = after.isEmpty() ? m_record.items.begin() : find(after) + 1;
            m_record.items.insert(place, item(u"new %1"_s.arg(m_record.items.size()), text));
        });
        m_view->setTask(m_record);
    }

    std::unique_ptr<ManualClock> m_clock;
    std::unique_ptr<TaskDetailView> m_view;
    TaskDetailData m_record;
};

ORVANE_TEST(TaskDetailView_test)
#include "TaskDetailView_test.moc"
