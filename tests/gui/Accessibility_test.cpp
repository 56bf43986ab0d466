#include "gui/ClientFixture.h"
#include "gui/FilterHands.h"
#include "support/CaseTable.h"
#include "support/Files.h"
#include "support/TestMain.h"
#include "views/datepicker/SchedulePicker.h"
#include "views/main/MainWindow.h"
#include "views/tasklist/TaskListPane.h"
#include "views/tasklist/TaskListView.h"

#include <QAbstractButton>
#include <QAccessible>
#include <QApplication>
#include <QDropEvent>
#include <QMimeData>
#include <QTest>
#include <QUrl>

using namespace Qt::StringLiterals;

namespace {

bool isHidden(const QAccessibleInterface &each) { return each.state().invisible || !each.isValid(); }

// What a screen reader stops at.
bool isControl(const QAccessibleInterface &each)
{
    switch (each.role()) {
    case QAccessible::Button:
    case QAccessible::ButtonMenu:
    case QAccessible::CheckBox:
    case QAccessible::RadioButton:
    case QAccessible::ComboBox:
    case QAccessible::SpinBox:
    case QAccessible::Slider:
    case QAccessible::EditableText:
    case QAccessible::List:
    case QAccessible::Tree:
    case QAccessible::Table:
    case QAccessible::Link:
        return true;
    case QAccessible::ListItem:
    case QAccessible::TreeItem:
        return each.state().selectable; // unlike the space between sections
    default:
        return each.state().focusable;
    }
}

QString pathOf(QAccessibleInterface *each)
{
    QStringList path{u"role %1 at %2"_s.arg(each->role()).arg(each->rect().y())};
    for (each = each->parent(); each && each->object(); each = each->parent())
        path.prepend(QString::fromLatin1(each->object()->metaObject()->className()) + u'#' +
                     each->object()->objectName());
    return path.join(u" / "_s);
}

struct Walk {
    int controls = 0;
    QStringList nameless;
    QStringList roleless;

    void visit(QAccessibleInterface *each)
    {
        if (!each || isHidden(*each)) return;
        if (isControl(*each)) {
            ++controls;
            if (each->text(QAccessible::Name).isEmpty()) nameless += pathOf(each);
            const auto role = each->role();
            if (role == QAccessible::NoRole || role == QAccessible::Client) roleless += pathOf(each);
        }
        for (int i = 0; i < each->childCount(); ++i)
            visit(each->child(i));
    }
};

} // namespace

/// What a screen reader meets in the main window.
class Accessibility_test : public QObject {
    Q_OBJECT

    static void open(const QString &what, ClientFixture &client)
    {
        MainMenu &menu = client.rooms().menu();
        auto &tasks = client.find<TaskListView>("taskList");
        QTRY_VERIFY(!client.shownTitles().isEmpty());
        tasks.selectTask(client.window()->listPane().model().tasks().first().sid);
        if (what == u"detail") {
            fillDetail(client);
        } else if (what == u"search") {
            menu.action(MenuCommand::Find).trigger();
            client.type(u"the"_s);
        } else if (what == u"palette") {
            menu.action(MenuCommand::OpenPalette).trigger();
        } else if (what == u"filter") {
            menu.action(MenuCommand::NewFilter).trigger();
            const FilterHands hands{*client.window()};
            hands.takeKeyboard();
            hands.addCondition();
            hands.addCondition();
            hands.chooseSubject(1, u"Words"_s);
        } else {
            menu.action(MenuCommand::SetDate).trigger();
            QTRY_VERIFY(client.window()->findChild<SchedulePicker *>());
        }
    }

    // With a part of each kind.
    static void fillDetail(ClientFixture &client)
    {
        client.window()->openDetail();
        client.find<QWidget>("addSubtask").setFocus();
        client.type(u"Ask for the price"_s);
        client.press(Qt::Key_Return);
        client.find<QAbstractButton>("addChecklistItem").click();
        client.type(u"Chairs"_s);
        client.press(Qt::Key_Return);
        const QString file = client.kit().folders().data + u"/plan.txt"_s;
        write(file, "plan");
        QMimeData files;
        files.setUrls({QUrl::fromLocalFile(file)});
        QDragEnterEvent enter{{1, 1}, Qt::CopyAction, &files, Qt::LeftButton, {}};
        QApplication::sendEvent(&client.find<QWidget>("taskDetail"), &enter);
        QDropEvent drop{{1, 1}, Qt::CopyAction, &files, Qt::LeftButton, {}};
        QApplication::sendEvent(&client.find<QWidget>("taskDetail"), &drop);
        QTRY_VERIFY(client.window()->findChild<QWidget *>(u"attachment"_s));
    }

private Q_SLOTS:
    void everyControlHasANameAndARole_data()
    {
        QTest::addColumn<QString>("list");
        QTest::addColumn<QString>("opened"); // what is opened there
        for (const char *list : {"Today", "Next 7 Days", "Calendar", "Client launch", "errand", "Habits",
                                 "Focus", "Completed", "Trash"})
            QTest::addRow("%s", list) << QString::fromLatin1(list) << QString{};
        for (const char *opened : {"detail", "search", "palette", "filter", "date"})
            QTest::addRow("%s", opened) << u"Client launch"_s << QString::fromLatin1(opened);
    }
    void everyControlHasANameAndARole()
    {
        QFETCH(const QString, list);
        QFETCH(const QString, opened);
        ClientFixture client;
        client.useOnThisComputer();
        for (const char *each : {"Call the venue tomorrow 5pm !high #errand ~Client launch",
                                 "Order flowers every week ~Client launch", "Buy milk today #home"}) {
            client.type(QString::fromLatin1(each));
            client.press(Qt::Key_Return);
        }
        client.openList(list);
        if (!opened.isEmpty()) open(opened, client);
        Walk walk;
        for (const QWidget *each : QApplication::topLevelWidgets())
            if (each->isVisible())
                walk.visit(QAccessible::queryAccessibleInterface(const_cast<QWidget *>(each)));
        QVERIFY2(walk.controls > 10, qPrintable(QString::number(walk.controls)));
        QVERIFY2(walk.nameless.isEmpty(), qPrintable(walk.nameless.join(u'\n')));
        QVERIFY2(walk.roleless.isEmpty(), qPrintable(walk.roleless.join(u'\n')));
    }
};

ORVANE_TEST(Accessibility_test)
#include "Accessibility_test.moc"
