#include "cli/Commands.h"

#include "support/CaseTable.h"
#include "support/TestMain.h"

#include <QDate>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLocale>
#include <QMap>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTextStream>

#include <algorithm>
#include <sstream>

using namespace Qt::StringLiterals;

namespace {

struct Figures {
    int right = 0;
    int wrong = 0;  ///< something else was recognised
    int missed = 0; ///< nothing was recognised where something is meant
    int fals = 0;   ///< something was recognised where nothing is meant
};

QString textOf(const QJsonValue &time, bool isAllDay, bool isEnd)
{
    const QString text = time.toString();
    if (!isAllDay) return text.left(16);
    const QDate day = QDate::fromString(text.left(10), Qt::ISODate);
    return day.addDays(isEnd ? -1 : 0).toString(Qt::ISODate);
}

QString whenOf(const QJsonValue &date)
{
    if (date.isNull()) return u"-"_s;
    const bool isAllDay = date["isAllDay"_L1].toBool();
    QString text = textOf(date["start"_L1], isAllDay, false);
    if (!date["end"_L1].isNull()) text += " to "_L1 + textOf(date["end"_L1], isAllDay, true);
    const QString rule = date["repeatRule"_L1].toString();
    if (!rule.isEmpty()) text += u' ' + rule.sliced(qstrlen("RRULE:"));
    return text;
}

QString furtherOf(const QJsonObject &answer)
{
    QStringList texts;
    if (const int priority = answer["priority"_L1].toInt(); priority != 0) texts << u"!%1"_s.arg(priority);
    for (const QJsonValue &tag : answer["tags"_L1].toArray())
        texts << u'#' + tag.toString();
    const QJsonValue date = answer["date"_L1];
    const QJsonArray reminders = date["reminders"_L1].toArray();
    if (date["isAllDay"_L1].toBool() || reminders != QJsonArray{"TRIGGER:PT0S"_L1})
        for (const QJsonValue &reminder : reminders)
            texts << reminder.toString().sliced(qstrlen("TRIGGER:"));
    if (!answer["list"_L1].isNull()) texts << u'~' + answer["list"_L1].toString();
    return texts.isEmpty() ? u"-"_s : texts.join(u' ');
}

// The rows of a table of docs/quick-add.md, without its two lines of head.
QList<QStringList> documentedRows(const QString &heading)
{
    QFile document{QStringLiteral(ORVANE_TEST_DATA "/../../docs/quick-add.md")};
    if (!document.open(QIODevice::ReadOnly)) qFatal("docs/quick-add.md cannot be read");
    const QString text = QString::fromUtf8(document.readAll());
    QList<QStringList> rows;
    for (const QString &line : text.mid(text.indexOf(heading) + 1).section("\n## "_L1, 0, 0).split(u'\n')) {
        if (!line.startsWith(u'|')) continue;
        QStringList cells = line.split(u'|').mid(1);
        cells.removeLast();
        for (QString &cell : cells)
            cell = cell.trimmed();
        rows << cells;
    }
    if (rows.size() < 3) qFatal("docs/quick-add.md has no examples");
    return rows.sliced(2);
}

QString withoutBackticks(QString cell)
{
    const qsizetype ticks = cell.startsWith("``"_L1) ? 2 : 1;
    return cell.sliced(ticks, cell.size() - 2 * ticks);
}

// As the documentation writes them.
QStringList readableCellsOf(const QJsonObject &answer)
{
    static const QMap<int, QString> priorities{{1, u"!low"_s}, {3, u"!medium"_s}, {5, u"!high"_s}};
    const QString when = whenOf(answer["date"_L1]);
    QStringList further = furtherOf(answer).split(u' ');
    if (const int priority = answer["priority"_L1].toInt(); priority != 0)
        further.first() = priorities[priority];
    const QString besides = further.join(u' ');
    static const QRegularExpression timeMark{u"(?<=\\d)T(?=\\d)"_s};
    return {answer["title"_L1].toString(),
            when == "-"_L1 ? QString{} : QString{when}.replace(timeMark, u" "_s),
            besides == "-"_L1 ? QString{} : besides};
}

QStringList cellsOf(const QString &typed, const QJsonObject &answer)
{
    const QString title = answer["title"_L1].toString();
    return {typed, title == typed ? u"="_s : title, whenOf(answer["date"_L1]), furtherOf(answer)};
}

} // namespace

/// What `orvane add --dry-run --stdin` makes of titles as people type them.
class TitleCorpus_test : public QObject {
    Q_OBJECT

    QTemporaryDir m_home;

    QString orvane(const QStringList &command, const std::string &input = {})
    {
        const auto invocation = Invocation::parse(QStringList{u"--home"_s, m_home.path()} + command);
        if (!invocation) qFatal("%s", qUtf8Printable(invocation.error().sentence));
        QString answer;
        std::istringstream in{input};
        QTextStream out{&answer};
        QTextStream err{stderr};
        if (runCommand(*invocation, {in, out, err}) != ExitStatus::Done) qFatal("the command failed");
        out.flush();
        return answer;
    }

    QList<QJsonObject> answersTo(const QList<CaseRow> &titles)
    {
        std::string lines;
        for (const CaseRow &each : titles)
            lines += "2026-11-18T10:00:00\t" + each.cells.first().toStdString() + '\n';
        QList<QJsonObject> answers;
        const QString printed =
            orvane({u"add"_s, u"--dry-run"_s, u"--stdin"_s, u"--zone"_s, u"America/New_York"_s}, lines);
        for (const QString &line : printed.split(u'\n', Qt::SkipEmptyParts))
            answers << QJsonDocument::fromJson(line.toUtf8()).object();
        return answers;
    }

private Q_SLOTS:
    void initTestCase()
    {
        for (const char *list : {"Groceries", "Home Office", "Work", "工作"})
            orvane({u"add"_s, u"A task ~"_s + QString::fromUtf8(list)});
    }

    void understandsTitles_data()
    {
        QTest::addColumn<QLocale>("locale");
        QTest::newRow("english") << QLocale{QLocale::English, QLocale::UnitedStates};
        QTest::newRow("chinese") << QLocale{QLocale::Chinese, QLocale::China};
    }
    void understandsTitles()
    {
        QFETCH(const QLocale, locale);
        QLocale::setDefault(locale);
        const auto restore = qScopeGuard([] { QLocale::setDefault(QLocale::c()); });

        const QByteArray file = QByteArray{"titles/"} + QTest::currentDataTag() + ".txt";
        const QList<CaseRow> titles = readCases(file, 4);
        const QList<QJsonObject> answers = answersTo(titles);
        QCOMPARE(answers.size(), titles.size());

        const QStringList nothing{u"="_s, u"-"_s, u"-"_s};
        Figures figures;
        for (qsizetype i = 0; i < titles.size(); ++i) {
            const QStringList expected = titles[i].cells;
            const QStringList found = cellsOf(expected.first(), answers[i]);
            if (found == expected) {
                ++figures.right;
                continue;
            }
            ++(expected.sliced(1) == nothing ? figures.fals
               : found.sliced(1) == nothing  ? figures.missed
                                             : figures.wrong);
            qInfo("%s: %s\n    read as %s", titles[i].where.constData(),
                  qUtf8Printable(expected.join(" | "_L1)), qUtf8Printable(found.sliced(1).join(" | "_L1)));
        }
        qInfo("%s: %d right, %d wrong, %d missed, %d false", QTest::currentDataTag(), figures.right,
              figures.wrong, figures.missed, figures.fals);
        QCOMPARE(figures.right, titles.size());
    }

    void doesWhatTheExamplesSay()
    {
        const auto restore = qScopeGuard([] { QLocale::setDefault(QLocale::c()); });
        for (const QStringList &row : documentedRows(u"\n## Examples"_s)) {
            const QString typed = withoutBackticks(row.first());
            const bool isChinese =
                std::ranges::any_of(typed, [](QChar unit) { return unit.script() == QChar::Script_Han; });
            QLocale::setDefault(isChinese ? QLocale{QLocale::Chinese, QLocale::China}
                                          : QLocale{QLocale::English, QLocale::UnitedStates});
            const QList<QJsonObject> answers = answersTo({{{typed}, {}}});
            QCOMPARE(answers.size(), 1);
            QCOMPARE(readableCellsOf(answers.first()), row.sliced(1));
        }
    }
};

ORVANE_TEST(TitleCorpus_test)
#include "TitleCorpus_test.moc"
