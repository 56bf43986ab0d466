#include "views/addfield/HandChoices.h"

#include "gui/AddFieldFixture.h"
#include "gui/WindowHelp.h"
#include "model/records/KWProject.h"
#include "model/records/KWTask.h"
#include "model/records/PriorityNames.h"
#include "support/CaseTable.h"
#include "support/TestMain.h"
#include "views/addfield/FieldPickers.h"
#include "views/addfield/KWNewTaskTextField.h"
#include "views/addfield/TaskPlace.h"
#include "views/controls/ChoicePopup.h"
#include "views/datepicker/SchedulePicker.h"
#include "views/main/MainWindow.h"
#include "views/quickadd/QuickAddWindow.h"
#include "views/statusitem/PopoverWindow.h"
#include "views/tasklist/TaskListPane.h"

#include <QApplication>
#include <QClipboard>
#include <QLineEdit>
#include <QPushButton>

using namespace Qt::StringLiterals;

/// Date, priority and list of a new task chosen by hand, in real windows with real keys.
class HandChoices_test : public QObject {
    Q_OBJECT

    std::unique_ptr<AddFieldFixture> m_client;

    KWNewTaskTextField &field() { return m_client->field(); }
    static QString shownBy(KWNewTaskTextField &field)
    {
        QStringList words;
        for (const PickerButton *each : field.pickers().buttons())
            words.append(each->hasChoice() ? each->choice().words : u"-"_s);
        return words.join(u", "_s);
    }
    QString shown() { return shownBy(field()); }
    void press(const QString &keys)
    {
        for (const QString &each : keys.split(u' ')) {
            const QKeyCombination key = QKeySequence{each}[0];
            m_client->press(key.key(), key.keyboardModifiers());
        }
    }
    // What Enter makes of the text: place, date and priority.
    QString added()
    {
        m_client->press(Qt::Key_Return);
        const QList<KWTaskModel> tasks = m_client->kit().context().models<KWTask>({.orderBy = "rowid DESC"});
        if (tasks.isEmpty()) return {};
        return placeOf(tasks.first(), m_client->kit()) + u", "_s + displayName(tasks.first().priority);
    }
    template <class Popup>
    Popup *opened(PickerButton &button)
    {
        QTest::mouseClick(&button, Qt::LeftButton);
        return qobject_cast<Popup *>(QApplication::activePopupWidget());
    }
    // Types into the popup of that button and takes the first row.
    void choose(PickerButton &button, const QString &typed)
    {
        auto *popup = opened<ChoicePopup>(button);
        QVERIFY(popup);
        auto *line = popup->findChild<QLineEdit *>();
        QTest::keyClicks(line, typed);
        QTest::keyClick(line, Qt::Key_Return);
        QTRY_VERIFY(!QApplication::activePopupWidget());
        m_client->window()->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(m_client->window()));
    }

private Q_SLOTS:
    void init() { m_client = std::make_unique<AddFieldFixture>(); }
    void cleanup() { m_client.reset(); }

    void keysChooseInPlaceOfTheText_data() { addCaseRows("gui/hand-choices.txt", 4); }
    void keysChooseInPlaceOfTheText()
    {
        QFETCH(QStringList, cells);
        m_client->add(u"Selected"_s);
        const KWTaskModel selected = m_client->kit().context().models<KWTask>({}).first();
        m_client->type(cells[0]);
        press(cells[1]);
        QCOMPARE(shown(), cells[2]);
        QCOMPARE(field().text(), cells[0]);
        QCOMPARE(added(), cells[3]);
        QCOMPARE(shown(), u"-, -, -"_s);
        // The keys are not those of the selected task here.
        QCOMPARE(m_client->kit().context().find<KWTask>(selected.sid)->model(), selected);
    }

    void popupsChooseAndGiveUp()
    {
        m_client->add(u"Desk ~Home Office"_s);
        m_client->type(u"Rent friday !high"_s);
        choose(field().pickers().priority(), u"med"_s);
        choose(field().pickers().list(), u"off"_s);
        auto *dates = opened<SchedulePicker>(field().pickers().date());
        QVERIFY(dates && !dates->findChild<QPushButton *>(u"restoreSchedule"_s));
        QTest::mouseClick(dates->findChild<QAbstractButton *>(u"pickTomorrow"_s), Qt::LeftButton);
        QCOMPARE(shown(), u"Tomorrow, Medium, Home Office"_s);
        QCOMPARE(field().accessibleDescription(), u"Home Office · Tomorrow"_s);
        choose(field().pickers().priority(), {}); // the one that holds
        QCOMPARE(shown(), u"Tomorrow, Medium, Home Office"_s);

        choose(field().pickers().priority(), u"as typed"_s);
        choose(field().pickers().list(), u"as typed"_s);
        dates = opened<SchedulePicker>(field().pickers().date());
        QTest::mouseClick(dates->findChild<QAbstractButton *>(u"restoreSchedule"_s), Qt::LeftButton);
        QCOMPARE(shown(), u"-, -, -"_s);
        QCOMPARE(added(), u"Inbox · Fri 27 Nov, High"_s);
    }

    void theDateIsLookedAtWithoutBeingChosen()
    {
        m_client->type(u"Rent friday"_s);
        m_client->press(Qt::Key_D, Qt::ControlModifier);
        QWidget *picker = QApplication::activePopupWidget();
        QVERIFY(qobject_cast<SchedulePicker *>(picker));
        QTest::mouseClick(picker->findChild<QAbstractButton *>(u"keepSchedule"_s), Qt::LeftButton);
        QCOMPARE(shown(), u"-, -, -"_s);
    }

    void notesHaveNoPriority()
    {
        OrvaneKit &kit = m_client->kit();
        KWProject &notes =
            KWProject::createProjectNamed(u"Notes"_s, kit.account().currentUserID(), kit.context());
        notes.set(&KWProjectModel::kind, KWProjectKindNote);
        QVERIFY(kit.context().save());
        m_client->type(u"Idea"_s);
        QVERIFY(field().pickers().priority().isVisible());
        choose(field().pickers().list(), u"notes"_s);
        QTRY_VERIFY(!field().pickers().priority().isVisible());
        m_client->press(Qt::Key_3, Qt::AltModifier);
        QCOMPARE(added(), u"Notes, None"_s);
    }

    void aChoiceGoesWithTheTasksThatArePasted()
    {
        m_client->press(Qt::Key_3, Qt::AltModifier);
        QApplication::clipboard()->setText(u"Milk\nBread"_s);
        m_client->press(Qt::Key_V, Qt::ControlModifier);
        answerNextAlert(Qt::Key_Return);
        const auto high = [this] {
            return m_client->kit().context().number("SELECT count(*) FROM tasks WHERE priority = 5");
        };
        QTRY_COMPARE(high(), 2);
        QCOMPARE(shown(), u"-, -, -"_s);
    }

    void theFieldBeginsAnewWhenItIsLeftEmpty()
    {
        m_client->press(Qt::Key_3, Qt::AltModifier);
        field().pickers().date().setFocus();
        QCOMPARE(shown(), u"-, High, -"_s);
        m_client->find<QWidget>("taskList").setFocus();
        QCOMPARE(shown(), u"-, -, -"_s);
        QTRY_VERIFY(!field().pickers().isVisible());
    }

    void popupsLeaveTheSmallWindowsOpen()
    {
        m_client->rooms().menu().trigger(MenuCommand::ShowPopover);
        QTRY_VERIFY(m_client->rooms().statusItem().popover());
        QWidget &popover = *m_client->rooms().statusItem().popover();
        KWNewTaskTextField &inPopover = m_client->rooms().statusItem().popover()->addField();
        QVERIFY(QTest::qWaitForWindowActive(&popover));
        m_client->rooms().quickAdd().show({}, {});
        QWidget &quickAdd = *m_client->rooms().quickAdd().window();
        KWNewTaskTextField &inQuickAdd = m_client->rooms().quickAdd().window()->field();
        for (const auto &[window, small] : {std::pair{&quickAdd, &inQuickAdd}, {&popover, &inPopover}}) {
            window->show();
            window->activateWindow();
            QVERIFY(QTest::qWaitForWindowActive(window));
            small->setFocus();
            for (PickerButton *each : small->pickers().buttons()) {
                QVERIFY(each->isVisible());
                QTest::mouseClick(each, Qt::LeftButton);
                QVERIFY(QApplication::activePopupWidget());
                QVERIFY(window->isVisible());
                QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_Escape);
                QTRY_VERIFY(!QApplication::activePopupWidget());
                QVERIFY(window->isVisible());
                window->activateWindow();
                QVERIFY(QTest::qWaitForWindowActive(window));
            }
        }
    }

    // Words where there is room for them, icons alone, fewer of them; the text has its room.
    void fitsTheField_data()
    {
        QTest::addColumn<int>("width");
        QTest::addColumn<int>("buttons");
        QTest::addColumn<bool>("isSpelledOut");
        QTest::newRow("wide") << 640 << 3 << true;
        QTest::newRow("small") << 340 << 3 << false;
        QTest::newRow("narrow") << 260 << 2 << false;
        QTest::newRow("smallest") << 200 << 0 << false;
    }
    void fitsTheField()
    {
        QFETCH(int, width);
        QFETCH(bool, isSpelledOut);
        for (const Qt::LayoutDirection direction : {Qt::LeftToRight, Qt::RightToLeft}) {
            KWNewTaskTextField alone;
            alone.setLayoutDirection(direction);
            alone.resize(width, alone.sizeHint().height());
            alone.setText(u"Rent"_s);
            alone.pickers().date().setChoice({.words = u"Tomorrow 17:00"_s});
            alone.show();
            QCoreApplication::sendPostedEvents();
            QTEST(int(std::ranges::count_if(alone.pickers().buttons(), &QWidget::isVisible)), "buttons");
            const PickerButton &date = alone.pickers().date();
            if (date.isVisible()) QCOMPARE(date.width() > 2 * date.height(), isSpelledOut);
            QVERIFY(alone.viewport()->width() >= 150);
            const QRect pickers = alone.pickers().geometry();
            QVERIFY(!pickers.intersects(alone.viewport()->geometry()));
            QCOMPARE(pickers.center().x() > alone.viewport()->geometry().center().x(),
                     direction == Qt::LeftToRight);
        }
    }

    void theKeyboardReachesThem()
    {
        m_client->type(u"Rent"_s);
        verifyControlsHaveNames(*m_client->window());
        QStringList names;
        for (int i = 0; i < 5; ++i) {
            names.append(m_client->window()->focusWidget()->objectName());
            m_client->press(Qt::Key_Tab);
        }
        QCOMPARE(names.join(u' '), u"addField pickDate pickPriority pickList taskList"_s);
        field().pickers().list().setFocus();
        m_client->type(u"x"_s); // types into nothing
        QCOMPARE(field().text(), u"Rent"_s);
        QVERIFY(field().pickers().date().toolTip().endsWith(u"(Ctrl+D)"_s));
    }
};

ORVANE_TEST(HandChoices_test)
#include "HandChoices_test.moc"
