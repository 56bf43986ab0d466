#include "views/controls/CommittingTextEdit.h"

#include "support/Answers.h"
#include "support/ManualClock.h"
#include "support/TestMain.h"

#include <QApplication>
#include <QClipboard>
#include <QSignalSpy>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

// An editor that starts with a text, the caret at its end.
struct Editor {
    explicit Editor(const QString &text = {},
                    CommittingTextEdit::Lines lines = CommittingTextEdit::Lines::One)
        : edit{clock, lines, &window}
    {
        window.show();
        edit.setFocus();
        if (!QTest::qWaitForWindowActive(&window)) qFatal("the window does not become active");
        edit.startWith(text);
        edit.moveCursor(QTextCursor::End);
    }

    void type(const QString &text) { QTest::keyClicks(&edit, text); }
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) { QTest::keyClick(&edit, key, modifiers); }
    QString committed() const
    {
        return joined(commits, [](const auto &arguments) { return arguments.first().toString(); });
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
        Editor editor{u"Pay"_s};
        editor.type(u" rent"_s);
        editor.clock.advance(900ms);
        editor.type(u"!"_s);
        editor.clock.advance(900ms);
        QCOMPARE(editor.committed(), QString{});
        editor.clock.advance(100ms);
        QCOMPARE(editor.committed(), u"Pay rent!"_s);
        editor.clock.advance(1h);
        editor.type(u"?"_s);
        editor.press(Qt::Key_Backspace); // back to what was committed
        editor.edit.clearFocus();
        QCOMPARE(editor.commits.count(), 1);
        QVERIFY(editor.clock.isIdle());
    }

    void commitsWhenItIsLeft()
    {
        const QList<std::function<void(Editor &)>> ways{
            [](Editor &editor) { editor.press(Qt::Key_Return); },
            [](Editor &editor) { editor.edit.clearFocus(); },
            [](Editor &editor) { editor.edit.hide(); },
            [](Editor &editor) { editor.window.close(); },
            [](Editor &editor) { editor.edit.commit(); },
        };
        for (const auto &leave : ways) {
            Editor editor;
            editor.type(u"words"_s);
            leave(editor);
            QCOMPARE(editor.committed(), u"words"_s);
            editor.clock.advance(1h);
            QCOMPARE(editor.commits.count(), 1);
        }
    }

    void outsideValueKeepsTheCaretAndAnotherRecordStartsClean()
    {
        Editor editor{u"Call the venue"_s};
        QTextCursor caret = editor.edit.textCursor();
        caret.setPosition(9); // in "venue"
        editor.edit.setTextCursor(caret);
        editor.edit.setStoredText(u"Please call the venue"_s);
        QCOMPARE(editor.edit.text(), u"Please call the venue"_s);
        QCOMPARE(editor.edit.textCursor().position(), 16);
        editor.edit.startWith(u"another"_s);
        editor.press(Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(editor.edit.text(), u"another"_s);
        editor.clock.advance(1h);
        QCOMPARE(editor.commits.count(), 0);
    }

    void lateEchoTakesNothingBack()
    {
        Editor editor;
        editor.type(u"ab"_s);
        editor.clock.advance(1s);
        editor.type(u"c"_s);
        editor.edit.setStoredText(u"ab"_s);
        QCOMPARE(editor.edit.text(), u"abc"_s);
        editor.clock.advance(1s);
        editor.edit.setStoredText(u"abc"_s);
        editor.edit.setStoredText(u"ab"_s);
        QCOMPARE(editor.edit.text(), u"abc"_s);
        // Once it is left, the record is what counts.
        editor.edit.setStoredText(u"abc"_s);
        editor.edit.clearFocus();
        editor.edit.setStoredText(u"ab"_s);
        QCOMPARE(editor.edit.text(), u"ab"_s);
    }

    void joinsWhatIsTypedWithWhatCameFromElsewhere()
    {
        Editor editor{u"one\ntwo\nthree"_s, CommittingTextEdit::Lines::Many};
        editor.type(u"!"_s);
        editor.edit.setStoredText(u"zero\none\ntwo\nthree"_s);
        QCOMPARE(editor.edit.text(), u"zero\none\ntwo\nthree!"_s);
        QCOMPARE(editor.edit.textCursor().position(), editor.edit.text().size());
        editor.press(Qt::Key_Z, Qt::ControlModifier); // takes back nothing of the others
        QCOMPARE(editor.edit.text(), u"zero\none\ntwo\nthree!"_s);
        editor.clock.advance(1s);
        QCOMPARE(editor.committed(), u"zero\none\ntwo\nthree!"_s);
    }

    void emptiedLineWaitsAndIsFilledAgain()
    {
        Editor editor{u"Pay"_s};
        editor.edit.selectAll();
        editor.press(Qt::Key_Delete);
        editor.clock.advance(1h);
        QCOMPARE(editor.committed(), QString{});
        editor.edit.clearFocus();
        QCOMPARE(editor.edit.text(), u"Pay"_s);
        QCOMPARE(editor.commits.count(), 1); // the record says whether it can do without
    }

    void keepsEveryCharacter()
    {
        const QString halfAPair = u"a"_s + QChar{0xdc00};
        for (const QString &text : {u"5\u00a0km"_s, u"one\n\ntwo\n"_s, u"\ta  b "_s, halfAPair}) {
            Editor editor{text, CommittingTextEdit::Lines::Many};
            QCOMPARE(editor.edit.text(), text);
            QVERIFY(!editor.edit.hasUncommittedText());
            editor.edit.setStoredText(text + u"!"_s);
            QCOMPARE(editor.edit.text(), text + u"!"_s);
        }
    }

    void oneLineStaysOne()
    {
        Editor editor;
        QApplication::clipboard()->setText(u"one\r\ntwo\nthree"_s);
        editor.press(Qt::Key_V, Qt::ControlModifier);
        editor.press(Qt::Key_Return, Qt::ShiftModifier);
        QCOMPARE(editor.edit.text(), u"one two three"_s);
    }

    void tellsWhenTheCaretWantsOut()
    {
        Editor editor{u"one\ntwo"_s, CommittingTextEdit::Lines::Many};
        QSignalSpy up{&editor.edit, &CommittingTextEdit::leftUpwards};
        QSignalSpy down{&editor.edit, &CommittingTextEdit::leftDownwards};
        editor.press(Qt::Key_Down);
        QCOMPARE(down.count(), 1);
        editor.press(Qt::Key_Up);
        QCOMPARE(up.count(), 0);
        editor.press(Qt::Key_Up);
        QCOMPARE(up.count(), 1);
    }
};

ORVANE_TEST(CommittingTextEdit_test)
#include "CommittingTextEdit_test.moc"
