#include "gui/ClientFixture.h"
#include "support/CaseTable.h"
#include "support/TestMain.h"
#include "views/main/MainWindow.h"

#include <QAccessible>

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

private Q_SLOTS:
    void everyControlHasANameAndARole_data()
    {
        QTest::addColumn<QString>("list");
        for (const char *list : {"Today", "Client launch", "errand", "Habits", "Focus", "Completed", "Trash"})
            QTest::addRow("%s", list) << QString::fromLatin1(list);
    }
    void everyControlHasANameAndARole()
    {
        QFETCH(const QString, list);
        ClientFixture client;
        client.useOnThisComputer();
        for (const char *each : {"Call the venue tomorrow 5pm !high #errand ~Client launch",
                                 "Order flowers every week ~Client launch", "Buy milk today #home"}) {
            client.type(QString::fromLatin1(each));
            client.press(Qt::Key_Return);
        }
        client.openList(list);
        Walk walk;
        walk.visit(QAccessible::queryAccessibleInterface(client.window()));
        QVERIFY2(walk.controls > 10, qPrintable(QString::number(walk.controls)));
        QVERIFY2(walk.nameless.isEmpty(), qPrintable(walk.nameless.join(u'\n')));
        QVERIFY2(walk.roleless.isEmpty(), qPrintable(walk.roleless.join(u'\n')));
    }
};

ORVANE_TEST(Accessibility_test)
#include "Accessibility_test.moc"
