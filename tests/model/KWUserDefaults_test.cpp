#include "model/settings/KWUserDefaults.h"

#include "model/events/KWNotificationCenter.h"
#include "model/records/KWUserSettingsModel.h"
#include "model/settings/DataFolders.h"
#include "model/settings/KWSmartRecognitionConfiguration.h"
#include "model/settings/KWTaskDefaultConfiguration.h"
#include "support/Files.h"
#include "support/TestMain.h"

#include <QDir>
#include <QTemporaryDir>

using namespace Qt::StringLiterals;

class KWUserDefaults_test : public QObject {
    Q_OBJECT

    std::unique_ptr<QTemporaryDir> m_folder;
    std::unique_ptr<KWUserDefaults> m_defaults;

    void reopen()
    {
        m_defaults.reset();
        m_defaults = std::make_unique<KWUserDefaults>(m_folder->path());
    }

private Q_SLOTS:
    void init()
    {
        m_defaults.reset();
        m_folder = std::make_unique<QTemporaryDir>();
        reopen();
    }

    void keepsEveryKindOfValue()
    {
        QByteArray bytes;
        for (int i = 0; i < 256; ++i)
            bytes += char(i);
        m_defaults->set(Settings::mainWindowGeometry, bytes);
        m_defaults->set(Settings::newTaskDateOffset, 3);
        m_defaults->set(Settings::recognitionRemovesTag, false, u"user"_s);
        m_defaults->set(Settings::selectedNode, u"4:ü, \"b\"; =%"_s, u"user"_s);
        m_defaults->set(Settings::selectedNode, u"0:smart.all"_s, u"another"_s);
        for (const QStringList &list :
             {QStringList{u"only"_s}, QStringList{u"a, b"_s, u"ü\"\n"_s}, QStringList{}}) {
            m_defaults->set(Settings::foldedNodes, list, u"user"_s);
            reopen();
            QCOMPARE(m_defaults->value(Settings::foldedNodes, u"user"_s), list);
        }
        QCOMPARE(m_defaults->value(Settings::mainWindowGeometry), bytes);
        QCOMPARE(m_defaults->value(Settings::newTaskDateOffset), 3);
        QCOMPARE(m_defaults->value(Settings::recognitionRemovesTag, u"user"_s), false);
        QCOMPARE(m_defaults->value(Settings::selectedNode, u"user"_s), u"4:ü, \"b\"; =%"_s);
        m_defaults->remove(Settings::newTaskDateOffset);
        QCOMPARE(m_defaults->valueOr(Settings::newTaskDateOffset, 5), 5);
    }

    void keepsWhatCannotBeReadOutOfTheWay()
    {
        m_defaults.reset();
        write(m_folder->filePath(u"standard.ini"_s),
              "[General]\nnew_task_date_offset=soon\norg.orvane.crash.cout=\n");
        reopen();
        QCOMPARE(m_defaults->value(Settings::newTaskDateOffset), -1);
        QCOMPARE(m_defaults->value(Settings::crashCount), 0);
        QVERIFY(!KWTaskDefaultConfigurationManager::current(*m_defaults, {}).dateOffset);
    }

    void sharesValuesBetweenTwoInstances()
    {
        // Another path to the same files, as of another process.
        KWUserDefaults other{m_folder->path() + u"/."_s};
        m_defaults->set(Settings::theme, u"dark"_s);
        other.set(Settings::selectedNode, u"0:smart.all"_s, u"user"_s);
        for (KWUserDefaults *each : {m_defaults.get(), &other, m_defaults.get()})
            each->synchronise();
        QCOMPARE(other.value(Settings::theme), u"dark"_s);
        QCOMPARE(m_defaults->value(Settings::selectedNode, u"user"_s), u"0:smart.all"_s);
        QVERIFY(bytesOf(m_folder->filePath(u"standard.ini"_s)).contains("\ntheme="));
        QVERIFY(
            bytesOf(m_folder->filePath(u"group.ini"_s)).contains("selected_node_id_in_proejct_list_of_user"));
    }

    void carriesOlderRecognitionKeysOverOnce()
    {
        m_defaults->set(Settings::olderDateParsingType, false);
        const auto of = [this](const char *user) {
            return KWSmartRecognitionConfiguration::ofUser(QString::fromLatin1(user), *m_defaults);
        };
        const KWSmartRecognitionConfiguration carried{true, false, true};
        QCOMPARE(of("one"), carried);
        m_defaults->set(Settings::olderDateParsing, false);
        m_defaults->set(Settings::olderTagParsingType, false);
        QCOMPARE(of("two"), (KWSmartRecognitionConfiguration{false, false, false}));

        const KWSmartRecognitionConfiguration chosen{true, true, false};
        KWNotificationCenter center;
        chosen.save(u"two"_s, *m_defaults, center);
        reopen();
        QCOMPARE(of("two"), chosen);
        QCOMPARE(of("one"), carried);
    }

    void readsTheDefaultsOfNewTasks()
    {
        KWUserSettingsModel settings;
        settings.defaultReminderRules = {u"TRIGGER:-PT10M"_s, u"no trigger"_s, u"TRIGGER:-PT10M"_s};
        settings.allDayReminders = {u"TRIGGER:P0DT9H0M0S"_s};
        const auto current = [&] {
            return KWTaskDefaultConfigurationManager::current(*m_defaults, settings);
        };
        QCOMPARE(current().reminders,
                 std::set{CXAlarmTrigger::triggerWithUnit(CXAlarmTrigger::Unit::Minutes, 10)});
        QCOMPARE(current().allDayReminders, std::set{CXAlarmTrigger::onTime_AllDay()});

        for (const int none : {2, 4, -1, 1 << 16 | 5}) {
            m_defaults->set(Settings::newTaskPriority, none);
            QCOMPARE(current().priority, KWTaskPriorityNone);
        }
    }

    void locatesTheFolders()
    {
        QCOMPARE(DataFolders::locate({}).store(),
                 qEnvironmentVariable("XDG_DATA_HOME") + u"/orvane/store.sqlite"_s);
        QCOMPARE(DataFolders::locate({}).config, qEnvironmentVariable("XDG_CONFIG_HOME") + u"/orvane"_s);
        QCOMPARE(DataFolders::locate(u"rel/../here/"_s).data, QDir::currentPath() + u"/here"_s);
        qputenv("ORVANE_HOME", "/somewhere");
        QCOMPARE(DataFolders::locate({}).config, u"/somewhere/config"_s);
        QCOMPARE(DataFolders::locate(u"/else"_s).data, u"/else"_s);
        qunsetenv("ORVANE_HOME");
    }
};

ORVANE_TEST(KWUserDefaults_test)
#include "KWUserDefaults_test.moc"
