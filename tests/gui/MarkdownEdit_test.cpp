#include "views/markdown/MarkdownEdit.h"

#include "support/ManualClock.h"
#include "support/TestMain.h"
#include "views/markdown/MarkdownHighlighter.h"

#include <QTextBlock>
#include <QTextLayout>

using namespace Qt::StringLiterals;

namespace {

// How each character of the line looks: B bold, I italic, S struck, C code, U underlined, q a quiet mark.
QString lookOf(const QString &text, int line = 0)
{
    QTextDocument document{text};
    MarkdownHighlighter highlighter{&document};
    highlighter.rehighlight();
    const QTextBlock block = document.findBlockByNumber(line);
    QString look(block.length() - 1, u'.');
    for (const QTextLayout::FormatRange &each : block.layout()->formats()) {
        const QTextCharFormat &format = each.format;
        QString letter = format.fontWeight() > QFont::Normal ? u"B"_s : QString{};
        if (format.fontItalic()) letter += u'I';
        if (format.fontStrikeOut()) letter += u'S';
        if (format.hasProperty(QTextFormat::BackgroundBrush)) letter += u'C';
        if (format.fontUnderline()) letter += u'U';
        const QChar shown = letter.size() > 1 ? u'X' : letter.isEmpty() ? u'q' : letter.front();
        for (int i = each.start; i < each.start + each.length; ++i)
            look[i] = shown;
    }
    return look;
}

} // namespace

class MarkdownEdit_test : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void showsMarkdown_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("look");
        const auto add = [](const char *name, const QString &text, const QString &look) {
            QTest::addRow("%s", name) << text << look;
        };
        add("plain", u"2 * 3 * 4 and snake_case_word"_s, u"............................."_s);
        add("bold", u"a **b** c"_s, u"..BBBBB.."_s);
        add("italic", u"*a* _b_"_s, u"III.III"_s);
        add("both", u"***a***"_s, u"XXXXXXX"_s);
        add("struck out", u"~~a~~ ~b~"_s, u"SSSSS...."_s);
        add("code", u"`**a**` b"_s, u"CCCCCCC.."_s);
        add("heading", u"## a"_s, u"BBBB"_s);
        add("no heading", u"#tag"_s, u"...."_s);
        add("list", u"- a"_s, u"qq."_s);
        add("done", u"- [x] a"_s, u"qqqqqqS"_s);
        add("quote", u"> a"_s, u"qII"_s);
        add("link", u"[a](b)"_s, u"qUqqqq"_s);
        add("address", u"see https://a.b/c_d_e."_s, u"....UUUUUUUUUUUUUUUUU."_s);
    }
    void showsMarkdown()
    {
        QFETCH(QString, text);
        QTEST(lookOf(text), "look");
    }

    void showsCodeOverSeveralLines()
    {
        const QString text = u"```\n**a**\n```\n**b**"_s;
        QCOMPARE(lookOf(text, 1), u"CCCCC"_s);
        QCOMPARE(lookOf(text, 3), u"BBBBB"_s);
    }

    void findsTheLinkUnderTheMouse()
    {
        const QString line = u"see [here](https://a.b), mailto:c@d.e."_s;
        QCOMPARE(MarkdownHighlighter::linkAt(line, 6), u"https://a.b"_s);
        QCOMPARE(MarkdownHighlighter::linkAt(line, 26), u"mailto:c@d.e"_s);
        QVERIFY(MarkdownHighlighter::linkAt(line, 1).isEmpty());
    }

    void marksAndUnmarksTheSelection()
    {
        ManualClock clock{"2026-11-21 09:00", "UTC"};
        MarkdownEdit edit{clock};
        edit.startWith(u"a cake b"_s);
        QTextCursor caret = edit.textCursor();
        caret.setPosition(2);
        caret.setPosition(6, QTextCursor::KeepAnchor);
        edit.setTextCursor(caret);
        const auto press = [&edit](Qt::Key key) {
            QTest::keyClick(&edit, key, Qt::ControlModifier);
            return edit.text();
        };
        QCOMPARE(press(Qt::Key_B), u"a **cake** b"_s);
        QCOMPARE(press(Qt::Key_I), u"a ***cake*** b"_s);
        QCOMPARE(press(Qt::Key_B), u"a *cake* b"_s);
        QCOMPARE(press(Qt::Key_I), u"a cake b"_s);
        QCOMPARE(edit.textCursor().selectedText(), u"cake"_s);
    }
};

ORVANE_TEST(MarkdownEdit_test)
#include "MarkdownEdit_test.moc"
