#pragma once

#include "lists/KWTaskListService.h"
#include "model/store/KWTrashDataService.h"

#include <QObject>

#include <functional>

class QMenu;
class TaskListPane;

/// What can be done in the middle column while it shows the trash: bring tasks back, delete them for good,
/// empty it. For good is asked first. Main thread.
class TrashController : public QObject {
    Q_OBJECT

public:
    /// All outlive it.
    struct Parts {
        TaskListPane &pane;
        const KWTaskListService &tasks;
        KWCoreDataManager &manager;
        const KWAccountManager &account;
    };
    explicit TrashController(const Parts &parts);

    bool isShown() const;
    /// Offers to empty the trash while it is shown and holds something. To be called when the list or its
    /// rows are other ones.
    void showOffer();
    void fillMenu(QMenu &menu, const QStringList &taskIDs);
    void restore(const QStringList &taskIDs);
    void deleteForever(const QStringList &taskIDs);

Q_SIGNALS:
    /// Tasks are back in their lists; `undo` puts them into the trash again.
    void restored(const QString &message, const std::function<void()> &undo);
    void failed(const QString &sentence);

private:
    void empty();
    void report(const Result<void> &done);

    Parts m_parts;
    KWTrashDataService m_trash;
};
