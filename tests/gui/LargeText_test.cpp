#include "gui/MainWindowHands.h"
#include "support/TestMain.h"
#include "views/controls/PlainLabel.h"
#include "views/focus/FocusSideView.h"
#include "views/focus/FocusWindow.h"
#include "views/main/MainWindow.h"
#include "views/palette/FoundRowsView.h"
#include "views/sidebar/SidebarView.h"
#include "views/taskdetail/TaskDetailView.h"
#include "views/theme/Fonts.h"
#include "views/theme/Metrics.h"
#include "views/theme/Painting.h"
#include "views/theme/ThemeConfigurator.h"

#include <QAbstractButton>
#include <QApplication>
#include <QLabel>
#include <QPainter>
#include <QScrollBar>
#include <QStyleOption>

using namespace Qt::StringLiterals;

/// The window when the desktop asks for large text, when it is small, and mirrored.
class LargeText_test : public QObject, MainWindowHands {
    Q_OBJECT

    static void setTextScale(double scale) { ThemeConfigurator::shared().setDesktopTextScale(scale); }
    void verifyRowsHoldTheirText(const QAbstractItemView &view)
    {
        const int line = QFontMetrics{Fonts::font(Fonts::Role::Body)}.height();
        QVERIFY(view.model()->rowCount() > 0);
        for (int row = 0; row < view.model()->rowCount(); ++row) {
            const QModelIndex index = view.model()->index(row, 0);
            if (!index.data().toString().isEmpty()) QVERIFY(view.visualRect(index).height() >= line);
        }
    }
    void verifyControlsAreInTheWindow()
    {
        for (const QWidget *each : m_client->window()->findChildren<QAbstractButton *>()) {
            if (!each->isVisible()) continue;
            const QRect place{each->mapTo(m_client->window(), QPoint{}), each->size()};
            QVERIFY2(m_client->window()->rect().contains(place), qPrintable(each->objectName()));
        }
    }

private Q_SLOTS:
    void init()
    {
        startClient();
        QVERIFY(m_client->rooms().newTasks().add(u"Buy milk today ^Shopping"_s));
    }
    void cleanup()
    {
        setTextScale(1);
        endClient();
    }

    void everythingGrowsWhileTheWindowIsOpen()
    {
        const std::unique_ptr<QLabel> label{makePlainLabel(u"Words"_s, Fonts::Role::Body)};
        const int usual = QApplication::font().pixelSize();
        setTextScale(2);
        QCOMPARE(QApplication::font().pixelSize(), 2 * usual);
        QCOMPARE(label->font().pixelSize(), 2 * usual);
        QCoreApplication::processEvents();
        verifyRowsHoldTheirText(list());
        verifyRowsHoldTheirText(tree());
        m_client->press(Qt::Key_F, Qt::ControlModifier);
        QVERIFY(m_client->find<QWidget>("searchField").height() >= Metrics::scaled(Metrics::addField));
        setTextScale(50);
        QCOMPARE(Metrics::textScale(), 3.0);
        setTextScale(0.1);
        QCOMPARE(Metrics::textScale(), 1.0);
    }

    void marksGrowWithTheText()
    {
        const auto widthOfDot = [] {
            QImage image{60, 1, QImage::Format_ARGB32};
            image.fill(Qt::transparent);
            QPainter painter{&image};
            Painting::dot(painter, {30, 0}, u"#ff0000"_s);
            int width = 0;
            for (int x = 0; x < image.width(); ++x)
                width += qAlpha(image.pixel(x, 0)) > 0;
            return width;
        };
        const auto widthOfMark = [] {
            QStyleOptionComboBox box;
            box.rect = {0, 0, 200, 60};
            return qApp->style()
                ->subControlRect(QStyle::CC_ComboBox, &box, QStyle::SC_ComboBoxArrow, nullptr)
                .width();
        };
        const int usualDot = widthOfDot();
        const int usualMark = widthOfMark();
        setTextScale(2);
        QVERIFY(widthOfDot() >= 2 * usualDot - 2);
        QCOMPARE(widthOfMark(), 2 * usualMark);
    }

    void columnsGetTheRoomThatTheyNeed()
    {
        MainWindow &window = *m_client->window();
        QVERIFY(window.detail().isVisible());
        setTextScale(2);
        QVERIFY(!window.detail().isVisible()); // a sheet now
        QVERIFY(window.sidebar().width() >= Metrics::scaled(Metrics::sidebarMinimumWidth));
        window.openDetail();
        QVERIFY(window.detail().width() >= Metrics::scaled(Metrics::detailMinimumWidth));
        verifyControlsAreInTheWindow();
        window.closeDetailSheet();
        for (const QSize &size : {QSize{720, 480}, QSize{1280, 800}}) {
            window.resize(size);
            QCoreApplication::processEvents();
            verifyControlsAreInTheWindow();
            QVERIFY(window.listPane().width() >= size.width() / 2);
        }
        setTextScale(1);
        QVERIFY(window.detail().isVisible());
    }

    void thePageOfFocusFits()
    {
        m_client->openList(u"Focus"_s);
        MainWindow &window = *m_client->window();
        for (const double scale : {1.0, 2.0})
            for (const QSize &size : {QSize{720, 800}, QSize{1280, 800}}) {
                setTextScale(scale);
                window.resize(size);
                QCoreApplication::processEvents();
                QCOMPARE(window.size(), size);
                verifyControlsAreInTheWindow();
            }
        window.openDetail(); // a sheet
        QVERIFY(window.focusSide().isVisible());
    }

    void windowsFitASmallScreen()
    {
        setTextScale(2);
        m_client->rooms().focusWindow().show();
        m_client->press(Qt::Key_5, Qt::ControlModifier); // the calendar
        m_client->rooms().preferences().show({});
        m_client->rooms().quickAdd().show({}, {});
        m_client->rooms().mainWindow().editFilter({});
        QCoreApplication::processEvents();
        const QSize screen{1280, 800};
        for (const QWidget *each : QApplication::topLevelWidgets()) {
            if (!each->isVisible()) continue;
            const QSize least = each->minimumSizeHint().expandedTo(each->minimumSize());
            QVERIFY2(least.boundedTo(screen) == least, qPrintable(each->objectName()));
        }
    }

    void theSidebarBeginsAtItsTop()
    {
        for (int i = 0; i < 40; ++i)
            QVERIFY(m_client->rooms().newTasks().add(u"Task ^List%1"_s.arg(i)));
        m_client->openList(u"Tomorrow"_s);
        m_client->restart();
        QTRY_VERIFY(tree().verticalScrollBar()->maximum() > 0);
        QCOMPARE(tree().verticalScrollBar()->value(), 0);
    }

    void whatWasFoundIsMirrored()
    {
        FoundRowsView view{u"Found"_s};
        view.resize(400, 60);
        view.setLayoutDirection(Qt::RightToLeft);
        view.setRows({{.kind = FoundRow::Kind::List, .id = {}, .title = u"Garden"_s, .icon = Icon::Folder}});
        view.show();
        const QImage image = view.grab().toImage();
        const QRect row = view.visualRect(view.currentIndex());
        for (int x = row.left() + Metrics::gap; x < row.center().x(); ++x)
            for (int y = row.center().y() - 8; y < row.center().y() + 8; ++y)
                QCOMPARE(image.pixel(x, y), image.pixel(row.center()));
    }
};

ORVANE_TEST(LargeText_test)
#include "LargeText_test.moc"
