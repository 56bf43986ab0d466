#include "gui/AddFieldFixture.h"
#include "model/records/KWTag.h"
#include "model/records/KWTask.h"
#include "support/TestMain.h"
#include "views/addfield/KWNewTaskTextField.h"
#include "views/main/MainWindow.h"

#include <QLabel>

using namespace Qt::StringLiterals;

/// An add field that stays open while other things change, and what is left of it when its task is added.
class OpenField_test : public QObject {
    Q_OBJECT

    std::unique_ptr<AddFieldFixture> m_client;

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

    void oneAddIsUndoneBeforeWhatWasDoneEarlier()
    {
        const auto undo = [this] { m_client->press(Qt::Key_Z, Qt::ControlModifier); };
        m_client->add(u"Pay rent"_s);
        m_client->find<QWidget>("taskList").setFocus();
        m_client->press(Qt::Key_Delete);
        m_client->field().setFocus();
        m_client->add(u"Water the plants #balcony"_s);
        QCOMPARE(m_client->shownTitles(), QStringList{u"Water the plants"_s});
        undo();
        QTRY_COMPARE(m_client->shownTitles(), QStringList{});
        QCOMPARE(m_client->find<QLabel>("toastMessage").text(), u"Undone: Water the plants added"_s);
        QCOMPARE(m_client->kit().context().models<KWTag>({}).size(), 0);
        undo();
        QTRY_COMPARE(m_client->shownTitles(), QStringList{u"Pay rent"_s});
    }
};

ORVANE_TEST(OpenField_test)
#include "OpenField_test.moc"
