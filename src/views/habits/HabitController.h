#pragma once

#include "habits/HabitEditor.h"
#include "views/habits/HabitDropPlace.h"
#include "views/habits/HabitListModel.h"

#include <functional>

class HabitCheckIns;
class HabitEditorDialog;
class HabitNavigator;
class HabitPane;
class OrvaneKit;
class QMenu;

/// Makes, changes, moves and deletes habits and their sections as the list, its menus and the editor ask.
/// Each can be taken back; what cannot be done says so. Main thread.
class HabitController : public QObject {
    Q_OBJECT

public:
    /// All outlive it.
    struct Parts {
        HabitPane &pane;
        OrvaneKit &kit;
        HabitNavigator &navigator;
        HabitCheckIns &checkIns;
        QWidget &window;
    };
    explicit HabitController(const Parts &parts);

    void create(const QString &sectionID);
    void edit(const QString &habitID);
    void setArchived(const QString &habitID, bool isArchived);

Q_SIGNALS:
    void changed(const QString &message, const std::function<void()> &undo);
    void failed(const QString &sentence);
    /// The detail of the habit is to be shown.
    void opened(const QString &habitID);
    /// A session of focus on it is to begin.
    void focusRequested(const QString &habitID, KWFocusType mode);

private:
    void remove(const QString &habitID);
    void move(const QString &habitID, const HabitDropPlace &place);
    void openEditor(const KWHabitModel &habit);
    void save(HabitEditorDialog &dialog, const QString &habitID);
    void fillMenu(QMenu &menu, const HabitRow &row, const HabitDay &day, const QRect &place);
    void addFocus(QMenu &menu, const QString &id);
    void addMarks(QMenu &menu, const HabitRow &row, const HabitDay &day, const QRect &place);
    void addSections(QMenu &menu, const HabitRow &row);
    void fillSectionMenu(QMenu &menu, const HabitSection &section, const QRect &place);
    void openPageMenu();
    void askForSection(const HabitSection &section, const QPoint &position);
    void moveSection(const QString &sectionID, int places);
    HabitEditor editor() const;
    QString nameOf(const QString &habitID) const;
    bool report(const Result<UndoToken> &done, const QString &message);
    void told(const QList<UndoToken> &done, const QString &message);

    Parts m_parts;
};
