#include "gui/WindowHelp.h"

#include <QAbstractSpinBox>
#include <QApplication>
#include <QPushButton>
#include <QTest>
#include <QTimer>

void answerNextAlert(Qt::Key key, const QString &button)
{
    QTimer::singleShot(0, qApp, [key, button] {
        QWidget *alert = QApplication::activeModalWidget();
        QVERIFY(alert && QTest::qWaitForWindowActive(alert));
        QTest::keyClick(button.isEmpty() ? alert : alert->findChild<QPushButton *>(button), key);
    });
}

void verifyControlsHaveNames(const QWidget &window)
{
    for (const QWidget *each : window.findChildren<QWidget *>()) {
        const bool takesKeys = each->focusPolicy() & Qt::TabFocus;
        const bool isControl = takesKeys || qobject_cast<const QAbstractButton *>(each);
        if (!isControl || !each->isVisible() || qobject_cast<QAbstractSpinBox *>(each->parent())) continue;
        QVERIFY2(takesKeys && !each->accessibleName().isEmpty(), qPrintable(each->objectName()));
    }
}
