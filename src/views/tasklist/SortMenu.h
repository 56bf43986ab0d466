#pragma once

#include "lists/KWTaskListService.h"

#include <QObject>

#include <functional>

class PageHeader;

/// The menu at the head of a page: by what the list is sorted, and back to the order it comes with. Main
/// thread.
class SortMenu : public QObject {
    Q_OBJECT

public:
    /// All outlive it.
    SortMenu(PageHeader &header, KWTaskListService &service, KWCoreDataManager &manager);

    using SelectHandler = std::function<void(KWTaskSortType)>;
    using ResumeHandler = std::function<void()>;
    /// Shows what `menu` offers at a rectangle of a widget, as popUpAt() does. One of the handlers is called,
    /// or none: that of the type that was chosen, or the one that gives up the positions set by hand.
    static void popup(const KWTaskSortTypeMenu &menu, const QRect &relativeTo, QWidget &in,
                      Qt::Edge preferredEdge, const SelectHandler &selectHandler,
                      const ResumeHandler &resumeHandler);

    /// To be called when the list or its rows are other ones.
    void show();

Q_SIGNALS:
    void failed(const QString &sentence);
    /// The order is another one now; `undo` takes it back.
    void changed(const QString &message, const std::function<void()> &undo);

private:
    void open();
    void resetManualOrder();
    void report(const Result<void> &done);

    PageHeader &m_header;
    KWTaskListService &m_service;
    KWCoreDataManager &m_manager;
};
