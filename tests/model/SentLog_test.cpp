#include "model/exchange/SentLog.h"

#include "support/Files.h"
#include "support/TaskBuilder.h"
#include "support/TestMain.h"

#include <QDir>

using namespace Qt::StringLiterals;

/// What of the log may leave the machine.
class SentLog_test : public QObject {
    Q_OBJECT

    std::unique_ptr<StoreFixture> m_store;
    DataFolders m_folders;

    QString sent(const QString &log)
    {
        write(m_folders.log() + u"/orvane.log"_s, log.toUtf8());
        return logToSend(m_folders);
    }

private Q_SLOTS:
    void init()
    {
        m_store = std::make_unique<StoreFixture>();
        m_folders = m_store->kit().folders();
        QVERIFY(QDir{}.mkpath(m_folders.log()));
    }

    void holdsNothingThatWasWritten_data()
    {
        QTest::addColumn<QString>("line");
        QTest::addColumn<QString>("kept");
        const auto row = [](const char *name, const QString &line, const QString &kept) {
            QTest::addRow("%s", name) << line << kept;
        };
        row("of ours", u"info app: New Day: 2030-05-01"_s, u"info app: New Day: 2030-05-01"_s);
        row("a title", u"info x: Call the venue failed"_s, u"info x: *** failed"_s);
        row("a title in a word", u"info x: Networks at work, work_2 and homework"_s,
            u"info x: Networks at ***, ***_2 and homework"_s);
        row("a title in a head", u"2030-05-01T09:00:00.000Z work work.work: work"_s,
            u"2030-05-01T09:00:00.000Z work work.work: ***"_s);
        row("a title again and again", u"work, work work; workwork."_s, u"***, *** ***; workwork."_s);
        row("a title in a title", u"info x: Call the venue again failed"_s, u"info x: *** failed"_s);
        row("a line of a note", u"info x: the code is 4711."_s, u"info x: ***."_s);
        row("the name of a list", u"info x: (Client launch)"_s, u"info x: (***)"_s);
        row("ideographs", u"info x: 读书失败"_s, u"info x: ***失败"_s);
        row("in quotation marks", u"error x: The list “Gone by now” is gone"_s,
            u"error x: The list *** is gone"_s);
        row("in straight ones", u"error x: near \"any title\": syntax"_s, u"error x: near ***: syntax"_s);
        row("a link", u"info x: orvane://add?title=Anything and more"_s, u"info x: orvane:***"_s);
        row("a mark in a quotation", u"error x: The list “A ” b” and “c” is gone"_s,
            u"error x: The list *** is gone"_s);
        row("in single ones", u"error x: no 'such thing' here, it isn't"_s,
            u"error x: no *** here, it isn't"_s);
        row("over lines", u"2030-05-01T09:00:00.000Z error x: “one\n    two” three"_s,
            u"2030-05-01T09:00:00.000Z error x: *** three"_s);
        row("the home folder", u"info x: "_s + QDir::homePath() + u"/file"_s, u"info x: ~/file"_s);
        row("a short word", u"info x: Gym"_s, u"info x: Gym"_s);
    }
    void holdsNothingThatWasWritten()
    {
        QFETCH(const QString, line);
        const QString list = m_store->makeList(u"Client launch"_s);
        aTask("Call the venue").in(list).savedIn(*m_store);
        aTask("Call the venue again").savedIn(*m_store);
        aTask("Gym").with(&KWTaskModel::content, u"By the way\n  the code is 4711\n"_s).savedIn(*m_store);
        aTask("读书").savedIn(*m_store);
        aTask("work").savedIn(*m_store);
        aTask(qUtf8Printable(QDir::home().dirName())).savedIn(*m_store); // a part of a path
        QFETCH(const QString, kept);
        QCOMPARE(sent(line + u'\n'), kept + u'\n');
    }

    void survivesAnyTitle()
    {
        for (const QString &each : {u"\x1e"_s + u"wash up"_s, u"wash up\x1e"_s, u"\x1e\x1e\x1e\x1e"_s})
            aTask(qUtf8Printable(each)).savedIn(*m_store);
        const QString line = u"2030-05-01T09:00:00.000Z info x: "_s;
        QCOMPARE(sent(line + u"\x1e"_s + u"wash up\n"_s + line + u"wash up\n"_s + line + u"end\n"_s),
                 line + u"***\n"_s + line + u"wash up\n"_s + line + u"end\n"_s);
    }

    void isTheNewestMegabyteInWholeLines()
    {
        const QString line = QString(99, u'x') + u'\n';
        write(m_folders.log() + u"/orvane.1.log"_s,
              QByteArray{"oldest line\n"} + line.toUtf8().repeated(5'000));
        const QString log = sent(line.repeated(9'999) + u"newest\n"_s);
        QVERIFY(log.toUtf8().size() <= 1'000'000);
        QVERIFY(log.endsWith(u"newest\n"_s));
        QVERIFY(log.startsWith(u"xxx"_s));
        QCOMPARE(log.count(u'\n'), 10'000);
        QVERIFY(sent(u"only\n"_s).startsWith(u"oldest line\n"_s));
    }

    void keepsTheHeadsOfLinesWhereTheStoreCannotBeRead()
    {
        m_store->close();
        write(m_folders.store(), "no store");
        QCOMPARE(
            sent(u"2030-05-01T09:00:00.000Z info x: y: z\n    w\n2030-05-02T09:00:00.000Z error a: b\n"_s),
            u"2030-05-01T09:00:00.000Z info x: ***\n2030-05-02T09:00:00.000Z error a: ***\n"_s);
        QVERIFY(QFile::remove(m_folders.store()));
        QCOMPARE(sent(u"info x: y\n"_s), u"info x: y\n"_s);
        QVERIFY(!QFile::exists(m_folders.store()));
        QVERIFY(QDir{m_folders.log()}.removeRecursively());
        QCOMPARE(logToSend(m_folders), QString{});
    }
};

ORVANE_TEST(SentLog_test)
#include "SentLog_test.moc"
