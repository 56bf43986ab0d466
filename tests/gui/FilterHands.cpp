#include "gui/FilterHands.h"

#include <QApplication>
#include <QComboBox>
#include <QMenu>
#include <QTest>

bool FilterHands::isOpen() const { return m_window.findChild<FilterEditor *>() != nullptr; }

FilterEditor &FilterHands::editor() const
{
    auto *found = m_window.findChild<FilterEditor *>();
    if (!found) qFatal("there is no filter editor");
    return *found;
}

void FilterHands::takeKeyboard() const
{
    editor().activateWindow();
    const auto isActive = [this] { return QApplication::activeWindow() == &editor(); };
    if (!QTest::qWaitFor(isActive)) qFatal("the filter editor is not active");
}

void FilterHands::addCondition() const
{
    auto &button = find<QWidget>("addCondition");
    button.setFocus();
    QTest::keyClick(&button, Qt::Key_Space);
}

void FilterHands::chooseSubject(int row, const QString &subject) const
{
    auto &box = find<QComboBox>("conditionSubject", row);
    box.setFocus();
    QTest::keyClicks(&box, subject);
    if (box.currentText() != subject) qFatal("%s was not chosen", qPrintable(box.currentText()));
}

void FilterHands::choose(const char *button, const QString &title, int row) const
{
    auto &opener = find<QWidget>(button, row);
    opener.setFocus();
    QTest::keyClick(&opener, Qt::Key_Space);
    auto *menu = opener.findChild<QMenu *>();
    if (!menu || !QTest::qWaitFor([menu] { return menu->isVisible(); })) qFatal("%s has no menu", button);
    for (QAction *each : menu->actions())
        if (each->text() == title) menu->setActiveAction(each);
    QTest::keyClick(menu, Qt::Key_Return);
    if (!menu->isVisible()) qFatal("the menu closed at %s", qPrintable(title)); // for further choices
    QTest::keyClick(menu, Qt::Key_Escape);
}
