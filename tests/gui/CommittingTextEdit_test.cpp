#include "views/controls/CommittingTextEdit.h"

#include "support/ManualClock.h"
#include "support/TestMain.h"

#include <QApplication>
#include <QClipboard>
#include <QSignalSpy>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

struct Editor {
    explicit Editor(CommittingTextEdit::Lines lines = CommittingTextEdit::Lines::One)
        : edit{clock, lines, &window}
    {
        window.resize(300, 200);
        window.show();
        edit.setFocus();
        if (!QTest::qWaitForWindowActive(&window)) qFatal("the window does not become active");
    }

    void type(const QString &text) { QTest::keyClicks(&edit, text); }
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) { QTest::keyClick(&edit, key, modifiers); }
    QStringList committed() const
    {
        QStringList texts;
        for (const auto &arguments : commits)
            texts.append(arguments.first().toString());
        return texts;
    }

    ManualClock clock{"2030-05-01 09:00"};
    QWidget window;
    CommittingTextEdit edit;
    QSignalSpy commits{&edit, &CommittingTextEdit::committed};
};

} // namespace

class CommittingTextEdit_test : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void commitsAfterAPause()
    {
        Editor editor;
        editor.edit.startWith(u"Pay"_s);
        editor.press(Qt::Key_End);
        editor.type(u" rent"_s);
        editor.clock.advance(900ms);
        editor.type(u"!"_s);
        editor.clock.advance(900ms);
        QCOMPARE(editor.committed(), QStringList{});
        editor.clock.advance(100ms);
        QCOMPARE(editor.committed(), QStringList{u"Pay rent!"_s});
        editor.clock.advance(1h);
        QCOMPARE(editor.commits.count(), 1);
        QVERIFY(editor.clock.isIdle());
    }

    void commitsWhenItIsLeft_data()
    {
        QTest::addColumn<int>("way");
        QTest::newRow("Enter") << 0;
        QTest::newRow("the focus goes") << 1;
        QTest::newRow("hidden") << 2;
        QTest::newRow("closed") << 3;
        QTest::newRow("asked to") << 4;
    }

    void commitsWhenItIsLeft()
    {
        QFETCH(const int, way);
        Editor editor;
        editor.edit.startWith({});
        editor.type(u"words"_s);
        switch (way) {
        case 0:
            editor.press(Qt::Key_Return);
            break;
        case 1:
            editor.edit.clearFocus();
            break;
        case 2:
            editor.edit.hide();
            break;
        case 3:
            editor.window.close();
            break;
        default:
            editor.edit.commit();
        }
        QCOMPARE(editor.committed(), QStringList{u"words"_s});
        editor.clock.advance(1h);
        QCOMPARE(editor.commits.count(), 1);
    }

    void typingBackCommitsNothing()
    {
        Editor editor;
        editor.edit.startWith(u"a"_s);
        editor.press(Qt::Key_End);
        editor.type(u"b"_s);
        editor.press(Qt::Key_Backspace);
        editor.clock.advance(1h);
        editor.edit.clearFocus();
        QCOMPARE(editor.commits.count(), 0);
    }

    void outsideValueLeavesTypedTextAlone()
    {
        Editor editor;
        editor.edit.startWith(u"old"_s);
        editor.press(Qt::Key_End);
        editor.type(u" and mine"_s);
        editor.edit.setStoredText(u"theirs"_s);
        QCOMPARE(editor.edit.text(), u"old and mine"_s);
        editor.edit.clearFocus();
        QCOMPARE(editor.committed(), QStringList{u"old and mine"_s});
    }

    void outsideValueKeepsTheCaret()
    {
        Editor editor;
        editor.edit.startWith(u"Call the venue"_s);
        QTextCursor caret = editor.edit.textCursor();
        caret.setPosition(9); // in "venue"
        editor.edit.setTextCursor(caret);
        editor.edit.setStoredText(u"Please call the venue"_s);
        QCOMPARE(editor.edit.text(), u"Please call the venue"_s);
        QCOMPARE(editor.edit.textCursor().position(), 16);
        editor.clock.advance(1h);
        QCOMPARE(editor.commits.count(), 0);
    }

    void lateEchoTakesNothingBack()
    {
        Editor editor;
        editor.edit.startWith({});
        editor.type(u"ab"_s);
        editor.clock.advance(1s);
        editor.type(u"c"_s);
        editor.clock.advance(1s);
        editor.edit.setStoredText(u"ab"_s);
        QCOMPARE(editor.edit.text(), u"abc"_s);
        // Once it is left, the record is what counts.
        editor.edit.clearFocus();
        editor.edit.setStoredText(u"ab"_s);
        QCOMPARE(editor.edit.text(), u"ab"_s);
    }

    void anotherRecordStartsClean()
    {
        Editor editor;
        editor.edit.startWith(u"first"_s);
        editor.edit.startWith(u"second"_s);
        editor.press(Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(editor.edit.text(), u"second"_s);
        editor.clock.advance(1h);
        QCOMPARE(editor.commits.count(), 0);
    }

    void keepsEveryCharacter_data()
    {
        QTest::addColumn<QString>("text");
        QTest::newRow("hard spaces") << u"5\u00a0km"_s;
        QTest::newRow("lines") << u"one\n\ntwo\n"_s;
        QTest::newRow("tabs and spaces") << u"\ta  b "_s;
        QTest::newRow("half a pair") << u"a"_s + QChar{0xdc00};
        QTest::newRow("very long") << u"word "_s.repeated(20'000);
    }

    void keepsEveryCharacter()
    {
        QFETCH(const QString, text);
        Editor editor{CommittingTextEdit::Lines::Many};
        editor.edit.startWith(text);
        QCOMPARE(editor.edit.text(), text);
        QVERIFY(!editor.edit.hasUncommittedText());
        editor.edit.setStoredText(text + u"!"_s);
        QCOMPARE(editor.edit.text(), text + u"!"_s);
    }

    void foreignLineBreaksAreNoEdit()
    {
        Editor editor{CommittingTextEdit::Lines::Many};
        editor.edit.startWith(u"a"_s);
        editor.edit.setStoredText(u"a\r\nb"_s);
        QCOMPARE(editor.edit.text(), u"a\nb"_s);
        editor.clock.advance(1h);
        QCOMPARE(editor.commits.count(), 0);
    }

    void oneLineStaysOne()
    {
        Editor editor;
        editor.edit.startWith({});
        QApplication::clipboard()->setText(u"one\r\ntwo\nthree"_s);
        editor.press(Qt::Key_V, Qt::ControlModifier);
        QCOMPARE(editor.edit.text(), u"one two three"_s);
        editor.press(Qt::Key_Return, Qt::ShiftModifier);
        QCOMPARE(editor.edit.text(), u"one two three"_s);
    }

    void tellsWhenTheCaretWantsOut()
    {
        Editor editor{CommittingTextEdit::Lines::Many};
        editor.edit.startWith(u"one\ntwo"_s);
        QSignalSpy up{&editor.edit, &CommittingTextEdit::leftUpwards};
        QSignalSpy down{&editor.edit, &CommittingTextEdit::leftDownwards};
        QSignalSpy back{&editor.edit, &CommittingTextEdit::backspacedAtStart};
        editor.edit.moveCursor(QTextCursor::Start);
        editor.press(Qt::Key_Down);
        QCOMPARE(down.count(), 0);
        editor.press(Qt::Key_Down);
        QCOMPARE(down.count(), 1);
        editor.press(Qt::Key_Up);
        QCOMPARE(up.count(), 0);
        editor.press(Qt::Key_Up);
        QCOMPARE(up.count(), 1);
        editor.edit.moveCursor(QTextCursor::Start);
        editor.press(Qt::Key_Backspace);
        QCOMPARE(back.count(), 1);
        QCOMPARE(editor.edit.text(), u"one\ntwo"_s);
    }

    void growsWithItsText()
    {
        Editor editor{CommittingTextEdit::Lines::Many};
        editor.edit.startWith(u"one"_s);
        const int one = editor.edit.height();
        editor.edit.startWith(u"one\ntwo\nthree"_s);
        QVERIFY(editor.edit.height() >= 3 * one - 3);
    }
};

ORVANE_TEST(CommittingTextEdit_test)
#include "CommittingTextEdit_test.moc"
