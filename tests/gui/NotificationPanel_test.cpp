#include "views/alerts/NotificationPanel.h"

#include "support/TestMain.h"

#include <QLabel>
#include <QPushButton>

using namespace Qt::StringLiterals;

class NotificationPanel_test : public QObject {
    Q_OBJECT

    static UserNotification message(const QString &identifier, const QString &title)
    {
        return {.identifier = identifier,
                .title = title,
                .body = u"Inbox <b>"_s,
                .actions = {{u"default"_s, u"Open"_s}, {u"complete"_s, u"Complete"_s}}};
    }
    static QStringList shownTexts(const NotificationPanel &panel)
    {
        QStringList texts;
        for (const QLabel *each : panel.window()->findChildren<QLabel *>())
            if (each->isVisible()) texts << each->text();
        return texts;
    }
    static void press(const NotificationPanel &panel, const QString &name)
    {
        auto *button = panel.window()->findChild<QPushButton *>(u"notification."_s + name);
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
        QTRY_COMPARE(panel.window()->findChildren<QPushButton *>().size(), 3); // the old card is gone
        press(panel, u"dismiss"_s);
        QCOMPARE(closed, QStringList{u"1"_s});
        QVERIFY(!panel.window());

        panel.show(message(u"3"_s, u"Read"_s));
        panel.withdraw(u"3"_s);
        QVERIFY(!panel.window());
    }
};

ORVANE_TEST(NotificationPanel_test)
#include "NotificationPanel_test.moc"
