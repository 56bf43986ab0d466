#include "gui/FocusHands.h"

#include "views/controls/SegmentedControl.h"
#include "views/focus/FocusPane.h"
#include "views/focus/FocusPanel.h"
#include "views/focus/FocusRecordDelegate.h"
#include "views/focus/FocusRecordList.h"
#include "views/focus/FocusSideView.h"
#include "views/focus/FocusTargetButton.h"
#include "views/focus/FocusWording.h"
#include "views/main/MainWindow.h"

#include <QApplication>
#include <QLabel>
#include <QTest>

using namespace Qt::StringLiterals;

void FocusHands::openFocus()
{
    startClient();
    for (const QString &each : {u"Water the plants today"_s, u"Sort the photos"_s})
        QVERIFY(m_client->rooms().newTasks().add(each));
    m_client->rooms().menu().action(MenuCommand::OpenFocus).trigger();
    QVERIFY(m_client->window()->isFocusShown());
}

FocusPanel &FocusHands::panel() const { return *m_client->window()->focusPane().panel(); }

FocusRing &FocusHands::ring() const { return panel().ring(); }

QString FocusHands::time() const { return FocusWording::clock(ring().reading().seconds); }

QString FocusHands::commands() const
{
    QStringList texts;
    for (int i = 1; i <= 3; ++i) {
        const auto &button = m_client->find<QAbstractButton>(qPrintable(u"focusCommand%1"_s.arg(i)));
        if (!button.isHidden()) texts << button.text();
    }
    return texts.join(u' ');
}

void FocusHands::press(const QString &command) const
{
    for (int i = 1; i <= 3; ++i) {
        auto &button = m_client->find<QAbstractButton>(qPrintable(u"focusCommand%1"_s.arg(i)));
        if (!button.isHidden() && button.text() == command) return QTest::mouseClick(&button, Qt::LeftButton);
    }
    qFatal("there is no button %s beside %s", qPrintable(command), qPrintable(commands()));
}

QString FocusHands::notice() const
{
    const auto &label = m_client->find<QLabel>("focusNotice");
    return label.isHidden() ? QString{} : label.text();
}

void FocusHands::choose(const QString &mode) const
{
    for (auto *each : m_client->find<QWidget>("focusModes").findChildren<QAbstractButton *>())
        if (each->text() == mode) return QTest::mouseClick(each, Qt::LeftButton);
    qFatal("there is no mode %s", qPrintable(mode));
}

void FocusHands::focusOn(const QString &typed) const
{
    auto &button = m_client->find<QWidget>("focusTarget");
    button.setFocus();
    QTest::keyClick(&button, Qt::Key_Return);
    auto *field = button.findChild<QWidget *>(u"choiceField"_s);
    if (!field) qFatal("no popup opened");
    QTest::keyClicks(field, typed);
    QTest::keyClick(field, Qt::Key_Return);
    constexpr int readings = 2; // as it opens, and of the last text
    for (int i = 0; i < readings; ++i) {
        m_client->kit().manager().threadPool().waitForDone();
        QCoreApplication::processEvents();
    }
    comeBack();
}

QString FocusHands::target() const { return m_client->find<QAbstractButton>("focusTarget").text(); }

QString FocusHands::records() const
{
    QStringList rows;
    const QAbstractItemModel *model = m_client->window()->focusSide().records().model();
    for (int i = 0; i < model->rowCount(); ++i) {
        const QModelIndex row = model->index(i, 0);
        rows << row.data().toString() + u' ' + row.data(FocusRecordDelegate::NoteRole).toString();
    }
    return rows.join(u"; "_s);
}

void FocusHands::wait(std::chrono::seconds time) const { m_client->clock.advance(time); }
