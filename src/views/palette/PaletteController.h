#pragma once

#include "views/palette/NameRanking.h"
#include "views/palette/TaskHits.h"

#include <QObject>
#include <QPointer>

class CommandPalette;
class MainMenu;

/// Opens the command palette over the window, fills it while a person types, and says what was chosen.
/// Commands are carried out here. Main thread.
class PaletteController : public QObject {
    Q_OBJECT

public:
    /// All outlive it.
    struct Parts {
        OrvaneKit &kit;
        KWProjectListPresenter &sidebar;
        MainMenu &menu;
        QWidget &window;
        const TaskHits &hits;
    };
    explicit PaletteController(const Parts &parts);

    void open();

Q_SIGNALS:
    void listChosen(const KWListIdentifier &list);
    void taskChosen(const QString &taskID);
    void searchChosen(const QString &text);

private:
    void show(const QString &typed);
    void take(const FoundRow &row, const QString &typed);
    QStringList recentUse() const;
    void remember(const QString &id);

    Parts m_parts;
    NameRanking m_names;
    QPointer<CommandPalette> m_palette;
};
