#include "views/addfield/AddFieldController.h"

#include "gui/AddFieldFixture.h"
#include "gui/WindowHelp.h"
#include "support/Answers.h"
#include "support/TestMain.h"
#include "views/addfield/DateTip.h"
#include "views/addfield/KWNewTaskTextField.h"
#include "views/addfield/TitleLessons.h"
#include "views/main/MainWindow.h"

#include <QApplication>
#include <QClipboard>

using namespace Qt::StringLiterals;

/// What the add field of the window does with recognised and pasted text, with real keys.
class AddFieldController_test : public QObject {
    Q_OBJECT

    std::unique_ptr<AddFieldFixture> m_client;

    KWNewTaskTextField &field() { return m_client->field(); }
    QString pieces()
    {
        return joined(field().pieces(), [](const RecognizedPiece &each) { return each.text; });
    }
    void paste(const QString &text)
    {
        QApplication::clipboard()->setText(text);
        m_client->press(Qt::Key_V, Qt::ControlModifier);
    }

private Q_SLOTS:
    void init() { m_client = std::make_unique<AddFieldFixture>(); }
    void cleanup() { m_client.reset(); }

    void aTitleHasOnePriority()
    {
        m_client->type(u"Buy !low milk !high"_s);
        QCOMPARE(field().text(), u"Buy !low milk !high"_s);
        QTRY_COMPARE(field().text(), u"Buy milk !high"_s);
        QCOMPARE(pieces(), u"!high"_s);
        // The one typed last is meant, wherever it stands.
        m_client->press(Qt::Key_Home);
        m_client->type(u"!medium "_s);
        QTRY_COMPARE(field().text(), u"!medium Buy milk "_s);
        QCOMPARE(pieces(), u"!medium"_s);
    }

    void undoGoesBackBeyondAReplacedPriority()
    {
        m_client->type(u"a !low !high"_s);
        QTRY_COMPARE(field().text(), u"a !high"_s);
        QStringList steps;
        while (!field().text().isEmpty() && steps.size() < 9) {
            m_client->press(Qt::Key_Z, Qt::ControlModifier);
            QCoreApplication::processEvents(); // what the field takes out by itself, it takes out then
            steps << field().text();
        }
        QCOMPARE(steps, QStringList({u"a !low"_s, u"a"_s, QString{}}));
        m_client->press(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
        QCOMPARE(field().text(), u"a"_s);
    }

    void manyPrioritiesGoInOneStep()
    {
        m_client->type(u"Milk "_s);
        int changes = 0;
        connect(&field(), &KWNewTaskTextField::textEdited, this, [&changes] { ++changes; });
        paste(u"!low !high !medium "_s.repeated(50) + u"!high now"_s);
        QTRY_COMPARE(field().text(), u"Milk "_s + u"!high "_s.repeated(50) + u"!high now"_s);
        QCOMPARE(changes, 2);
        m_client->press(Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(field().text(), u"Milk "_s);
    }

    void backspaceBehindAMarkTakesTheRecognitionBack()
    {
        m_client->type(u"Read tomorrow"_s);
        m_client->press(Qt::Key_Backspace);
        QCOMPARE(field().text(), u"Read tomorrow"_s);
        QCOMPARE(pieces(), QString{});
        m_client->type(u" and friday"_s);
        QCOMPARE(pieces(), QString{});
        m_client->press(Qt::Key_Return);
        QCOMPARE(m_client->savedTitles(), QStringList{u"Read tomorrow and friday"_s});

        // Somebody who goes on correcting wanted another date.
        m_client->type(u"Read at 5pm"_s);
        for (int i = 0; i < 3; ++i)
            m_client->press(Qt::Key_Backspace);
        QCOMPARE(field().text(), u"Read at 5"_s);
        m_client->type(u"am"_s);
        QCOMPARE(pieces(), u"at 5am"_s);
        // A tag is a word like others.
        m_client->type(u" #home"_s);
        m_client->press(Qt::Key_Backspace);
        QCOMPARE(field().text(), u"Read at 5am #hom"_s);
    }

    void undoGoesByWords()
    {
        m_client->type(u"Read the memo"_s);
        m_client->press(Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(field().text(), u"Read the"_s);
        paste(u"long letter"_s);
        m_client->press(Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(field().text(), u"Read the"_s);
    }

    void pastedLinesBecomeTasks()
    {
        const QString lines = u"Milk\nBread tomorrow\n- [ ] Eggs #errand\n"_s;
        m_client->type(u"Pay rent"_s);
        paste(lines);
        answerNextAlert(Qt::Key_Return);
        QTRY_COMPARE(m_client->savedTitles(), (QStringList{u"Milk"_s, u"Bread"_s, u"Eggs"_s, u"Pay rent"_s}));
        QCOMPARE(field().text(), u"Pay rent"_s);
        QTest::mouseClick(&m_client->find<QWidget>("toastAction"), Qt::LeftButton);
        QTRY_COMPARE(m_client->shownTitles(), QStringList{});

        m_client->window()->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(m_client->window()));
        field().setFocus();
        paste(lines);
        answerNextAlert(Qt::Key_Escape);
        QTRY_COMPARE(field().text(), u"Pay rentMilk Bread tomorrow - [ ] Eggs #errand "_s);
        // One line, and what was not copied, is asked for by nobody.
        m_client->window()->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(m_client->window()));
        field().setText({});
        paste(u"\nMilk\n"_s);
        QCOMPARE(field().text(), u" Milk "_s);
    }

    void theFirstDateIsExplainedOnce()
    {
        const auto tip = [this] { return field().findChild<QWidget *>(u"dateTip"_s); };
        m_client->type(u"Read "_s);
        QVERIFY(!tip());
        m_client->type(u"tomorrow"_s);
        QVERIFY(tip() && tip()->isVisible());
        m_client->clock.advance(std::chrono::milliseconds{2999});
        QVERIFY(tip());
        m_client->clock.advance(std::chrono::milliseconds{1});
        QVERIFY(!tip());
        m_client->press(Qt::Key_Return);
        m_client->restart();
        QTest::keyClicks(&field(), u"Read friday"_s);
        QCOMPARE(pieces(), u"friday"_s);
        QVERIFY(!tip());
    }

    void theEmptyFieldTeachesAndHelps()
    {
        const auto help = [this] { return field().findChild<QWidget *>(u"fieldHelp"_s); };
        const QPoint questionMark{field().width() - field().height() / 2, field().height() / 2};
        QTest::mouseClick(&field(), Qt::LeftButton, {}, questionMark);
        QVERIFY(help() && help()->accessibleDescription().contains(titleLessons().last().meaning));
        QTest::keyClick(help(), Qt::Key_Escape);
        QTRY_VERIFY(!help());
        QTest::keyClicks(&field(), u"x"_s);
        QTest::mouseClick(&field(), Qt::LeftButton, {}, questionMark);
        QVERIFY(!help());
        m_client->window()->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(m_client->window()));
        QTest::keyClick(&field(), Qt::Key_F1, Qt::ShiftModifier);
        QVERIFY(help());
    }
};

ORVANE_TEST(AddFieldController_test)
#include "AddFieldController_test.moc"
