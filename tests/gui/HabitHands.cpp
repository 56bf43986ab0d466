#include "gui/HabitHands.h"

#include "habits/HabitEditor.h"
#include "model/records/KWHabit.h"
#include "model/store/HabitDays.h"
#include "views/habits/HabitListView.h"
#include "views/habits/HabitPane.h"
#include "views/main/MainWindow.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QTest>

#include <algorithm>

using namespace Qt::StringLiterals;

void HabitHands::openHabits(const char *localTime)
{
    startClient(localTime);
    m_client->rooms().menu().action(MenuCommand::OpenHabit).trigger();
    comeBack();
    QTRY_VERIFY(!m_client->window()->habitPane().content().sections.isEmpty());
}

HabitListView &HabitHands::habits() const { return m_client->window()->habitPane().list(); }

QString HabitHands::shownHabits() const
{
    QStringList names;
    for (const HabitSection &section : m_client->window()->habitPane().model().sections()) {
        names << u'[' + section.name + u']';
        for (const HabitRow &each : section.rows)
            names << each.habit.name;
    }
    return names.join(u' ');
}

KWHabitModel HabitHands::habit(const QString &name) const
{
    const auto all = KWHabit::fetchAll(m_client->kit().account().currentUserID(),
                                       HabitScope::ActiveAndArchived, m_client->kit().context());
    for (const KWHabit *each : all)
        if ((*each)->name == name) return each->model();
    qFatal("there is no habit %s", qUtf8Printable(name));
}

QString HabitHands::habitID(const QString &name) const { return habit(name).sid; }

HabitDay HabitHands::dayOf(const QString &name, int ago) const
{
    const KWHabit &found = *m_client->kit().context().find<KWHabit>(habitID(name));
    const Day day = found.today() - std::chrono::days{ago};
    return readHabitDays(found, day, day).first();
}

void HabitHands::makeHabit(const QString &name, const std::function<void(KWHabitModel &)> &edit) const
{
    KWHabitModel model;
    model.name = name;
    if (edit) edit(model);
    HabitEditor editor{m_client->kit().manager(), m_client->kit().account().currentUserID()};
    const auto made = editor.create(model);
    QVERIFY(made);
    QTRY_VERIFY(m_client->window()->habitPane().model().indexOf(made->sid).isValid());
}

void HabitHands::goToHabit(const QString &name, std::optional<int> ago) const
{
    comeBack();
    const HabitListModel &model = m_client->window()->habitPane().model();
    QTRY_VERIFY(model.indexOf(habitID(name)).isValid());
    habits().setFocus(); // before the first habit came, the list was hidden
    const int column = ago ? HabitListModel::todayColumn - *ago : 0;
    habits().setCurrentIndex(model.indexOf(habitID(name), column));
}

QMenu &HabitHands::habitMenu() const
{
    QContextMenuEvent event{QContextMenuEvent::Keyboard, {}, {}};
    QApplication::sendEvent(habits().viewport(), &event);
    const auto menus = habits().findChildren<QMenu *>(u"habitMenu"_s);
    if (menus.isEmpty()) qFatal("no menu opened");
    return *menus.last();
}

void HabitHands::chooseOfHabit(const QString &entry) const
{
    QMenu &menu = habitMenu();
    menu.close();
    for (QAction *each : menu.actions())
        if (each->text().section(u'\t', 0, 0) == entry) return each->trigger();
    qFatal("the menu has no %s", qUtf8Printable(entry));
}

QWidget *HabitHands::findOver(const char *window, const char *name) const
{
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    auto *found = m_client->window()->findChild<QWidget *>(QLatin1StringView{window});
    if (!found) qFatal("there is no %s", window);
    QWidget *inside = name ? found->findChild<QWidget *>(QLatin1StringView{name}) : found;
    if (!inside) qFatal("there is no %s", name);
    return inside;
}

bool HabitHands::isOpen(const char *window) const
{
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    const auto *found = m_client->window()->findChild<QWidget *>(QLatin1StringView{window});
    return found && found->isVisible();
}

void HabitHands::typeInto(QWidget &field, const QString &text) const
{
    field.setFocus();
    QTest::keyClick(&field, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClicks(&field, text);
}

void HabitHands::comeBack() const
{
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    m_client->window()->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(m_client->window()));
    if (!QApplication::focusWidget()) habits().setFocus();
}

void HabitHands::takeBack() const
{
    comeBack();
    undo();
}

QString HabitHands::toastText() const
{
    QStringList texts;
    for (const QLabel *each : m_client->find<QWidget>("toast").findChildren<QLabel *>())
        texts << each->text();
    return texts.join(u' ');
}
