#include "gui/AddFieldFixture.h"
#include "model/records/KWTag.h"
#include "model/records/KWTask.h"
#include "support/Answers.h"
#include "support/CaseTable.h"
#include "support/TestMain.h"
#include "views/addfield/KWNewTaskTextField.h"
#include "views/main/MainWindow.h"

#include <QApplication>
#include <QHelpEvent>
#include <QLabel>
#include <QToolTip>

#include <algorithm>

using namespace Qt::StringLiterals;

/// An add field that stays open while other things change, and what is left of it when its task is added.
class OpenField_test : public QObject {
    Q_OBJECT

    std::unique_ptr<AddFieldFixture> m_client;

    KWNewTaskTextField &field() { return m_client->field(); }
    QString marks() { return joined(field().pieces(), &RecognizedPiece::text); }
    // Of the mark with that text, in the viewport.
    QPoint centreOf(const QString &mark)
    {
        const auto piece = std::ranges::find(field().pieces(), mark, &RecognizedPiece::text);
        if (piece == field().pieces().end()) qFatal("no mark %s", qUtf8Printable(mark));
        return field().viewport()->mapFromGlobal(field().globalBoundsOf(*piece).center());
    }
    KWTaskModel saved()
    {
        m_client->press(Qt::Key_Return);
        const auto tasks = m_client->kit().context().models<KWTask>({.orderBy = "id DESC"});
        return tasks.isEmpty() ? KWTaskModel{} : tasks.first();
    }
    QString dayOf(const KWTaskModel &task)
    {
        if (!task.startDate) return u"none"_s;
        const std::chrono::year_month_day day{m_client->clock.zone().dayOf(*task.startDate)};
        return QString::number(unsigned(day.day()));
    }

private Q_SLOTS:
    void init() { m_client = std::make_unique<AddFieldFixture>(); }
    void cleanup() { m_client.reset(); }

    void followsTheDayAndTheDefaults()
    {
        m_client->clock.advanceTo(at("2026-11-21 23:58"));
        m_client->type(u"Water the plants"_s);
        KWTaskDefaultConfiguration defaults = m_client->kit().account().taskDefaultConfiguration();
        defaults.dateOffset = std::chrono::days{1};
        defaults.priority = KWTaskPriorityMedium;
        OrvaneKit &kit = m_client->kit();
        QVERIFY(KWTaskDefaultConfigurationManager::save(defaults, kit.account().currentUserID(),
                                                        kit.manager(), kit.defaults(), kit.center()));
        m_client->clock.advance(std::chrono::minutes{2});
        const KWTaskModel plants = saved();
        QCOMPARE(dayOf(plants), u"23"_s);
        QCOMPARE(plants.priority, KWTaskPriorityMedium);
    }

    void saysWhatMarksMeanAndLetsThemBeTakenBack_data() { addCaseRows("gui/marks.txt", 5); }
    void saysWhatMarksMeanAndLetsThemBeTakenBack()
    {
        QFETCH(QStringList, cells);
        m_client->add(u"Desk ~Home Office"_s);
        QCOMPARE(field().accessibleDescription(), field().placeholder());
        m_client->type(cells[0]);
        m_client->press(Qt::Key_Escape); // the rows that complete it
        field().setFocus();
        QCOMPARE(field().accessibleDescription(), cells[3]);
        const QPoint mark = centreOf(cells[1]);
        QHelpEvent pointing{QEvent::ToolTip, mark, field().viewport()->mapToGlobal(mark)};
        QApplication::sendEvent(field().viewport(), &pointing);
        QCOMPARE(QToolTip::text(), cells[2]);

        const QString before = marks();
        QTest::mouseClick(field().viewport(), Qt::LeftButton, {}, mark);
        QCOMPARE(marks(), cells[4] == u"-" ? QString{} : cells[4]);
        if (marks() == before) return;
        m_client->press(Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(marks(), before);
        QCOMPARE(field().text(), cells[0]);
        // Once something else was typed, Ctrl+Z is about that.
        QTest::mouseClick(field().viewport(), Qt::LeftButton, {}, centreOf(cells[1]));
        m_client->type(u" x"_s);
        m_client->press(Qt::Key_Z, Qt::ControlModifier);
        QVERIFY(marks() != before && field().text() != cells[0] + u" x"_s);
        field().selectAll();
        m_client->press(Qt::Key_Delete);
        m_client->type(cells[0]);
        QCOMPARE(marks(), before);
    }

    void oneAddIsUndoneBeforeWhatWasDoneEarlier()
    {
        const auto undo = [this] { m_client->press(Qt::Key_Z, Qt::ControlModifier); };
        m_client->add(u"Pay rent"_s);
        m_client->find<QWidget>("taskList").setFocus();
        m_client->press(Qt::Key_Delete);
        field().setFocus();
        m_client->add(u"Water the plants #balcony"_s);
        QCOMPARE(m_client->shownTitles(), QStringList{u"Water the plants"_s});
        undo();
        QTRY_COMPARE(m_client->shownTitles(), QStringList{});
        QCOMPARE(m_client->find<QLabel>("toastMessage").text(), u"Undone: Water the plants added"_s);
        QCOMPARE(m_client->kit().context().models<KWTag>({}).size(), 0);
        undo();
        QTRY_COMPARE(m_client->shownTitles(), QStringList{u"Pay rent"_s});
    }

    void whatWasDeletedInTheFieldComesBackFirst()
    {
        m_client->add(u"Pay rent"_s);
        m_client->type(u"Water"_s);
        field().selectAll();
        m_client->press(Qt::Key_Delete);
        m_client->press(Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(field().text(), u"Water"_s);
        QCOMPARE(m_client->shownTitles(), QStringList{u"Pay rent"_s});
    }
};

ORVANE_TEST(OpenField_test)
#include "OpenField_test.moc"
