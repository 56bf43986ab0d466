#include "client/QuitQuestion.h"
#include "gui/MainWindowHands.h"
#include "gui/WindowHelp.h"
#include "model/records/KWTask.h"
#include "model/store/Connection.h"
#include "model/store/KWCoreDataManager.h"
#include "model/store/KWTaskEditor.h"
#include "support/Answers.h"
#include "support/TestMain.h"
#include "views/addfield/KWNewTaskTextField.h"
#include "views/alerts/UnsavedTextAlert.h"
#include "views/controls/CommittingTextEdit.h"
#include "views/controls/UnsavedTexts.h"
#include "views/main/MainWindow.h"

#include <QLineEdit>
#include <QPointer>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

/// What is typed while nothing can be stored is there to be stored later.
class UnsavedEdits_test : public QObject, MainWindowHands {
    Q_OBJECT

    // While it lives, nothing can be stored of what is edited.
    class Hindrance {
    public:
        explicit Hindrance(OrvaneKit &kit) : m_connection(kit.context().connection())
        {
            m_connection.execute("PRAGMA query_only = 1");
        }
        ~Hindrance() { m_connection.execute("PRAGMA query_only = 0"); }

    private:
        Connection &m_connection;
    };

    QString storedTitle(const QString &id)
    {
        return m_client->kit().context().find<KWTask>(id)->model().title;
    }
    QString storedContent(const QString &id)
    {
        return m_client->kit().context().find<KWTask>(id)->model().content;
    }

private Q_SLOTS:
    void init()
    {
        startClient();
        for (const char *each : {"Rent", "Water"})
            QVERIFY(m_client->rooms().newTasks().add(QString::fromLatin1(each)));
        m_client->openList(u"Inbox"_s);
        QTRY_COMPARE(pane().model().tasks().size(), 2);
    }
    void cleanup() { endClient(); }

    void ofARowStandsInItsEditorAgain()
    {
        const QString id = idOf(u"Rent"_s);
        goTo(taskRow(u"Rent"_s));
        m_client->press(Qt::Key_F2);
        auto &editor = m_client->find<QLineEdit>("taskRowTitleEditor");
        editor.selectAll();
        QTest::keyClicks(&editor, u"Pay the rent"_s);
        QPointer<QLineEdit> opened;
        {
            const Hindrance hindrance{m_client->kit()};
            QTest::keyClick(&editor, Qt::Key_Return);
            const QModelIndex row = taskRow(u"Rent"_s);
            const auto next = [&] { return qobject_cast<QLineEdit *>(list().indexWidget(row)); };
            QTRY_VERIFY(next() && next() != &editor);
            opened = next();
            QCOMPARE(opened->text(), u"Pay the rent"_s);
            for (int each = 0; each < 5; ++each) // it waits for the person
                QCoreApplication::processEvents();
            QVERIFY(opened && opened->hasFocus());
            QCOMPARE(storedTitle(id), u"Rent"_s);
        }
        QTest::keyClick(opened, Qt::Key_Return);
        QTRY_COMPARE(storedTitle(id), u"Pay the rent"_s);
    }

    void ofTheDetailIsStoredLater_data()
    {
        QTest::addColumn<bool>("isLeft");
        QTest::newRow("with the focus") << false;
        QTest::newRow("after another task") << true;
    }
    void ofTheDetailIsStoredLater()
    {
        QFETCH(bool, isLeft);
        const QString id = idOf(u"Rent"_s);
        goTo(taskRow(u"Rent"_s));
        auto &title = m_client->find<CommittingTextEdit>("taskTitle");
        auto &content = m_client->find<CommittingTextEdit>("taskContent");
        {
            const Hindrance hindrance{m_client->kit()};
            title.setFocus();
            title.selectAll();
            QTest::keyClicks(&title, u"Pay the rent"_s);
            content.setFocus();
            QTest::keyClicks(&content, u"By transfer"_s);
            m_client->clock.advance(2s);
            QCOMPARE(storedTitle(id), u"Rent"_s);
            QVERIFY(title.hasUncommittedText() && content.hasUncommittedText());
            if (isLeft) {
                goTo(taskRow(u"Water"_s));
                QTRY_COMPARE(title.text(), u"Water"_s);
            }
        }
        if (isLeft) {
            goTo(taskRow(u"Rent"_s));
            QTRY_COMPARE(title.text(), u"Pay the rent"_s);
            m_client->clock.advance(2s);
        } else {
            title.setFocus();
            list().setFocus();
        }
        QTRY_COMPARE(storedTitle(id), u"Pay the rent"_s);
        QTRY_COMPARE(storedContent(id), u"By transfer"_s);
    }

    void ofTheChecklistAndOfASubtaskIsStoredLater_data()
    {
        QTest::addColumn<bool>("asksFirst");
        QTest::newRow("once its task is shown") << false;
        QTest::newRow("before the program ends") << true;
    }
    void ofTheChecklistAndOfASubtaskIsStoredLater()
    {
        QFETCH(bool, asksFirst);
        KWTaskEditor editor{m_client->kit().manager()};
        QVERIFY(editor.addItem(idOf(u"Rent"_s), {}, u"Bank"_s));
        goTo(taskRow(u"Rent"_s));
        const auto items = [this] {
            return joined(m_client->window()->findChildren<CommittingTextEdit *>(u"checklistItemTitle"_s),
                          &CommittingTextEdit::text);
        };
        QTRY_COMPARE(items(), u"Bank"_s);
        {
            const Hindrance hindrance{m_client->kit()};
            m_client->find<CommittingTextEdit>("checklistItemTitle").setFocus();
            m_client->press(Qt::Key_End);
            m_client->type(u"s"_s);
            m_client->press(Qt::Key_Return);
            m_client->type(u"Post"_s);
            m_client->find<QLineEdit>("addSubtask").setFocus();
            m_client->type(u"Stamps"_s);
            goTo(taskRow(u"Water"_s));
            QTRY_COMPARE(items(), QString{});
            QCOMPARE(m_client->find<QLineEdit>("addSubtask").text(), QString{});
            QCOMPARE(unsavedTexts(), QStringList({u"Stamps"_s, u"Banks"_s, u"Post"_s}));
        }
        if (asksFirst) QVERIFY(unsavedTexts().isEmpty()); // as before the program ends
        goTo(taskRow(u"Rent"_s));
        QTRY_COMPARE(items(), u"Banks Post"_s);
        QVERIFY(unsavedTexts().isEmpty());
        QTRY_COMPARE(shown(), u"Water Rent .Stamps"_s);
        goTo(taskRow(u"Water"_s));
        goTo(taskRow(u"Rent"_s));
        QTRY_COMPARE(items(), u"Banks Post"_s);
    }

    void isAskedAboutBeforeTheEnd()
    {
        goTo(taskRow(u"Rent"_s));
        // What Qt would hear.
        struct Behind : QObject {
            bool eventFilter(QObject *, QEvent *event) override
            {
                if (event->type() == QEvent::Quit) ++quits;
                return event->type() == QEvent::Quit;
            }
            int quits = 0;
        } behind;
        qApp->installEventFilter(&behind);
        int refusals = 0;
        bool isSettled = false;
        const QuitQuestion question{{.isSettled = [&] { return isSettled; }, .refused = [&] { ++refusals; }}};
        const auto isHeldBack = [&behind] {
            QEvent quit{QEvent::Quit};
            QCoreApplication::sendEvent(qApp, &quit);
            return std::exchange(behind.quits, 0) == 0;
        };
        auto &title = m_client->find<CommittingTextEdit>("taskTitle");
        title.setFocus();
        m_client->type(u"!"_s);
        QVERIFY(mayLoseUnsavedTexts(u"Quit"_s)); // it can be stored
        QCOMPARE(storedTitle(idOf(title.text())), title.text());
        const Hindrance hindrance{m_client->kit()};
        m_client->type(u"!"_s);
        answerNextAlert(Qt::Key_Return);
        QVERIFY(isHeldBack());
        answerNextAlert(Qt::Key_Escape);
        QVERIFY(isHeldBack());
        QCOMPARE(refusals, 2);
        answerNextAlert(Qt::Key_Space, u"alertButton0"_s);
        QVERIFY(!isHeldBack());
        isSettled = true;
        QVERIFY(!isHeldBack());
    }

    void ofATaskThatIsGoneIsForgotten()
    {
        goTo(taskRow(u"Rent"_s));
        const QString id = idOf(u"Rent"_s);
        {
            const Hindrance hindrance{m_client->kit()};
            m_client->find<CommittingTextEdit>("taskTitle").setFocus();
            m_client->type(u"!"_s);
            goTo(taskRow(u"Water"_s));
            QCOMPARE(unsavedTexts().size(), 1);
        }
        QVERIFY(KWCoreDataService{m_client->kit().manager()}.sync_save(
            [&id](ObjectContext &context) -> Result<void> {
                context.find<KWTask>(id)->markDelete();
                return {};
            }));
        QVERIFY(unsavedTexts().isEmpty());
    }

    void standsInTheAddFieldAndInARow()
    {
        auto &field = m_client->find<KWNewTaskTextField>("addField");
        field.setFocus();
        m_client->type(u"Paint the fence"_s);
        QCOMPARE(unsavedTexts(), QStringList{u"Paint the fence"_s});
        field.clear();
        goTo(taskRow(u"Rent"_s));
        m_client->press(Qt::Key_F2);
        {
            const Hindrance hindrance{m_client->kit()};
            m_client->find<QLineEdit>("taskRowTitleEditor").setText(u"Pay the rent"_s);
            QCOMPARE(unsavedTexts(), QStringList{u"Pay the rent"_s});
        }
        QVERIFY(unsavedTexts().isEmpty());
        QTRY_VERIFY(!idOf(u"Pay the rent"_s).isEmpty());
    }
};

ORVANE_TEST(UnsavedEdits_test)
#include "UnsavedEdits_test.moc"
