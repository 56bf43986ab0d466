#include "platform/ScriptingFixture.h"

#include "cli/Commands.h"
#include "support/Files.h"
#include "support/TaskBuilder.h"
#include "support/TestMain.h"

#include <QProcess>
#include <QRegularExpression>
#include <QTextStream>

#include <sstream>

using namespace Qt::StringLiterals;

namespace {

struct Example {
    QString typed;
    QString printed; ///< on one line: the document breaks lines and indents them
};

QList<Example> documentedExamples()
{
    const QString text =
        QString::fromUtf8(bytesOf(QStringLiteral(ORVANE_TEST_DATA "/../../docs/scripting.md")));
    QList<Example> examples;
    static const QRegularExpression block{u"^```\\n\\$ ((?:.*\\\\\\n)*.*)\\n([^`]*?)\\n?^```$"_s,
                                          QRegularExpression::MultilineOption};
    static const QRegularExpression lineBreak{u"\\n *"_s};
    static const QRegularExpression continued{u"\\\\\\n *"_s};
    for (auto found = block.globalMatch(text); found.hasNext();) {
        const QRegularExpressionMatch match = found.next();
        examples.append(
            {match.captured(1).replace(continued, u" "_s), match.captured(2).replace(lineBreak, {})});
    }
    return examples;
}

// Ids hold a random part.
QString withoutIDs(QString text)
{
    static const QRegularExpression id{u"[0-9a-f]{24}"_s};
    return text.replace(id, u"ID"_s);
}

// "{'from': <'launcher'>}"
QVariantMap optionsOf(const QString &text)
{
    QVariantMap options;
    static const QRegularExpression pair{u"'(\\w+)': <'([^']*)'>"_s};
    for (auto found = pair.globalMatch(text); found.hasNext();) {
        const QRegularExpressionMatch match = found.next();
        options.insert(match.captured(1), match.captured(2));
    }
    return options;
}

} // namespace

/// What docs/scripting.md shows is what is printed.
class ScriptingExamples_test : public QObject {
    Q_OBJECT

    ScriptingFixture m_client;

    // As gdbus prints it.
    QString byGdbus(const QStringList &words)
    {
        const qsizetype method = words.indexOf(u"--method"_s) + 1;
        const QString member = words.at(method).section(u'.', -1);
        QVariantList arguments{words.begin() + method + 1, words.end()};
        arguments.last() = optionsOf(arguments.last().toString());
        const QDBusMessage reply = m_client.call(words.value(words.indexOf(u"--object-path"_s) + 1),
                                                 words.at(method).section(u'.', 0, -2), member, arguments);
        if (reply.type() == QDBusMessage::ErrorMessage)
            return u"Error: GDBus.Error:%1: %2"_s.arg(reply.errorName(), reply.errorMessage());
        return u"('%1',)"_s.arg(reply.arguments().value(0).toString());
    }
    // busctl --user call NAME PATH INTERFACE MEMBER "ia{sv}" NUMBER 0
    QString byBusctl(const QStringList &words)
    {
        const QDBusMessage reply = m_client.call(words.value(4), words.value(5), words.value(6),
                                                 {words.value(8).toInt(), QVariantMap{}});
        return u"s \"%1\""_s.arg(reply.arguments().value(0).toString());
    }
    QString byOrvane(const QStringList &words)
    {
        QStringList command = QStringList{u"--home"_s, m_client.kit().folders().data} + words.sliced(1);
        const bool isOfADay = words.at(1) == u"today" || words.at(1) == u"next7days";
        if (isOfADay && !command.contains(u"--now"_s)) command << u"--now"_s << u"2030-05-01T09:00"_s;
        const auto invocation = Invocation::parse(command);
        if (!invocation) qFatal("%s", qUtf8Printable(invocation.error().sentence));
        QString printed;
        std::istringstream in;
        QTextStream out{&printed};
        runCommand(*invocation, {in, out, out});
        out.flush();
        return printed.trimmed();
    }
    QString print(const QString &typed)
    {
        const QStringList words = QProcess::splitCommand(typed);
        if (words.first() == u"gdbus") return byGdbus(words);
        return words.first() == u"busctl" ? byBusctl(words) : byOrvane(words);
    }

private Q_SLOTS:
    void initTestCase()
    {
        StoreFixture &store = m_client.store;
        const QString list = store.makeList(u"Client launch"_s);
        aTask("Pay rent")
            .dueOn("2030-04-29")
            .ordered(1)
            .with(&KWTaskModel::repeatRule, u"RRULE:FREQ=MONTHLY"_s)
            .savedIn(store);
        aTask("Water the plants")
            .startingAt("2030-05-01 18:00")
            .tagged("home")
            .with(&KWTaskModel::sid, u"70d66a6e0b8f1c2d3e4f5a6b"_s)
            .savedIn(store);
        aTask("Call the venue").dueOn("2030-05-03").prioritized(KWTaskPriorityHigh).in(list).savedIn(store);
    }

    void printsWhatIsShown_data()
    {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QString>("printed");
        const QList<Example> examples = documentedExamples();
        if (examples.size() < 10) qFatal("docs/scripting.md has no examples");
        for (const Example &each : examples)
            QTest::newRow(qUtf8Printable(each.typed)) << each.typed << each.printed;
    }
    void printsWhatIsShown()
    {
        QFETCH(const QString, typed);
        QFETCH(const QString, printed);
        const QString actual = print(typed);
        if (withoutIDs(actual) != withoutIDs(printed)) qInfo("it prints %s", qUtf8Printable(actual));
        QVERIFY(withoutIDs(actual) == withoutIDs(printed));
    }
};

ORVANE_TEST(ScriptingExamples_test)
#include "ScriptingExamples_test.moc"
