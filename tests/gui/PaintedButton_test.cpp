#include "views/controls/PaintedButton.h"

#include "support/TestMain.h"
#include "views/controls/AddButton.h"
#include "views/controls/CheckBox.h"
#include "views/controls/IconButton.h"
#include "views/controls/RowButton.h"
#include "views/controls/Switch.h"
#include "views/controls/TextButton.h"
#include "views/menu/MenuButton.h"
#include "views/taskdetail/DateButton.h"
#include "views/taskdetail/ListButton.h"
#include "views/taskdetail/TagPill.h"
#include "views/toast/Toast.h"

#include <QLineEdit>
#include <QSignalSpy>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

using Make = std::function<PaintedButton *(QWidget &)>;
Q_DECLARE_METATYPE(Make)

/// What holds for every button that paints itself.
class PaintedButton_test : public QObject {
    Q_OBJECT

    std::unique_ptr<QWidget> m_window;
    QLineEdit *m_before = nullptr;
    PaintedButton *m_button = nullptr;

    QImage picture() const { return m_button->grab().toImage(); }
    static void addButtons()
    {
        QTest::addColumn<Make>("make");
        const auto row = [](const char *name, const Make &make) { QTest::newRow(name) << make; };
        row("AddButton", [](QWidget &in) { return new AddButton{u"Add"_s, &in}; });
        row("CheckBox", [](QWidget &in) { return new CheckBox{&in}; });
        row("IconButton", [](QWidget &in) { return new IconButton{Icon::More, u"More"_s, &in}; });
        row("RowButton", [](QWidget &in) { return new RowButton{&in}; });
        row("Switch", [](QWidget &in) { return new Switch{&in}; });
        row("TextButton", [](QWidget &in) { return new TextButton{u"Do"_s, TextButton::Opens::Menu, &in}; });
        row("MenuButton", [](QWidget &in) { return new MenuButton{&in}; });
        row("DateButton", [](QWidget &in) { return new DateButton{&in}; });
        row("ListButton", [](QWidget &in) { return new ListButton{&in}; });
        row("TagPill", [](QWidget &in) { return new TagPill{u"errand"_s, u"errand"_s, &in}; });
        row("toast", [](QWidget &in) {
            auto *toast = new Toast{in};
            toast->showMessage(u"Deleted"_s, u"Undo"_s);
            return qobject_cast<PaintedButton *>(&toast->actionButton());
        });
    }
    void show(const Make &make)
    {
        m_window = std::make_unique<QWidget>();
        m_window->resize(400, 200);
        auto *column = new QVBoxLayout{m_window.get()};
        column->addWidget(m_before = new QLineEdit);
        m_button = make(*m_window);
        QVERIFY(m_button);
        if (m_button->parentWidget() == m_window.get()) column->addWidget(m_button);
        m_window->show();
        QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
        m_before->setFocus();
    }

private Q_SLOTS:
    void cleanup() { m_window.reset(); }

    void eachKeyPressesOnce_data() { addButtons(); }
    void eachKeyPressesOnce()
    {
        QFETCH(const Make, make);
        for (const Qt::Key key : {Qt::Key_Space, Qt::Key_Return, Qt::Key_Enter}) {
            show(make);
            const QSignalSpy clicked{m_button, &QAbstractButton::clicked};
            m_button->setFocus(Qt::TabFocusReason);
            QKeyEvent press{QEvent::KeyPress, key, {}};
            QKeyEvent repeat{QEvent::KeyPress, key, {}, {}, true};
            QKeyEvent release{QEvent::KeyRelease, key, {}};
            for (QKeyEvent *each : {&press, &repeat, &repeat, &release})
                QCoreApplication::sendEvent(m_button, each);
            QCOMPARE(clicked.size(), 1);
        }
    }

    void theRingComesByKeyboard_data() { addButtons(); }
    void theRingComesByKeyboard()
    {
        QFETCH(const Make, make);
        show(make);
        const QImage without = picture();
        QTest::keyClick(m_before, Qt::Key_Tab);
        QVERIFY(m_button->hasFocus());
        const QImage with = picture();
        QVERIFY(with != without);

        m_before->setFocus();
        QCOMPARE(picture(), without);
        m_button->setFocus(Qt::MouseFocusReason);
        QCOMPARE(picture(), without);
        m_before->setFocus(Qt::PopupFocusReason);
        m_button->setFocus(Qt::PopupFocusReason); // a menu has gone
        QCOMPARE(picture(), without);
        QTest::keyClick(m_button, Qt::Key_Shift);
        QCOMPARE(picture(), with);
    }
};

ORVANE_TEST(PaintedButton_test)
#include "PaintedButton_test.moc"
