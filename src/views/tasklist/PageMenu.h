#pragma once

#include "corvexkit/Result.h"

#include <QObject>

class KWTaskListService;
class MainMenu;
class PageHeader;

/// The menu of the page as a whole: whether completed tasks and events are shown, printing, export. Main
/// thread.
class PageMenu : public QObject {
    Q_OBJECT

public:
    /// All outlive it.
    PageMenu(PageHeader &header, KWTaskListService &service, MainMenu &mainMenu);

Q_SIGNALS:
    void failed(const QString &sentence);

private:
    void open();
    void report(const Result<void> &done);

    PageHeader &m_header;
    KWTaskListService &m_service;
    MainMenu &m_mainMenu;
};
