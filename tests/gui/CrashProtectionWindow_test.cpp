#include "views/alerts/CrashProtectionWindow.h"

#include "app/AppPorts.h"
#include "app/KWAbnormalDataCleanService.h"
#include "model/records/KWTask.h"
#include "model/store/Connection.h"
#include "model/store/StoreBackups.h"
#include "support/Answers.h"
#include "support/CaseTable.h"
#include "support/TaskBuilder.h"
#include "support/TestMain.h"
#include "views/alerts/AlertPresenter.h"

#include <QApplication>
#include <QDir>
#include <QLabel>
#include <QPushButton>
#include <QTimer>

using namespace Qt::StringLiterals;

/// The alert after crashes, over a real folder.
class CrashProtectionWindow_test : public QObject {
    Q_OBJECT

    QString m_said; // by all the dialogs

    // Presses the buttons named, each in the dialog that is up when its turn comes.
    void press(QStringList buttons)
    {
        QTimer::singleShot(0, this, [this, buttons]() mutable {
            const QString name = buttons.takeFirst();
            QWidget *dialog = QApplication::activeModalWidget();
            QVERIFY(dialog);
            for (const QLabel *each : dialog->findChildren<QLabel *>())
                m_said += each->text();
            auto *button = dialog->findChild<QPushButton *>(name);
            if (!buttons.isEmpty()) press(buttons);
            if (name == u"Escape")
                QTest::keyClick(dialog, Qt::Key_Escape);
            else if (button)
                button->click();
            else
                qFatal("There is no button %s", qUtf8Printable(name));
        });
    }

private Q_SLOTS:
    void everyChoiceDoesWhatItSays_data() { addCaseRows("gui/crash-choices.txt", 3); }
    void everyChoiceDoesWhatItSays()
    {
        QFETCH(QStringList, cells);
        StoreFixture store;
        const DataFolders folders = store.kit().folders();
        aTask("Early").savedIn(store);
        QVERIFY(StoreBackups{folders}.makeDaily(store.context().connection(), store.clock.today()));
        aTask("Late").savedIn(store);
        store.close();
        AlertPresenter alerts;
        KWAbnormalDataCleanService diagnostics{
            {folders, store.clock, alerts, absent<FileManagerPort>(), absent<MailPort>(), [] {}}};
        CrashProtectionWindow window{folders, store.clock, diagnostics};
        bool isStarted = false;
        m_said.clear();
        press(cells[0].split(u' '));
        window.runModal(u"Orvane closed"_s, u"What now?"_s, [&isStarted] { isStarted = true; });
        QCOMPARE(isStarted, cells[1] == u"starts");

        const QStringList kept = QDir{folders.data}.entryList({u"store.*-*.sqlite"_s});
        store.reopen();
        const QList<KWTaskModel> tasks = store.context().models<KWTask>({.orderBy = "title"});
        QCOMPARE(joined(tasks, &KWTaskModel::title), cells[2]);
        QCOMPARE(kept.size(), tasks.size() == 2 ? 0 : 1);
        for (const QString &each : kept)
            QVERIFY2(m_said.contains(each), qUtf8Printable(m_said));
    }
};

ORVANE_TEST(CrashProtectionWindow_test)
#include "CrashProtectionWindow_test.moc"
