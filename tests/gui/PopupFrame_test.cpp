#include "views/controls/PopupFrame.h"

#include "support/TestMain.h"
#include "views/controls/ChoicePopup.h"
#include "views/controls/MenuPlace.h"
#include "views/datepicker/DatePicker.h"
#include "views/datepicker/SchedulePicker.h"
#include "views/palette/CommandPalette.h"
#include "views/palette/FoundRowsView.h"

#include <QLineEdit>
#include <QMenu>
#include <QPointer>
#include <QScreen>
#include <QSignalSpy>

using namespace Qt::StringLiterals;
using namespace std::chrono;

using Show = std::function<PopupFrame *(QWidget &window, const QPoint &position)>;
Q_DECLARE_METATYPE(Show)

/// Frames over the window: where they stand, how large they are, and how they go.
class PopupFrame_test : public QObject {
    Q_OBJECT

    QWidget m_window;

    static QList<ChoicePopup::Choice> choices(int count)
    {
        QList<ChoicePopup::Choice> all;
        for (int i = 0; i < count; ++i)
            all.append({QString::number(i), u"List %1"_s.arg(i)});
        return all;
    }
    static QList<FoundRow> foundRows(int count)
    {
        QList<FoundRow> rows;
        for (int i = 0; i < count; ++i)
            rows.append({.kind = FoundRow::Kind::List, .id = QString::number(i), .title = u"List"_s});
        return rows;
    }
    static void addPopups()
    {
        QTest::addColumn<Show>("show");
        const auto row = [](const char *name, const Show &show) { QTest::newRow(name) << show; };
        const auto shown = [](auto *popup, const QPoint &position) {
            popup->popUp(position);
            return popup;
        };
        row("choices", [shown](QWidget &window, const QPoint &position) {
            return shown(new ChoicePopup{u"Move to list"_s, choices(20), &window}, position);
        });
        row("day", [shown](QWidget &window, const QPoint &position) {
            return shown(new DatePicker{{.today = Day{2026y / November / 21}, .selected = {}}, &window},
                         position);
        });
        row("schedule", [shown](QWidget &window, const QPoint &position) {
            const SchedulePicker::Surroundings surroundings{.today = Day{2026y / November / 21},
                                                            .zone = *CXTimeZone::named(u"UTC"_s),
                                                            .reminders = {},
                                                            .allDayReminders = {},
                                                            .readRule = {}};
            return shown(new SchedulePicker{{}, surroundings, &window}, position);
        });
        row("palette", [](QWidget &window, const QPoint &position) {
            window.move(position);
            auto *palette = new CommandPalette{window};
            palette->popUp();
            palette->rows().setRows(foundRows(40));
            return palette;
        });
    }

private Q_SLOTS:
    void init()
    {
        m_window.resize(760, 600);
        m_window.move(0, 0);
        m_window.show();
    }

    void isWholeOnTheScreen_data() { addPopups(); }
    void isWholeOnTheScreen()
    {
        QFETCH(const Show, show);
        const QRect bounds = m_window.screen()->availableGeometry();
        const QRect outside = bounds.marginsAdded({100, 100, 100, 100});
        for (const QPoint &position : {bounds.topLeft(), bounds.topRight(), bounds.bottomLeft(),
                                       bounds.bottomRight(), outside.topLeft(), outside.bottomRight()}) {
            const QPointer<PopupFrame> popup = show(m_window, position);
            QCOMPARE(bounds.intersected(popup->geometry()), popup->geometry());
            QTest::keyClick(popup->focusWidget(), Qt::Key_Escape);
            QTRY_VERIFY(!popup);
        }
    }

    void isCutWhereTheScreenIsTooSmall()
    {
        const QRect bounds{100, 50, 400, 300};
        QCOMPARE(PopupFrame::within(bounds, {120, 60, 200, 200}), QRect(120, 60, 200, 200));
        QCOMPARE(PopupFrame::within(bounds, {450, 300, 200, 200}), QRect(300, 150, 200, 200));
        QCOMPARE(PopupFrame::within(bounds, {0, 0, 200, 200}), QRect(100, 50, 200, 200));
        QCOMPARE(PopupFrame::within(bounds, {0, 0, 900, 900}), bounds);
    }

    void aMenuStandsAtItsButton_data()
    {
        QTest::addColumn<Qt::Edge>("preferred");
        QTest::addColumn<double>("place"); // of the button, down the screen
        QTest::addColumn<Qt::LayoutDirection>("direction");
        QTest::addColumn<bool>("isAbove");
        QTest::newRow("below") << Qt::BottomEdge << 0.5 << Qt::LeftToRight << false;
        QTest::newRow("below, mirrored") << Qt::BottomEdge << 0.5 << Qt::RightToLeft << false;
        QTest::newRow("above") << Qt::TopEdge << 0.5 << Qt::LeftToRight << true;
        QTest::newRow("no room below") << Qt::BottomEdge << 0.98 << Qt::LeftToRight << true;
        QTest::newRow("no room above") << Qt::TopEdge << 0.0 << Qt::RightToLeft << false;
    }
    void aMenuStandsAtItsButton()
    {
        QFETCH(const Qt::Edge, preferred);
        QFETCH(const double, place);
        QFETCH(const Qt::LayoutDirection, direction);
        QFETCH(const bool, isAbove);
        const QRect screen = m_window.screen()->availableGeometry();
        m_window.setLayoutDirection(direction);
        m_window.move(screen.topLeft() + QPoint{0, int(place * screen.height())});
        const QRect button{300, 5, 28, 28};
        auto *menu = new QMenu{&m_window};
        for (int i = 0; i < 4; ++i)
            menu->addAction(u"By Time"_s);
        popUpAt(button, m_window, preferred, *menu);

        const QRect target = button.translated(m_window.mapToGlobal(QPoint{}));
        const QRect shown = menu->geometry();
        QVERIFY(isAbove ? shown.bottom() < target.top() : shown.top() > target.bottom());
        if (direction == Qt::RightToLeft)
            QCOMPARE(shown.left(), target.left());
        else
            QCOMPARE(shown.right(), target.right());
        const QPointer gone{menu};
        menu->close();
        QTRY_VERIFY(!gone);
        m_window.setLayoutDirection(Qt::LeftToRight);
    }

    void isAsHighAsItsChoices()
    {
        QPointer<ChoicePopup> popup = new ChoicePopup{u"Move to list"_s, choices(12), &m_window};
        const QSignalSpy chosen{popup, &ChoicePopup::chosen};
        popup->popUp({10, 10});
        const int highest = popup->height();
        auto *field = popup->findChild<QLineEdit *>();
        QTest::keyClick(field, Qt::Key_1); // 1, 10 and 11
        const int ofThree = popup->height();
        QTest::keyClick(field, Qt::Key_1);
        const int ofOne = popup->height();
        QVERIFY(highest > ofThree);
        QCOMPARE(ofThree - ofOne, 2 * popup->findChild<QAbstractItemView *>()->sizeHintForRow(0));
        QTest::keyClick(field, Qt::Key_X);
        QVERIFY(popup->height() < ofOne);
        QTest::keyClick(field, Qt::Key_Return);
        QVERIFY(popup && chosen.isEmpty());
        field->clear();
        QTest::keyClicks(field, u"list 1"_s);
        QCOMPARE(popup->height(), ofThree);
        QTest::keyClick(field, Qt::Key_Down);
        QTest::keyClick(field, Qt::Key_Enter);
        QTRY_VERIFY(!popup);
        QCOMPARE(chosen.first().first(), u"10"_s);
    }

    // What is found for a text comes a moment later.
    void takesWhatWasSearchedFor_data()
    {
        QTest::addColumn<QString>("typed"); // "|" is Enter, ">" an answer with the text's rows, "v" Down
        QTest::addColumn<QString>("expected");
        QTest::newRow("Enter behind the answer") << u"a>|"_s << u"a1"_s;
        QTest::newRow("Enter before the answer") << u"a|>"_s << u"a1"_s;
        QTest::newRow("typed on behind Enter") << u"a|b>"_s << QString{};
        QTest::newRow("Enter before both") << u"a|b|>"_s << u"ab1"_s;
        QTest::newRow("another row") << u"a>v|"_s << u"a2"_s;
        QTest::newRow("nothing typed") << u"v|"_s << u"start2"_s;
        QTest::newRow("a row from before the first answer") << u"v>|"_s << u"start2"_s;
    }
    void takesWhatWasSearchedFor()
    {
        QFETCH(QString, typed);
        QFETCH(QString, expected);
        const auto rows = [](const QString &name) {
            return QList<ChoicePopup::Choice>{{.id = name + u'1', .title = name},
                                              {.id = name + u'2', .title = name}};
        };
        auto *popup = new ChoicePopup{u"Task"_s, rows(u"start"_s), &m_window};
        const QSignalSpy chosen{popup, &ChoicePopup::chosen};
        QString searched = u"start"_s;
        popup->setSearch([&searched](const QString &text) { searched = text; });
        popup->popUp({10, 10});
        const QPointer field = popup->findChild<QLineEdit *>();
        for (const QChar each : typed) {
            if (each == u'>')
                popup->setChoices(rows(searched));
            else
                QTest::keyClick(field, each == u'|'   ? Qt::Key_Return
                                       : each == u'v' ? Qt::Key_Down
                                                      : Qt::Key(each.toUpper().unicode()));
        }
        QCOMPARE(chosen.isEmpty() ? QString{} : chosen.first().first().toString(), expected);
        popup->close();
    }

    void thePaletteIsAsHighAsItsRows()
    {
        auto *palette = new CommandPalette{m_window};
        palette->popUp();
        const QPoint corner = palette->pos();
        const auto heightOf = [palette](int count) {
            palette->rows().setRows(foundRows(count));
            return palette->height();
        };
        const int row = heightOf(2) - heightOf(1);
        QVERIFY(row > 0);
        QCOMPARE(heightOf(4) - heightOf(1), 3 * row);
        QVERIFY(heightOf(0) < heightOf(1));
        QCOMPARE(heightOf(100), heightOf(50));
        QVERIFY(m_window.geometry().contains(palette->geometry()));
        QCOMPARE(palette->pos(), corner);
        palette->close();
    }
};

ORVANE_TEST(PopupFrame_test)
#include "PopupFrame_test.moc"
