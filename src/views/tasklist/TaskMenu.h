#pragma once

#include "model/records/KWTaskModel.h"
#include "views/tasklist/OccurrenceActions.h"

#include <QObject>

class KWCoreDataManager;
class KWProjectListPresenter;
class MainMenu;
class QListView;
class QMenu;
class BatchActions;

/// The menu of the selected tasks. What the main menu has for them stands here with the same keys. Where
/// checklist items are selected, too, they take part in what can be done to items. Main thread.
class TaskMenu : public QObject {
    Q_OBJECT

public:
    /// All outlive it.
    struct Parts {
        QListView &list; ///< in which they are selected
        BatchActions &actions;
        MainMenu &mainMenu;
        KWProjectListPresenter &sidebar;
        KWCoreDataManager &manager;
    };
    explicit TaskMenu(const Parts &parts) : m_parts(parts), m_occurrences(parts.manager, parts.actions) {}

    void fill(QMenu &menu, const QStringList &ids);
    /// Of a later occurrence.
    void fillOfOccurrence(QMenu &menu, const TaskOccurrence &occurrence);
    OccurrenceActions &occurrences() { return m_occurrences; }
    /// Ask for a list, or for a tag, by typing.
    void chooseList(const QStringList &taskIDs);
    void chooseTag(const QStringList &taskIDs);

private:
    void addOccurrence(QMenu &menu, const QStringList &taskIDs);
    void addPlaces(QMenu &menu, const QStringList &taskIDs);
    void addPinning(QMenu &menu, const QStringList &taskIDs);
    void addCopies(QMenu &menu, const QStringList &taskIDs);
    QList<KWTaskModel> read(const QStringList &taskIDs) const;
    QPoint place() const;

    Parts m_parts;
    OccurrenceActions m_occurrences;
};
