#include "views/addfield/KWNewTaskTextField.h"

#include "support/TestMain.h"

#include <QApplication>
#include <QClipboard>
#include <QInputMethodEvent>
#include <QSignalSpy>

using namespace Qt::StringLiterals;

Q_DECLARE_METATYPE(RecognizedPiece)

namespace {

RecognizedPiece piece(RecognizedPieceType type, qsizetype location, qsizetype length)
{
    return {type, location, length, {}, {}};
}

void paste(KWNewTaskTextField &field, const QString &text)
{
    QApplication::clipboard()->setText(text);
    QTest::keyClick(&field, Qt::Key_V, Qt::ControlModifier);
}

QColor colourAt(KWNewTaskTextField &field, const QPoint &position)
{
    return field.viewport()->grab().toImage().pixelColor(position);
}

} // namespace

class KWNewTaskTextField_test : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_field = std::make_unique<KWNewTaskTextField>();
        m_field->resize(600, m_field->sizeHint().height());
        m_field->show();
        m_field->setFocus();
        QVERIFY(QTest::qWaitForWindowActive(m_field.get()));
    }
    void cleanup() { m_field.reset(); }

    void announcesWhatIsTyped()
    {
        QSignalSpy edited{m_field.get(), &KWNewTaskTextField::textEdited};
        QSignalSpy submitted{m_field.get(), &KWNewTaskTextField::submitted};
        QTest::keyClicks(m_field.get(), u"Call"_s);
        QCOMPARE(edited.count(), 4);
        QCOMPARE(edited.last().first().toString(), u"Call"_s);
        QTest::keyClick(m_field.get(), Qt::Key_Return);
        QCOMPARE(submitted.last().first().toString(), u"Call"_s);
        QTest::keyClick(m_field.get(), Qt::Key_Enter, Qt::ShiftModifier);
        QCOMPARE(submitted.count(), 2);
        QCOMPARE(m_field->text(), u"Call"_s);
        QCOMPARE(edited.count(), 4);
    }

    void goesAwayOnEscapeAndTab()
    {
        QSignalSpy left{m_field.get(), &KWNewTaskTextField::left};
        QTest::keyClicks(m_field.get(), u"a"_s);
        QTest::keyClick(m_field.get(), Qt::Key_Escape);
        QCOMPARE(left.count(), 1);
        QTest::keyClick(m_field.get(), Qt::Key_Tab);
        QCOMPARE(m_field->text(), u"a"_s);
    }

    void takesLinesToItsEnd_data()
    {
        QTest::addColumn<QString>("before");
        QTest::addColumn<int>("caret");
        QTest::addColumn<QString>("pasted");
        QTest::addColumn<QString>("after");
        QTest::newRow("one line goes to the caret") << u"ad"_s << 1 << u"bc"_s << u"abcd"_s;
        QTest::newRow("lines go to the end") << u"ad"_s << 1 << u"b\nc"_s << u"adb c"_s;
        QTest::newRow("every line feed counts") << u"a"_s << 0 << u"\nb\n\nc\n"_s << u"a b  c "_s;
        QTest::newRow("a pair is one") << QString{} << 0 << u"b\r\nc\rd"_s << u"b c d"_s;
        QTest::newRow("other separators") << QString{} << 0 << u"b\u2028c\u2029d"_s << u"b c d"_s;
        QTest::newRow("hard spaces stay") << QString{} << 0 << u"5\u00a0km"_s << u"5\u00a0km"_s;
    }

    void takesLinesToItsEnd()
    {
        QFETCH(const QString, before);
        QFETCH(const int, caret);
        QFETCH(const QString, pasted);
        m_field->setText(before);
        QTextCursor cursor = m_field->textCursor();
        cursor.setPosition(caret);
        m_field->setTextCursor(cursor);
        QSignalSpy edited{m_field.get(), &KWNewTaskTextField::textEdited};
        paste(*m_field, pasted);
        QTEST(m_field->text(), "after");
        QCOMPARE(edited.count(), 1);
        QCOMPARE(m_field->document()->blockCount(), 1);

        QTest::keyClick(m_field.get(), Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(m_field->text(), before);
        QTest::keyClick(m_field.get(), Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
        QTEST(m_field->text(), "after");
    }

    void takesWhatAnInputMethodCommits()
    {
        QSignalSpy edited{m_field.get(), &KWNewTaskTextField::textEdited};
        QInputMethodEvent composing{u"mi"_s, {}};
        QApplication::sendEvent(m_field.get(), &composing);
        QCOMPARE(edited.count(), 0);
        QInputMethodEvent commit;
        commit.setCommitString(u"明天"_s);
        QApplication::sendEvent(m_field.get(), &commit);
        QCOMPARE(m_field->text(), u"明天"_s);
        QCOMPARE(edited.count(), 1);
        QInputMethodEvent lines;
        lines.setCommitString(u"三\n点"_s);
        QApplication::sendEvent(m_field.get(), &lines);
        QCOMPARE(m_field->text(), u"明天三 点"_s);
        QCOMPARE(m_field->document()->blockCount(), 1);
    }

    void holdsAVeryLongText()
    {
        const QString text = u"word "_s.repeated(20'000);
        paste(*m_field, text);
        QCOMPARE(m_field->text(), text);
        QTest::keyClicks(m_field.get(), u"end"_s);
        QCOMPARE(m_field->text(), text + u"end"_s);
        QVERIFY(!m_field->grab().isNull());
    }

    void keepsBrokenText()
    {
        const QString broken = u"a"_s + QChar{0xd83d} + u"b"_s;
        m_field->setText(broken);
        QCOMPARE(m_field->text(), broken);
        QVERIFY(!m_field->grab().isNull());
    }

    void marksAndDropsPieces_data()
    {
        QTest::addColumn<int>("caret");
        QTest::addColumn<int>("key");
        QTest::addColumn<QList<int>>("locations");
        // "Call tomorrow #home", marked at 5 and 14
        QTest::newRow("typing before both") << 0 << int(Qt::Key_X) << QList<int>{6, 15};
        QTest::newRow("typing between") << 13 << int(Qt::Key_X) << QList<int>{5, 15};
        QTest::newRow("typing within the first") << 7 << int(Qt::Key_X) << QList<int>{15};
        QTest::newRow("deleting within the second") << 17 << int(Qt::Key_Backspace) << QList<int>{5};
        QTest::newRow("deleting before both") << 1 << int(Qt::Key_Backspace) << QList<int>{4, 13};
        QTest::newRow("typing behind both") << 19 << int(Qt::Key_X) << QList<int>{5, 14};
    }

    void marksAndDropsPieces()
    {
        QFETCH(const int, caret);
        QFETCH(const int, key);
        m_field->setText(u"Call tomorrow #home"_s);
        m_field->setPieces({piece(RecognizedPieceType::Date, 5, 8), piece(RecognizedPieceType::Tag, 14, 5)});
        QTextCursor cursor = m_field->textCursor();
        cursor.setPosition(caret);
        m_field->setTextCursor(cursor);
        QTest::keyClick(m_field.get(), Qt::Key(key));
        QList<int> locations;
        for (const RecognizedPiece &each : m_field->pieces())
            locations.append(int(each.location));
        QTEST(locations, "locations");
    }

    void refusesPiecesBeyondTheText()
    {
        m_field->setText(u"abc"_s);
        m_field->setPieces({piece(RecognizedPieceType::Date, 0, 3), piece(RecognizedPieceType::Date, 2, 2),
                            piece(RecognizedPieceType::Date, -1, 2), piece(RecognizedPieceType::Date, 1, 0)});
        QCOMPARE(m_field->pieces().size(), 1);
    }

    void paintsAPillBehindAPieceAndMovesNoText()
    {
        m_field->setText(u"Call tomorrow"_s);
        QTextCursor cursor = m_field->textCursor();
        const QRect end = m_field->cursorRect(cursor);
        const QPoint inThePiece{end.left() - 1, end.top() + 1};
        const QColor bare = colourAt(*m_field, inThePiece);
        m_field->setPieces({piece(RecognizedPieceType::Date, 5, 8)});
        QVERIFY(colourAt(*m_field, inThePiece) != bare);
        QCOMPARE(m_field->cursorRect(m_field->textCursor()), end);
    }

    void clickOnAPieceAsksToUndoIt()
    {
        qRegisterMetaType<RecognizedPiece>();
        m_field->setText(u"Call tomorrow #home"_s);
        const RecognizedPiece date = piece(RecognizedPieceType::Date, 5, 8);
        m_field->setPieces({date});
        QSignalSpy clicked{m_field.get(), &KWNewTaskTextField::pieceClicked};
        const auto positionOf = [this](int location) {
            QTextCursor cursor = m_field->textCursor();
            cursor.setPosition(location);
            return m_field->cursorRect(cursor).center();
        };
        QTest::mouseClick(m_field->viewport(), Qt::LeftButton, {}, positionOf(2));
        QCOMPARE(clicked.count(), 0);
        QTest::mouseClick(m_field->viewport(), Qt::LeftButton, {}, positionOf(9));
        QCOMPARE(clicked.count(), 1);
        QVERIFY(clicked[0][0].value<RecognizedPiece>() == date);

        // Dragging over it selects text and undoes nothing.
        QTest::mousePress(m_field->viewport(), Qt::LeftButton, {}, positionOf(6));
        QTest::mouseMove(m_field->viewport(), positionOf(16));
        QTest::mouseRelease(m_field->viewport(), Qt::LeftButton, {}, positionOf(16));
        QCOMPARE(clicked.count(), 1);
    }

    void readsAloudWhatItIsFor()
    {
        m_field->setPlaceholder(u"Add a task to “Inbox”"_s);
        QCOMPARE(m_field->accessibleName(), u"Add a task"_s);
        QCOMPARE(m_field->accessibleDescription(), u"Add a task to “Inbox”"_s);
    }

private:
    std::unique_ptr<KWNewTaskTextField> m_field;
};

ORVANE_TEST(KWNewTaskTextField_test)
#include "KWNewTaskTextField_test.moc"
