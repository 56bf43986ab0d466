#include "gui/MainWindowHands.h"
#include "gui/WindowHelp.h"
#include "model/records/KWSmartProject.h"
#include "model/settings/KWCalendarDisplayConfigurationManager.h"
#include "support/Files.h"
#include "support/TestMain.h"
#include "views/main/MainWindow.h"
#include "views/sidebar/KWProjectListView.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>

using namespace Qt::StringLiterals;

/// Calendars subscribed to and looked after in the sidebar.
class Subscriptions_test : public QObject, MainWindowHands {
    Q_OBJECT

    QString calendars() { return rowsBelow(listSection(KWSmartProject::subcal())); }
    QModelIndex firstRow() { return treeModel().index(0, 0, listSection(KWSmartProject::subcal())); }
    QDialog *dialog() { return m_client->window()->findChild<QDialog *>(u"subscribeDialog"_s); }
    QString message() { return dialog()->findChild<QLabel *>(u"calendarMessage"_s)->text(); }
    void enter(const QString &address)
    {
        auto *field = dialog()->findChild<QLineEdit *>(u"calendarAddress"_s);
        field->selectAll();
        QTest::keyClicks(field, address);
        QTest::keyClick(field, Qt::Key_Return);
    }
    QStringList hidden()
    {
        OrvaneKit &kit = m_client->kit();
        return KWCalendarDisplayConfigurationManager{kit.manager(), kit.center(),
                                                     kit.account().currentUserID()}
            .configuration()
            .hiddenCalendars;
    }

private Q_SLOTS:
    void init() { startClient(); }
    void cleanup() { endClient(); }

    void areMadeChangedAndDeleted()
    {
        QVERIFY(!listSection(KWSmartProject::subcal()).isValid());
        m_client->rooms().menu().action(MenuCommand::NewCalendar).trigger();
        QVERIFY(dialog());
        verifyControlsHaveNames(*dialog());
        enter(u"ftp://example.org"_s);
        QVERIFY(message().contains(u"no address"_s));
        enter(u"https://example.org/a.ics"_s); // there is no network in tests
        QVERIFY(message().contains(u"not fetched"_s));
        const QString path = m_client->kit().folders().data + u"/town.ics"_s;
        write(path, "BEGIN:VCALENDAR\nX-WR-CALNAME:Town\nEND:VCALENDAR\n");
        enter(path);
        QTRY_COMPARE(calendars(), u"Town"_s);
        QTRY_VERIFY(!dialog());

        chooseInSidebar(firstRow(), u"Rename"_s);
        typeName(u"Our town"_s);
        QCOMPARE(calendars(), u"Our town"_s);
        chooseInSidebar(firstRow(), u"Green"_s);
        QVERIFY(!treeModel().nodeAt(firstRow())->color().isEmpty());
        chooseInSidebar(firstRow(), u"Show in Calendar"_s);
        QCOMPARE(hidden(), QStringList{treeModel().nodeAt(firstRow())->entityID()});
        chooseInSidebar(firstRow(), u"Show in Calendar"_s);
        QCOMPARE(hidden(), QStringList{});

        goToList(firstRow());
        m_client->press(Qt::Key_Delete);
        QVERIFY(!listSection(KWSmartProject::subcal()).isValid());
        undo();
        QCOMPARE(calendars(), u"Our town"_s);
    }

    void sayWhenTheyWereRead()
    {
        const QString path = m_client->kit().folders().data + u"/town.ics"_s;
        write(path, "BEGIN:VCALENDAR\nX-WR-CALNAME:Town\nEND:VCALENDAR\n");
        m_client->rooms().menu().action(MenuCommand::NewCalendar).trigger();
        enter(path);
        QTRY_COMPARE(calendars(), u"Town"_s);
        chooseInSidebar(listSection(KWSmartProject::subcal()), u"Subscribe to Calendar…"_s);
        QTRY_VERIFY(dialog());
        dialog()->close();
        const auto state = [this] {
            return m_client->rooms().sidebar().calendarOf(*treeModel().nodeAt(firstRow()));
        };
        m_client->clock.advance(std::chrono::hours{2});
        QVERIFY(QFile::remove(path));
        chooseInSidebar(firstRow(), u"Read Again"_s);
        QTRY_VERIFY(state()->failure.contains(u"no file"_s));
        goToList(firstRow());
        QContextMenuEvent menuKey{QContextMenuEvent::Keyboard, {}, {}};
        QApplication::sendEvent(tree().viewport(), &menuKey);
        const auto *menu = tree().findChild<QMenu *>(u"sidebarMenu"_s);
        QVERIFY(menu);
        QCOMPARE(menu->actions().first()->text(), u"Read: Today, 09:00 – "_s + state()->failure);
        QVERIFY(!menu->actions().first()->isEnabled());
        delete menu;
    }
};

ORVANE_TEST(Subscriptions_test)
#include "Subscriptions_test.moc"
