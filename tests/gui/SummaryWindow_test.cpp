#include "app/ports/DiagnosticsPorts.h"
#include "gui/ClientFixture.h"
#include "gui/WindowHelp.h"
#include "model/records/KWTask.h"
#include "support/Files.h"
#include "support/TestMain.h"
#include "views/controls/UnsavedTexts.h"
#include "views/main/MainWindow.h"
#include "views/taskdetail/TaskDetailView.h"
#include "views/tasklist/TaskListView.h"
#include "views/web/PageWindow.h"
#include "views/web/WebPane.h"

#include <QApplication>
#include <QClipboard>
#include <QCloseEvent>
#include <QFileDialog>
#include <QLabel>
#include <QMenu>
#include <QTest>
#include <QtTest/qtestspontaneevent.h>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

/// Stands for a page in a web view: the test says what its script does, and when it is printed.
class ScriptedPage : public WebPage {
public:
    ScriptedPage(WebPageRequest request, QWidget &parent)
        : m_request(std::move(request)), m_view(new QWidget{&parent})
    {
    }

    QWidget &view() override { return *m_view; }
    void setLook(const WebPageLook &) override {}
    void edit(WebPageEdit action) override { edits.append(action); }
    bool isReady() const override { return true; }
    void printToPdf(std::function<void(const QByteArray &)> done) override
    {
        printed.append(std::move(done));
    }
    void drawPicture(int, std::function<void(const QImage &)> done) override
    {
        drawn.append(std::move(done));
    }

    QString call(const char *method, const QString &text)
    {
        for (QObject *each : m_request.handlers) {
            QString answer;
            if (each->metaObject()->indexOfMethod(QByteArray{method} + "(QString)") >= 0) {
                QMetaObject::invokeMethod(each, method, Q_RETURN_ARG(QString, answer), Q_ARG(QString, text));
                return answer;
            }
        }
        return u"no method of that name"_s;
    }

    void follow(const QUrl &link) { m_request.openLink(link); }

    QList<WebPageEdit> edits;
    QList<std::function<void(const QByteArray &)>> printed;
    QList<std::function<void(const QImage &)>> drawn;

private:
    WebPageRequest m_request;
    QWidget *m_view;
};

/// Knows the page that was opened last.
struct ScriptedPages : WebPagePlugin {
    ScriptedPage *last = nullptr;
    std::unique_ptr<WebPage> open(const WebPageRequest &request, QWidget &parent) override
    {
        auto page = std::make_unique<ScriptedPage>(request, parent);
        last = page.get();
        return page;
    }
};

struct OneMailProgram : MailPort {
    bool isThere = true;
    QStringList mails;
    bool composeText(const QString &subject, const QString &text) override
    {
        if (isThere) mails.append(subject + u": "_s + text);
        return isThere;
    }
};

} // namespace

/// What becomes of a summary in the windows of the client, whatever its page does.
class SummaryWindow_test : public QObject {
    Q_OBJECT

    std::unique_ptr<ClientFixture> m_client;
    ScriptedPages m_pages;
    OneMailProgram m_mail;
    QStringList m_tasks;

    QString contentOf(const QString &taskID)
    {
        return m_client->kit().context().find<KWTask>(taskID)->model().content;
    }
    PageWindow *chooser() { return m_client->window()->findChild<PageWindow *>(u"pageWindow"_s); }
    static QString toastOf(const QWidget &window)
    {
        const auto *toast = window.findChild<QWidget *>(u"toast"_s);
        return toast && toast->isVisible() ? toast->accessibleName() : QString{};
    }
    void closeByMouse()
    {
        QCloseEvent close;
        QSpontaneKeyEvent::setSpontaneous(&close); // it comes from the desktop
        qApp->notify(chooser(), &close);
    }
    QFileDialog *dialog() { return m_client->window()->findChild<QFileDialog *>(u"exportSummary"_s); }

    void openChooser()
    {
        m_client->find<QWidget>("detailMore").setFocus();
        m_client->press(Qt::Key_Space);
        auto *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
        QVERIFY(menu);
        for (QAction *each : menu->actions())
            if (each->text() == u"Insert Summary…") each->trigger();
        menu->close();
        QVERIFY(chooser());
    }

private Q_SLOTS:
    void init()
    {
        QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
        m_mail = {};
        m_client = std::make_unique<ClientFixture>();
        m_client->restart({.mail = m_mail, .webPages = [this] { return &m_pages; }});
        m_client->useOnThisComputer();
        m_client->openList(u"Inbox"_s);
        for (const QString &each : {u"Bake a cake"_s, u"Wash up"_s})
            m_tasks.append(m_client->rooms().newTasks().add(each)->sid);
        m_client->find<TaskListView>("taskList").selectTask(m_tasks[0]);
    }
    void cleanup()
    {
        m_client.reset();
        m_tasks.clear();
    }

    void goesIntoTheTextOnce()
    {
        openChooser();
        QCOMPARE(m_pages.last->call("insertSummary", u"# Week\n- a"_s), QString{});
        m_pages.last->call("insertSummary", u"# Week\n- a"_s); // pressed twice
        QCOMPARE(contentOf(m_tasks[0]), u"# Week\n- a"_s);
        QTRY_VERIFY(!chooser());
    }

    void replacesNothingThatIsSelected()
    {
        auto &content = m_client->find<QWidget>("taskContent");
        content.setFocus();
        m_client->type(u"A long note"_s);
        m_client->press(Qt::Key_A, Qt::ControlModifier);
        openChooser();
        m_pages.last->call("insertSummary", u"# Week"_s);
        QCOMPARE(contentOf(m_tasks[0]), u"A long note\n# Week"_s);
    }

    void goesIntoNoOtherTask()
    {
        openChooser();
        auto &list = m_client->find<TaskListView>("taskList");
        list.setFocus();
        list.selectTask(m_tasks[1]);
        QCOMPARE(m_client->window()->detail().shownTask(), m_tasks[1]);
        QCOMPARE(m_pages.last->call("insertSummary", u"# Week"_s), QString{});
        QVERIFY(contentOf(m_tasks[0]).isEmpty() && contentOf(m_tasks[1]).isEmpty());
        QVERIFY(toastOf(*chooser()).startsWith(u"Another task is shown now"));
        // Copying it is left.
        m_pages.last->call("copyMarkdown", u"**Week**"_s);
        QCOMPARE(QGuiApplication::clipboard()->text(), u"**Week**"_s);
    }

    void asksBeforeTypedTextGoesWithTheWindow()
    {
        openChooser();
        m_pages.last->call("tellUnsaved", u"# My week"_s);
        answerNextAlert(Qt::Key_Escape);
        closeByMouse();
        QVERIFY(chooser()->isVisible());
        QCOMPARE(unsavedTexts(), QStringList{u"# My week"_s}); // for quitting too
        m_pages.last->call("closeWindow", {});
        answerNextAlert(Qt::Key_Escape);
        QCoreApplication::processEvents();
        QVERIFY(chooser()->isVisible());
        m_pages.last->call("closeWindow", {});
        m_pages.last->call("closeWindow", {}); // pressed twice
        answerNextAlert(Qt::Key_Space, u"alertButton0"_s);
        QTRY_VERIFY(!chooser());
    }

    void leadsToATaskWhereNoOtherWaitsForIt()
    {
        const QUrl link{u"orvane://task/"_s + m_tasks[1]};
        openChooser();
        m_pages.last->follow(link);
        QVERIFY(toastOf(*chooser()).startsWith(u"This link leads to another task."));
        QCOMPARE(m_client->window()->detail().shownTask(), m_tasks[0]);
        closeByMouse();
        QTRY_VERIFY(!chooser());
        m_client->openList(u"Summary"_s);
        m_pages.last->follow(link);
        QTRY_COMPARE(m_client->window()->detail().shownTask(), m_tasks[1]);
    }

    void takesTheEditMenu()
    {
        m_client->openList(u"Summary"_s);
        QWidget &view = m_pages.last->view();
        view.setFocusPolicy(Qt::StrongFocus);
        QTRY_VERIFY(view.isVisible());
        view.setFocus();
        for (const MenuCommand each : {MenuCommand::Copy, MenuCommand::SelectAll, MenuCommand::Undo})
            m_client->rooms().menu().action(each).trigger();
        QCOMPARE(m_pages.last->edits, (QList{WebPageEdit::Copy, WebPageEdit::SelectAll, WebPageEdit::Undo}));
    }

    void asksNothingAboutTextThatWasTakenAlong()
    {
        openChooser();
        m_pages.last->call("tellUnsaved", u"# My week"_s);
        m_pages.last->call("tellUnsaved", {});
        closeByMouse();
        QTRY_VERIFY(!chooser());
    }

    void isNotPrintedIntoAWindowThatWent()
    {
        openChooser();
        m_pages.last->call("exportPdf", {});
        m_pages.last->call("exportPdf", {}); // one at a time
        QCOMPARE(m_pages.last->printed.size(), 1);
        const auto done = m_pages.last->printed.first();
        chooser()->close();
        QTRY_VERIFY(!chooser());
        done("%PDF-1.4");
        QVERIFY(!dialog());
    }

    void isWrittenWhereThePersonSays_data()
    {
        QTest::addColumn<QString>("method");
        QTest::addColumn<QString>("name");
        QTest::addColumn<QByteArray>("beginning");
        QTest::newRow("paper") << u"exportPdf"_s << u"week.pdf"_s << QByteArray{"%PDF-"};
        QTest::newRow("picture") << u"exportPNG"_s << u"week.png"_s << QByteArray{"\x89PNG"};
    }
    void isWrittenWhereThePersonSays()
    {
        QFETCH(const QString, method);
        QFETCH(const QString, name);
        QFETCH(const QByteArray, beginning);
        const QTemporaryDir folder;
        m_client->openList(u"Summary"_s);
        const auto exportTo = [&](const QString &place, bool works) {
            m_pages.last->call(qPrintable(method), {});
            QImage picture{4, 4, QImage::Format_RGB32};
            picture.fill(Qt::white);
            for (const auto &each : std::exchange(m_pages.last->printed, {}))
                each(works ? "%PDF-1.4" : QByteArray{});
            for (const auto &each : std::exchange(m_pages.last->drawn, {}))
                each(works ? picture : QImage{});
            if (!dialog()) return toastOf(*m_client->window());
            dialog()->selectFile(place);
            static_cast<QDialog *>(dialog())->accept();
            [&] { QTRY_VERIFY(!dialog()); }();
            return toastOf(*m_client->window());
        };
        const QString file = folder.filePath(name);
        QCOMPARE(exportTo(file, true), u"The summary is in “%1”."_s.arg(file));
        QVERIFY(bytesOf(file).startsWith(beginning));
        QVERIFY(exportTo(file, false).endsWith(u'.') && !dialog());
    }

    void isMailedOnceForTwoPresses()
    {
        m_client->openList(u"Summary"_s);
        const QString mail = u"{\"title\": \"Week\", \"summary\": \"- a\"}"_s;
        QCOMPARE(m_pages.last->call("exportMail", mail), QString{});
        QVERIFY(!m_pages.last->call("exportMail", mail).isEmpty()); // nothing else is taken along
        QCOMPARE(m_mail.mails, QStringList{u"Week: - a"_s});
        m_client->clock.advance(2s);
        m_pages.last->call("exportMail", u"[]"_s);
        QCOMPARE(m_mail.mails.size(), 1);
        m_mail.isThere = false;
        const QString sentence = u"No mail program could be opened for this summary."_s;
        for (int i = 0; i < 2; ++i)
            QCOMPARE(m_pages.last->call("exportMail", mail), sentence);
        QCOMPARE(toastOf(*m_client->window()), sentence);
    }
};

ORVANE_TEST(SummaryWindow_test)
#include "SummaryWindow_test.moc"
