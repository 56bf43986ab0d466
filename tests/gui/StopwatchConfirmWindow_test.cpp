#include "views/focus/KWStopwatchConfirmWindow.h"

#include "gui/WindowHelp.h"
#include "model/events/KWNotificationCenter.h"
#include "support/TestMain.h"
#include "views/focus/KWStopwatchConfirmViewController.h"
#include "views/theme/ThemeConfigurator.h"

#include <QAbstractButton>
#include <QApplication>
#include <QLabel>
#include <QLineEdit>

using namespace Qt::StringLiterals;
using namespace std::chrono;

/// The window that has the length of a timing confirmed, by the keyboard.
class StopwatchConfirmWindow_test : public QObject {
    Q_OBJECT

    KWNotificationCenter m_center;
    std::unique_ptr<StopwatchConfirmPresenter> m_presenter;
    std::unique_ptr<KWStopwatchConfirmManager> m_manager;
    std::vector<double> m_confirmed;

    template <class Widget>
    Widget &find(const char *name)
    {
        auto *found = m_presenter->window()->findChild<Widget *>(QLatin1StringView{name});
        if (!found) qFatal("There is no %s", name);
        return *found;
    }
    void ask(double seconds)
    {
        m_manager->show(seconds, [this](double confirmed, double) { m_confirmed.push_back(confirmed); });
        QVERIFY(QTest::qWaitForWindowActive(m_presenter->window()));
    }
    void type(const char *field, const QString &text)
    {
        auto &line = find<QLineEdit>(field);
        line.setFocus();
        line.selectAll();
        if (text.isEmpty()) QTest::keyClick(&line, Qt::Key_Delete);
        QTest::keyClicks(&line, text);
    }
    void press(Qt::Key key) { QTest::keyClick(QApplication::focusWidget(), key); }
    QString text(const char *label) { return find<QLabel>(label).text(); }
    QString problem()
    {
        auto &label = find<QLabel>("stopwatchConfirmProblem");
        return label.isVisible() ? label.text() : QString{};
    }

private Q_SLOTS:
    void initTestCase() { ThemeConfigurator::shared().apply(); }
    void init()
    {
        m_confirmed.clear();
        m_presenter = std::make_unique<StopwatchConfirmPresenter>();
        m_manager = std::make_unique<KWStopwatchConfirmManager>(m_center, *m_presenter, 12h);
    }
    void cleanup() { ThemeConfigurator::shared().setDesktopTextScale(1); }

    void saysHowLongItWas_data()
    {
        QTest::addColumn<double>("seconds");
        QTest::addColumn<QString>("fields");
        QTest::addColumn<bool>("isAutoStoped");
        QTest::newRow("a second above an hour") << 3601.0 << u"1 hr 0 mins"_s << false;
        QTest::newRow("one of each") << 3719.9 << u"1 hr 1 min"_s << false;
        QTest::newRow("several") << 9000.0 << u"2 hrs 30 mins"_s << false;
        QTest::newRow("a second below the limit") << 43199.0 << u"11 hrs 59 mins"_s << false;
        QTest::newRow("the limit") << 43200.0 << u"12 hrs 0 mins"_s << true;
        QTest::newRow("accelerated") << 300.0 << u"0 hrs 5 mins"_s << false;
    }
    void saysHowLongItWas()
    {
        QFETCH(double, seconds);
        QFETCH(QString, fields);
        QFETCH(bool, isAutoStoped);
        ask(seconds);
        QCOMPARE(find<QLineEdit>("hrsTextField").text() + u' ' + text("hrsLabel") + u' ' +
                     find<QLineEdit>("minsTextField").text() + u' ' + text("minsLabel"),
                 fields);
        QCOMPARE(text("stopwatchConfirmMessage"),
                 isAutoStoped
                     ? u"Stopwatch ends automatically due to the upper limit. Please check the duration."_s
                     : u"You've been focusing for over 1 hour. Please check the duration."_s);
        press(Qt::Key_Return);
        QCOMPARE(m_confirmed, std::vector{seconds});
        QVERIFY(!m_presenter->window() && !m_manager->isConfirming());
    }

    void isShortenedByHand()
    {
        ask(7290);
        QCOMPARE(QApplication::focusWidget(), &find<QLineEdit>("hrsTextField"));
        QTest::keyClicks(QApplication::focusWidget(), u"1"_s); // it was selected
        QCOMPARE(text("hrsLabel"), u"hr"_s);
        press(Qt::Key_Tab);
        QCOMPARE(QApplication::focusWidget(), &find<QLineEdit>("minsTextField"));
        QTest::keyClicks(QApplication::focusWidget(), u"45"_s);
        QCOMPARE(m_manager->confirmedDuration(), 6300.0);
        press(Qt::Key_Tab);
        QCOMPARE(QApplication::focusWidget(), &find<QAbstractButton>("stopwatchConfirm"));
        press(Qt::Key_Space);
        QCOMPARE(m_confirmed, std::vector{6300.0});
    }

    void staysAsLongAsItWasWhenTypedAgain()
    {
        ask(7290);
        type("hrsTextField", u"1"_s);
        type("hrsTextField", u"2"_s);
        press(Qt::Key_Return);
        QCOMPARE(m_confirmed, std::vector{7290.0});
    }

    void refuses_data()
    {
        QTest::addColumn<QString>("hours");
        QTest::addColumn<QString>("minutes");
        QTest::addColumn<QString>("sentence");
        const QString exceeds =
            u"Please don't exceed the duration of this timing: 2\u00a0hrs\u00a01\u00a0min"_s;
        const QString unreadable = u"Write the hours and the minutes as whole numbers."_s;
        QTest::newRow("a minute more") << u"2"_s << u"2"_s << exceeds;
        QTest::newRow("hours more") << u"999"_s << u"0"_s << exceeds;
        QTest::newRow("more in minutes") << u"0"_s << u"122"_s << exceeds;
        QTest::newRow("words") << u"two"_s << u"0"_s << unreadable;
        QTest::newRow("parts") << u"1.5"_s << u"0"_s << unreadable;
        QTest::newRow("below nothing") << u"1"_s << u"-5"_s << unreadable;
        QTest::newRow("nothing") << u"0"_s << u"0"_s << u"A timing has at least one minute."_s;
        QTest::newRow("empty") << QString{} << QString{} << u"A timing has at least one minute."_s;
    }
    void refuses()
    {
        QFETCH(QString, hours);
        QFETCH(QString, minutes);
        QFETCH(QString, sentence);
        ask(7290);
        type("hrsTextField", hours);
        type("minsTextField", minutes);
        press(Qt::Key_Return);
        QCOMPARE(problem(), sentence);
        QVERIFY(m_confirmed.empty() && m_manager->isConfirming());
        type("hrsTextField", u"1"_s);
        type("minsTextField", u"15"_s);
        QCOMPARE(problem(), QString{});
        press(Qt::Key_Enter);
        QCOMPARE(m_confirmed, std::vector{4500.0});
    }

    void losesNothingByEscapeOrClosing()
    {
        ask(7290);
        press(Qt::Key_Escape);
        QVERIFY(m_presenter->window()->isVisible() && m_manager->isConfirming());
        m_presenter->window()->close();
        QVERIFY(!m_manager->isConfirming());
        QVERIFY(m_confirmed.empty());
        ask(3700);
        press(Qt::Key_Return);
        QCOMPARE(m_confirmed, std::vector{3700.0});
    }

    void standsOverTheKeyWindow()
    {
        QWidget key;
        key.setGeometry(60, 40, 700, 500);
        key.show();
        QVERIFY(QTest::qWaitForWindowActive(&key));
        ask(7290);
        const QPoint centre = m_presenter->window()->geometry().center();
        QVERIFY((centre - key.geometry().center()).manhattanLength() < 8);
    }

    void growsWithTheText()
    {
        ask(43200);
        const QSize usual = m_presenter->window()->size();
        m_manager->postpone();
        ThemeConfigurator::shared().setDesktopTextScale(2);
        ask(43200);
        QVERIFY(m_presenter->window()->width() > usual.width() * 3 / 2);
        auto &field = find<QLineEdit>("hrsTextField");
        QVERIFY(field.height() >= field.fontMetrics().height());
        QVERIFY(field.width() >= field.fontMetrics().horizontalAdvance(u"12"_s));
    }

    void everyControlHasAName()
    {
        ask(7290);
        verifyControlsHaveNames(*m_presenter->window());
        QCOMPARE(find<QAbstractButton>("stopwatchConfirm").text(), u"Confirm"_s);
        QVERIFY(!m_presenter->window()->windowTitle().isEmpty());
        QVERIFY(find<QWidget>("hrsBorderView").isAncestorOf(&find<QLabel>("hrsLabel")));
        QVERIFY(find<QWidget>("minsBorderView").isAncestorOf(&find<QLabel>("minsLabel")));
    }
};

ORVANE_TEST(StopwatchConfirmWindow_test)
#include "StopwatchConfirmWindow_test.moc"
