#include "model/text/MarkdownText.h"

#include "support/CaseText.h"
#include "support/TestMain.h"

using namespace Qt::StringLiterals;

/// Texts of a person in Markdown.
class MarkdownText_test : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void standsAsItWasTyped_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("markdown");
        const auto row = [](const char *text, const char *markdown) {
            QTest::addRow("%s", text) << QString::fromUtf8(text) << QString::fromUtf8(markdown);
        };
        row("plain", "plain");
        row("*a* _b_ ~c~ `d` #e [f] <g> &amp; \\",
            "\\*a\\* \\_b\\_ \\~c\\~ \\`d\\` \\#e \\[f\\] \\<g\\> \\&amp; \\\\");
        row("- a", "\\- a");
        row("12. a", "12\\. a");
        row("a - b", "a - b");
        row("--- ", "\\--- ");
        row("see https://example.org/a_b?x=1&y=*2*", "see <https://example.org/a_b?x=1&y=*2*>");
        row("https://example.org/a_b, *then* http://example.org/c_d.",
            "<https://example.org/a_b>, \\*then\\* <http://example.org/c_d>.");
        row("(https://example.org/a_(b)_c)", "(<https://example.org/a_(b)_c>)");
        row("[a_b](https://example.org/c_d)", "\\[a\\_b\\](<https://example.org/c_d>)");
        row("mailto:a_b@example.org orvane://task/1_2", "<mailto:a_b@example.org> <orvane://task/1_2>");
        row("看 https://example.org/a_b。然后", "看 <https://example.org/a_b>。然后");
        row("https: //a_b xhttps://a_b", "https: //a\\_b xhttps://a\\_b");
        row("https://a_b(((", "<https://a_b>(((");
        row("https://a_b!?... mailto:...", "<https://a_b>!?... mailto:...");
    }
    void standsAsItWasTyped()
    {
        QFETCH(const QString, text);
        QTEST(MarkdownText::escaped(text), "markdown");
    }

    void takesAddressesOfAnyLength()
    {
        for (const QString &each : {u"a"_s, u"a."_s, u"a(b)"_s}) {
            const QString address = u"https://"_s + each.repeated(300'000) + u'z';
            QVERIFY2(MarkdownText::escaped(address) == u'<' + address + u'>', qPrintable(each));
        }
    }

    void isAnItemForATask()
    {
        QCOMPARE(MarkdownText::taskItem(u"a*"_s, false, false), u"- [ ] a\\*"_s);
        QCOMPARE(MarkdownText::taskItem(u"a"_s, true, true), u"- [x] ~~a~~"_s);
    }
};

ORVANE_TEST(MarkdownText_test)
#include "MarkdownText_test.moc"
