#include "gui/ClientFixture.h"
#include "gui/FilterHands.h"
#include "gui/WindowHelp.h"
#include "model/records/KWFilter.h"
#include "model/store/KWFilterService.h"
#include "support/TestMain.h"
#include "views/main/MainWindow.h"
#include "views/sidebar/KWProjectListView.h"
#include "views/sidebar/SidebarView.h"

#include <QApplication>
#include <QComboBox>
#include <QLabel>

using namespace Qt::StringLiterals;

/// Filters made and changed in their window, by keyboard.
class FilterEditor_test : public QObject {
    Q_OBJECT

    std::unique_ptr<ClientFixture> m_client;

    FilterHands hands() { return FilterHands{*m_client->window()}; }
    template <class Widget>
    Widget &find(const char *name, int index = 0)
    {
        return hands().find<Widget>(name, index);
    }
    QString textOf(const char *label)
    {
        const auto *found = hands().editor().findChild<QLabel *>(QString::fromLatin1(label));
        return found && found->isVisible() ? found->text() : QString{};
    }
    void press(Qt::Key key) { QTest::keyClick(QApplication::focusWidget(), key); }

    void editInSidebar(const QString &filterID)
    {
        KWProjectListView &tree = m_client->window()->sidebar().tree();
        QTRY_VERIFY(tree.selectNode(KWProjectListNodeType::filter, filterID));
        QTest::keyClick(&tree, Qt::Key_F2);
    }
    void open(const QString &filterID = {})
    {
        if (filterID.isEmpty())
            m_client->rooms().menu().action(MenuCommand::NewFilter).trigger();
        else
            editInSidebar(filterID);
        hands().takeKeyboard();
    }
    void addCondition() { hands().addCondition(); }
    void choose(const char *button, const QString &title) { hands().choose(button, title); }
    QList<KWFilterModel> stored() { return m_client->kit().context().models<KWFilter>({}); }

private Q_SLOTS:
    void init()
    {
        m_client = std::make_unique<ClientFixture>("2030-05-01 09:00");
        m_client->useOnThisComputer();
        for (const QString &each : {u"Bread #shop today"_s, u"Soap #shop"_s, u"Paint !high"_s})
            QVERIFY(m_client->rooms().newTasks().add(each));
    }

    void makesAFilterByKeyboard()
    {
        open();
        QTest::keyClicks(QApplication::focusWidget(), u"Shopping"_s);
        QCOMPARE(textOf("filterCount"), u"3 tasks fit"_s);

        addCondition();
        QCOMPARE(QApplication::focusWidget()->objectName(), u"dateChoices"_s);
        QCOMPARE(textOf("filterCount"), QString{});
        choose("dateChoices", u"No Date"_s);
        QCOMPARE(textOf("filterCount"), u"2 tasks fit"_s);

        addCondition();
        hands().chooseSubject(1, u"Tag"_s);
        choose("conditionChoices", u"shop"_s);
        QCOMPARE(textOf("filterCount"), u"1 task fits"_s);
        auto &isNot = find<QComboBox>("conditionIsNot", 1);
        isNot.setFocus();
        press(Qt::Key_Down);
        QTRY_COMPARE(isNot.currentText(), u"is not"_s);
        Q_EMIT isNot.activated(1);
        auto &join = find<QComboBox>("filterJoin");
        join.setFocus();
        press(Qt::Key_Down);
        QCOMPARE(textOf("filterCount"), u"2 tasks fit"_s);
        QVERIFY(m_client->rooms().newTasks().add(u"Brushes"_s)); // meanwhile
        QCOMPARE(textOf("filterCount"), u"3 tasks fit"_s);

        find<QWidget>("filterName").setFocus();
        press(Qt::Key_Return);
        QTRY_VERIFY(!hands().isOpen());
        QCOMPARE(stored().size(), 1);
        QCOMPARE(stored().first().name, u"Shopping"_s);
        QCOMPARE(stored().first().rule,
                 uR"({"any":[{"date":["none"]},{"not":{"tag":["shop"]}}],"version":1})"_s);
    }

    void saysWhatIsWrongAndKeepsIt()
    {
        open();
        press(Qt::Key_Return);
        QCOMPARE(textOf("filterMessage"), u"A filter needs a name."_s);
        QTest::keyClicks(QApplication::focusWidget(), u"Soon"_s);
        addCondition();
        choose("dateChoices", u"Days from Today"_s);
        QTest::keyClick(&find<QWidget>("firstDay"), Qt::Key_PageUp);
        QTest::keyClick(&find<QWidget>("saveFilter"), Qt::Key_Space);
        QCOMPARE(textOf("filterMessage"), u"The first day comes after the last."_s);
        QTest::keyClick(&find<QWidget>("firstDay"), Qt::Key_Down);
        hands().chooseSubject(0, u"Words"_s);
        QTest::keyClick(&find<QWidget>("saveFilter"), Qt::Key_Space);
        QCOMPARE(textOf("filterMessage"), u"Type the words to look for."_s);
        verifyControlsHaveNames(hands().editor());
        press(Qt::Key_Escape);
        QVERIFY(hands().isOpen() && textOf("filterMessage").startsWith(u"This is not saved."));
        press(Qt::Key_Escape);
        QTRY_VERIFY(!hands().isOpen());
        QVERIFY(stored().isEmpty());
    }

    // Also what its rows cannot show, and what is gone.
    void changesAFilterAndLosesNothing()
    {
        const QString rule =
            uR"({"all":[{"list":["gone"]},{"not":{"any":[{"tag":["shop"]},{"priority":[5]}]}},)"
            uR"({"date":[{"days":[0,3]},{"days":[9,9]},{"until":"2030-06-01"}]},{"assignee":["me",77]},)"
            uR"({"tag":[]},{"priority":[5,0]},{"kind":["note"]}],"version":1})"_s;
        KWFilterService filters{m_client->kit().manager(), m_client->kit().account().currentUserID()};
        const QString id = *filters.create(u"Rest"_s, *CXSmartFilter::parse(rule));
        open(id);
        press(Qt::Key_End);
        QTest::keyClicks(QApplication::focusWidget(), u"2"_s);
        press(Qt::Key_Return);
        QTRY_VERIFY(!hands().isOpen());
        QCOMPARE(stored().first().name, u"Rest2"_s);
        QVERIFY(*CXSmartFilter::parse(stored().first().rule) ==
                *CXSmartFilter::parse(QString{rule}.replace(uR"({"days":[9,9]},{"until":"2030-06-01"})"_s,
                                                            uR"({"until":"2030-06-01"},{"days":[9,9]})"_s)));
    }
};

ORVANE_TEST(FilterEditor_test)
#include "FilterEditor_test.moc"
