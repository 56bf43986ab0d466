#include "views/alerts/NotificationPanel.h"

#include "support/TestMain.h"
#include "views/alerts/NotificationCard.h"

#include <QAbstractButton>
#include <QAction>
#include <QGuiApplication>
#include <QLabel>
#include <QScreen>

using namespace Qt::StringLiterals;

class NotificationPanel_test : public QObject {
    Q_OBJECT

    static UserNotification message(const QString &identifier, const QString &title)
    {
        return {.identifier = identifier,
                .title = title,
                .body = u"Inbox <b>"_s,
                .actions = {{u"default"_s, u"Open"_s},
                            {u"complete"_s, u"Complete"_s},
                            {u"snooze-10"_s, u"In 10 Minutes"_s}}};
    }
    static QStringList shownTexts(const NotificationPanel &panel)
    {
        QStringList texts;
        for (const auto *card : panel.window()->findChildren<NotificationCard *>())
            for (const QLabel *each : card->findChildren<QLabel *>())
                if (each->isVisible()) texts << each->text();
        return texts;
    }
    static void press(const NotificationPanel &panel, const QString &name)
    {
        auto *button = panel.window()->findChild<QAbstractButton *>(u"notification."_s + name);
        QVERIFY(button);
        QTest::mouseClick(button, Qt::LeftButton);
    }

private Q_SLOTS:
    void showsMessagesAndGoesWithTheLast()
    {
        NotificationPanel panel;
        QStringList pressed;
        QStringList closed;
        panel.onResponse = [&](const auto &response) { pressed << response.identifier + response.action; };
        panel.onClosed = [&](const QString &identifier) { closed << identifier; };
        panel.show(message(u"1"_s, u"Call"_s));
        panel.show(message(u"2"_s, u"Write"_s));
        panel.show(message(u"1"_s, u"Call again"_s));
        QCOMPARE(shownTexts(panel),
                 QStringList({u"Write"_s, u"Inbox <b>"_s, u"Call again"_s, u"Inbox <b>"_s}));

        press(panel, u"complete"_s);
        QCOMPARE(pressed, QStringList{u"2complete"_s});
        QTRY_COMPARE(shownTexts(panel).size(), 2);
        QTRY_COMPARE(panel.window()->findChildren<NotificationCard *>().size(), 1); // the old one is gone
        press(panel, u"dismiss"_s);
        QCOMPARE(closed, QStringList{u"1"_s});
        QVERIFY(!panel.window());

        panel.show(message(u"3"_s, u"Read"_s));
        panel.withdraw(u"3"_s);
        QVERIFY(!panel.window());
    }

    void manyMessagesStayOnTheScreen()
    {
        NotificationPanel panel;
        QStringList closed;
        panel.onClosed = [&](const QString &identifier) { closed << identifier; };
        panel.onResponse = [&](const auto &response) { closed << response.action; };
        panel.show(message(u"1"_s, u"Call"_s));
        QVERIFY(!panel.window()->findChild<QWidget *>(u"notification.dismissAll"_s)->isVisible());
        const int heightOfOne = panel.window()->height();
        for (int i = 2; i <= 12; ++i)
            panel.show(message(QString::number(i), u"Call"_s));
        const QRect screen = QGuiApplication::primaryScreen()->availableGeometry();
        QVERIFY(screen.contains(panel.window()->geometry()));
        QVERIFY(panel.window()->height() > 3 * heightOfOne);

        auto *snooze = panel.window()->findChild<QAction *>(u"notification.snooze-10"_s);
        QVERIFY(snooze);
        snooze->trigger();
        QCOMPARE(closed, QStringList{u"snooze-10"_s});
        press(panel, u"dismissAll"_s);
        QCOMPARE(closed.size(), 12);
        QVERIFY(!panel.window());
    }
};

ORVANE_TEST(NotificationPanel_test)
#include "NotificationPanel_test.moc"
