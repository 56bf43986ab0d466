#include "focus/FocusReader.h"
#include "gui/FocusHands.h"
#include "gui/WindowHelp.h"
#include "model/records/KWSmartProject.h"
#include "model/settings/KWPomoSettingsManager.h"
#include "model/store/KWTaskEditor.h"
#include "support/TestMain.h"
#include "views/focus/FocusPane.h"
#include "views/focus/FocusPanel.h"
#include "views/main/MainWindow.h"
#include "views/taskdetail/DetailFooter.h"

#include <QAbstractButton>
#include <QApplication>
#include <QMenu>
#include <QPaintEvent>
#include <QScreen>
#include <QSpinBox>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

/// What is painted of a widget.
class PaintRecorder : public QObject {
public:
    explicit PaintRecorder(QWidget &widget) { widget.installEventFilter(this); }
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() == QEvent::Paint) region |= static_cast<QPaintEvent *>(event)->region();
        return QObject::eventFilter(watched, event);
    }
    qint64 area() const
    {
        qint64 sum = 0;
        for (const QRect &each : region)
            sum += qint64(each.width()) * each.height();
        return sum;
    }

    QRegion region;
};

/// What the window shows of it now, without painting it again.
QImage shownOf(const QWidget &widget)
{
    const QWidget &window = *widget.window();
    const QImage whole = window.screen()->grabWindow(window.winId()).toImage();
    return whole.copy({widget.mapTo(&window, QPoint{}), widget.size()});
}

/// How many pixels are of another colour in the other picture, but for what the smoothing of edges does.
int pixelsApart(const QImage &one, const QImage &other)
{
    int apart = one.size() == other.size() ? 0 : one.width() * one.height();
    for (int y = 0; y < one.height() && y < other.height(); ++y)
        for (int x = 0; x < one.width() && x < other.width(); ++x)
            apart += std::abs(qGray(one.pixel(x, y)) - qGray(other.pixel(x, y))) > 6;
    return apart;
}

} // namespace

/// The session of focus on its page, by keyboard and mouse, on a clock that the test sets.
class FocusPage_test : public QObject, private FocusHands {
    Q_OBJECT

    void setUp(const std::function<void(KWPomoSettingsModel &)> &edit)
    {
        OrvaneKit &kit = m_client->kit();
        KWPomoSettingsManager manager{kit.manager(), kit.center(), kit.account().currentUserID()};
        KWPomoSettingsModel settings = manager.settings();
        edit(settings);
        QVERIFY(manager.save(settings));
    }
    bool isInSidebar() { return listSection(KWSmartProject::focus()).isValid(); }

private Q_SLOTS:
    void init() { openFocus(); }
    void cleanup() { endClient(); }

    void spaceStartsPausesAndGoesOn()
    {
        QCOMPARE(time(), u"25:00"_s);
        QCOMPARE(commands(), u"Start"_s);
        QVERIFY(m_client->window()->focusPane().focusWidget());
        m_client->press(Qt::Key_Space);
        QCOMPARE(commands(), u"Pause Stop"_s);
        wait(10s);
        QCOMPARE(time(), u"24:50"_s);
        m_client->press(Qt::Key_Space);
        QCOMPARE(commands(), u"Resume Stop"_s);
        wait(1min);
        QCOMPARE(time(), u"24:50"_s);
        m_client->press(Qt::Key_Escape);
        m_client->press(Qt::Key_Space);
        wait(1s);
        QCOMPARE(time(), u"24:49"_s);
    }

    void aPomoIsFollowedByItsBreakAndTheNextPomo()
    {
        focusOn(u"plants"_s);
        press(u"Start"_s);
        wait(25min);
        QCOMPARE(commands(), u"Relax Skip Break Exit"_s);
        QTRY_COMPARE(records(), u"Water the plants 09:00 – 09:25"_s);
        QCOMPARE(m_client->find<QWidget>("focusPomosToday").accessibleName(), u"1 Pomo"_s);
        press(u"Relax"_s);
        wait(10s);
        QCOMPARE(time(), u"04:50"_s);
        QCOMPARE(commands(), u"Skip Break Exit"_s);
        press(u"Skip Break"_s);
        QCOMPARE(commands(), u"Pause Stop"_s);
        QCOMPARE(time(), u"25:00"_s);
        QCOMPARE(target(), u"Water the plants"_s);
    }

    void stoppingAsksAfterHalfAMinute()
    {
        press(u"Start"_s);
        wait(30s);
        press(u"Stop"_s);
        QCOMPARE(commands(), u"Start"_s);

        press(u"Start"_s);
        wait(31s);
        press(u"Stop"_s);
        answerNextAlert(Qt::Key_Escape);
        QTRY_VERIFY(!QApplication::activeModalWidget());
        QTRY_VERIFY(!m_client->rooms().focus().pomo().isConfirmingToExit());
        QCOMPARE(commands(), u"Pause Stop"_s);
        press(u"Stop"_s);
        answerNextAlert(Qt::Key_Return);
        QTRY_COMPARE(commands(), u"Start"_s);
        QCOMPARE(time(), u"25:00"_s);
    }

    void theTargetIsPickedByTheKeyboardAndSwitched()
    {
        QCOMPARE(target(), u"Choose what to focus on"_s);
        focusOn(u"PLANTS"_s);
        QCOMPARE(target(), u"Water the plants"_s);
        press(u"Start"_s);
        wait(10min);
        focusOn(u"photos"_s);
        QCOMPARE(target(), u"Sort the photos"_s);
        wait(15min);
        QTRY_COMPARE(records(), u"Sort the photos and 1 more 09:00 – 09:25"_s);
        focusOn(u"nothing"_s);
        QCOMPARE(target(), u"Choose what to focus on"_s);
        focusOn(u"there is no such task"_s);
        QCOMPARE(target(), u"Choose what to focus on"_s);
    }

    void theTargetFollowsItsTask()
    {
        focusOn(u"plants"_s);
        const QString id = m_client->rooms().focus().manager().target().entityID;
        KWTaskEditor editor{m_client->kit().manager()};
        QVERIFY(editor.setTitle(id, u"Water the trees"_s));
        QTRY_COMPARE(target(), u"Water the trees"_s);
    }

    void oneModeMakesWayForTheOtherAndSaysSoBefore()
    {
        press(u"Start"_s);
        wait(5min);
        choose(u"Stopwatch"_s);
        QCOMPARE(notice(), u"A Pomo is on. Starting the stopwatch pauses it."_s);
        press(u"Start"_s);
        QCOMPARE(notice(), QString{});
        wait(2min);
        QCOMPARE(time(), u"02:00"_s);
        choose(u"Pomo"_s);
        QCOMPARE(time(), u"20:00"_s);
        QVERIFY(notice().contains(u"stops it and keeps its time"_s));
        press(u"Resume"_s);
        QTRY_COMPARE(records(), u"Nothing in particular Stopwatch, 2m"_s);
        wait(1s);
        QCOMPARE(time(), u"19:59"_s);
    }

    void arrowsChooseTheMode()
    {
        const auto segments = m_client->find<QWidget>("focusModes").findChildren<QAbstractButton *>();
        segments.first()->setFocus();
        QTest::keyClick(segments.first(), Qt::Key_Right);
        QVERIFY(segments.last()->isChecked());
        QCOMPARE(time(), u"00:00"_s);
        QTest::keyClick(segments.last(), Qt::Key_Left);
        QCOMPARE(time(), u"25:00"_s);
    }

    void aSecondPaintsLittleAndAHiddenPageNothing()
    {
        press(u"Start"_s);
        wait(1min);
        QCoreApplication::processEvents();
        PaintRecorder ringPaints{ring()};
        PaintRecorder panePaints{m_client->window()->focusPane()};
        wait(1s);
        QCoreApplication::processEvents();
        const qint64 whole = qint64(ring().width()) * ring().height();
        QVERIFY(ringPaints.area() > 0);
        QVERIFY2(ringPaints.area() < whole / 4, qPrintable(QString::number(ringPaints.area())));
        QVERIFY(panePaints.area() <= ringPaints.area());

        m_client->openList(u"Today"_s);
        QCoreApplication::processEvents();
        ringPaints.region = {};
        wait(10s);
        QCoreApplication::processEvents();
        QVERIFY(ringPaints.region.isEmpty());
        m_client->rooms().menu().action(MenuCommand::OpenFocus).trigger();
        QCOMPARE(time(), u"23:49"_s);
    }

    void aSecondLeavesWhatAWholePaintingShows()
    {
        for (const auto length : {1500s, 3600s}) {
            setUp([&](KWPomoSettingsModel &settings) { settings.pomoDuration = int(length / 1min); });
            press(u"Start"_s);
            for (const auto gone : {1s, 9s, length / 2, length / 2 - 15s}) {
                wait(gone);
                QCoreApplication::processEvents();
                const QImage ticked = shownOf(ring());
                ring().repaint();
                const int apart = pixelsApart(ticked, shownOf(ring()));
                QVERIFY2(apart < 20, qPrintable(QString::number(apart)));
            }
            press(u"Stop"_s);
            answerNextAlert(Qt::Key_Return);
            QTRY_COMPARE(commands(), u"Start"_s);
        }
    }

    void tabComesToEveryControl()
    {
        m_client->press(Qt::Key_Tab);
        const QWidget *first = QApplication::focusWidget();
        QStringList stops;
        do {
            stops << QApplication::focusWidget()->objectName();
            m_client->press(Qt::Key_Tab);
        } while (QApplication::focusWidget() != first && stops.size() < 100);
        for (const QString &each : {u"focusTarget"_s, u"focusWindowButton"_s, u"focusSettings"_s,
                                    u"focusCommand1"_s, u"addFocusRecord"_s})
            QVERIFY2(stops.contains(each), qUtf8Printable(each + u" in "_s + stops.join(u' ')));
        QStringList back;
        for (qsizetype i = 0; i < stops.size(); ++i) {
            m_client->press(Qt::Key_Backtab, Qt::ShiftModifier);
            back.prepend(QApplication::focusWidget()->objectName());
        }
        QCOMPARE(back, stops);
    }

    void anEstimateIsTypedAndTakenBack()
    {
        m_client->openList(u"Today"_s);
        goTo(taskRow(u"Water the plants"_s));
        auto &footer = m_client->find<DetailFooter>("detailFooter");
        const QString id = idOf(u"Water the plants"_s);
        const auto estimate = [&] { return FocusReader::readTask(id, m_client->kit().context()).value(); };
        Q_EMIT footer.estimateRequested({});
        typeInto(over<QSpinBox>("focusEstimate", "estimatedPomos"), u"3"_s);
        typeInto(over<QSpinBox>("focusEstimate", "estimatedMinutes"), u"40"_s);
        QTest::keyClick(&over<QSpinBox>("focusEstimate", "estimatedMinutes"), Qt::Key_Return);
        QTRY_COMPARE(estimate().estimatedPomos, 3);
        QCOMPARE(estimate().estimated, 40min);
        QTRY_COMPARE(m_client->find<QAbstractButton>("detailFocus").text(), u"0m of 40m, 0 of 3 Pomos"_s);
        takeBack();
        QTRY_COMPARE(estimate(), FocusOfTask{});
    }

    void theMenuOfAHabitStartsOnIt()
    {
        m_client->rooms().menu().action(MenuCommand::OpenHabit).trigger();
        makeHabit(u"Read"_s);
        const auto starts = [this] {
            m_client->rooms().menu().action(MenuCommand::OpenHabit).trigger();
            goToHabit(u"Read"_s);
            for (const QAction *each : habitMenu().actions())
                if (each->menu() && each->text() == u"Start Focus"_s) return each->menu()->actions();
            return QList<QAction *>{};
        };
        QCOMPARE(starts().size(), 2);
        starts().first()->trigger();
        QCOMPARE(target(), u"Read"_s);
        QVERIFY(m_client->rooms().focus().manager().isPomoFocusing());
        setUp([](KWPomoSettingsModel &settings) { settings.isPomoEnabled = false; });
        QVERIFY(starts().isEmpty());
    }

    void switchedOffThePageGoes()
    {
        QVERIFY(isInSidebar());
        setUp([](KWPomoSettingsModel &settings) { settings.isPomoEnabled = false; });
        QTRY_VERIFY(!isInSidebar());
        QTRY_VERIFY(!m_client->rooms().menu().action(MenuCommand::OpenFocus).isEnabled());
        setUp([](KWPomoSettingsModel &settings) { settings.isPomoEnabled = true; });
        QTRY_VERIFY(isInSidebar());
    }

    void theMenuStartsOnATask()
    {
        m_client->openList(u"Today"_s);
        goTo(taskRow(u"Water the plants"_s));
        m_client->rooms().menu().action(MenuCommand::StartPomoOnTask).trigger();
        QVERIFY(m_client->rooms().focus().manager().isPomoFocusing());
        QCOMPARE(target(), u"Water the plants"_s);
        m_client->rooms().menu().action(MenuCommand::StartStopwatchOnTask).trigger();
        QVERIFY(m_client->rooms().focus().manager().isStopWatchFocusing());
    }

    void aLinkOpensThePage()
    {
        m_client->openList(u"Today"_s);
        m_client->rooms().application().open({.links = {u"orvane://list/focus"_s}});
        QTRY_VERIFY(m_client->window()->isFocusShown());
    }
};

ORVANE_TEST(FocusPage_test)
#include "FocusPage_test.moc"
