#include "views/addfield/KWNewTaskTextField.h"

#include "support/Answers.h"
#include "support/TestMain.h"

#include <QApplication>
#include <QClipboard>
#include <QInputMethodEvent>
#include <QSignalSpy>

using namespace Qt::StringLiterals;

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

void putCaret(KWNewTaskTextField &field, int position)
{
    QTextCursor cursor = field.textCursor();
    cursor.setPosition(position);
    field.setTextCursor(cursor);
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
        m_field->setText({});
        QTest::keyClick(m_field.get(), Qt::Key_Return);
        QCOMPARE(submitted.count(), 2);
        m_field->canBeEmpty = true;
        QTest::keyClick(m_field.get(), Qt::Key_Return);
        QCOMPARE(submitted.count(), 3);
        m_field->setText(u"Call"_s);
        QSignalSpy left{m_field.get(), &KWNewTaskTextField::left};
        QTest::keyClick(m_field.get(), Qt::Key_Escape);
        QCOMPARE(left.count(), 1);
        const auto edits = edited.count();
        QTest::keyClick(m_field.get(), Qt::Key_Tab);
        QCOMPARE(m_field->text(), u"Call"_s);
        QCOMPARE(edited.count(), edits);
    }

    void takesLinesToItsEnd()
    {
        const auto afterPasting = [this](const QString &pasted) {
            m_field->setText(u"ad"_s);
            putCaret(*m_field, 1);
            paste(*m_field, pasted);
            return m_field->text();
        };
        QCOMPARE(afterPasting(u"bc"_s), u"abcd"_s);
        QCOMPARE(afterPasting(u"5\u00a0km"_s), u"a5\u00a0kmd"_s);
        QCOMPARE(afterPasting(u"\nb\n\nc\n"_s), u"ad b  c "_s);
        QCOMPARE(afterPasting(u"b\r\nc\rd"_s), u"adb c d"_s);
        QCOMPARE(afterPasting(u"b\u2028c\u2029d"_s), u"adb c d"_s);
        QCOMPARE(m_field->document()->blockCount(), 1);
        QTest::keyClick(m_field.get(), Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(m_field->text(), u"ad"_s);
        QTest::keyClick(m_field.get(), Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
        QCOMPARE(m_field->text(), u"adb c d"_s);
    }

    void takesWhatAnInputMethodCommits()
    {
        QSignalSpy edited{m_field.get(), &KWNewTaskTextField::textEdited};
        QInputMethodEvent composing{u"mi"_s, {}};
        QApplication::sendEvent(m_field.get(), &composing);
        QCOMPARE(edited.count(), 0);
        QInputMethodEvent commit;
        commit.setCommitString(u"三\n点"_s);
        QApplication::sendEvent(m_field.get(), &commit);
        QCOMPARE(m_field->text(), u"三 点"_s);
        QCOMPARE(edited.count(), 1);
        QCOMPARE(m_field->document()->blockCount(), 1);
    }

    void holdsVeryLongAndBrokenText()
    {
        const QString broken = u"a"_s + QChar{0xd83d} + u"b"_s;
        m_field->setText(broken);
        QCOMPARE(m_field->text(), broken);
        m_field->setText({});
        const QString text = u"word "_s.repeated(20'000);
        paste(*m_field, text);
        QCOMPARE(m_field->text(), text);
        QTest::keyClicks(m_field.get(), u"end"_s);
        QCOMPARE(m_field->text(), text + u"end"_s);
        QVERIFY(!m_field->grab().isNull());
    }

    void marksAndDropsPieces()
    {
        const auto locationsAfter = [this](int caret, Qt::Key key) {
            m_field->setText(u"Call tomorrow #home"_s);
            // Those that do not fit into the text are no pieces.
            m_field->setPieces(
                {piece(RecognizedPieceType::Date, 5, 8), piece(RecognizedPieceType::Tag, 14, 5),
                 piece(RecognizedPieceType::Tag, 18, 2), piece(RecognizedPieceType::Date, -1, 2),
                 piece(RecognizedPieceType::Date, 1, 0)});
            putCaret(*m_field, caret);
            QTest::keyClick(m_field.get(), key);
            return joined(m_field->pieces(), [](const auto &each) { return QString::number(each.location); });
        };
        QCOMPARE(locationsAfter(0, Qt::Key_X), u"6 15"_s);
        QCOMPARE(locationsAfter(1, Qt::Key_Backspace), u"4 13"_s);
        QCOMPARE(locationsAfter(7, Qt::Key_X), u"15"_s); // within the first
        QCOMPARE(locationsAfter(13, Qt::Key_X), u"5 15"_s);
        QCOMPARE(locationsAfter(17, Qt::Key_Backspace), u"5"_s); // within the second
        QCOMPARE(locationsAfter(19, Qt::Key_X), u"5 14"_s);
    }

    void marksWhatIsInViewOfAVeryLongText()
    {
        constexpr int tagCount = 2000;
        QList<RecognizedPiece> pieces{piece(RecognizedPieceType::Assignee, 0, 2)};
        for (int i = 1; i < tagCount; ++i)
            pieces.append(piece(RecognizedPieceType::Tag, i * 3, 2));
        pieces.append(piece(RecognizedPieceType::Date, tagCount * 3, 8));
        m_field->setText(u"#a "_s.repeated(tagCount) + u"tomorrow"_s);
        m_field->setPieces(pieces);
        QVERIFY(m_field->extraSelections().size() < tagCount / 2);

        QSignalSpy clicked{m_field.get(), &KWNewTaskTextField::linkClicked};
        const auto click = [this](const RecognizedPiece &piece) {
            const QPoint centre = m_field->globalBoundsOf(piece).center();
            QTest::mouseClick(m_field->viewport(), Qt::LeftButton, {},
                              m_field->viewport()->mapFromGlobal(centre));
        };
        click(pieces.last());
        putCaret(*m_field, 0);
        click(pieces.first());
        click(pieces.at(1)); // has no link
        QCOMPARE(joined(clicked, [](const auto &each) { return each.first().toString(); }),
                 uR"({"type":"date","value":""} {"type":"assignee","value":""})"_s);
    }

private:
    std::unique_ptr<KWNewTaskTextField> m_field;
};

ORVANE_TEST(KWNewTaskTextField_test)
#include "KWNewTaskTextField_test.moc"
