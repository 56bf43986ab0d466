#pragma once

class AlertPort;
class CalSubscriptionService;
class CXClock;
class FocusPresenter;
class KWDelayDeleteManager;
class KWProjectListPresenter;
class KWRepeatInstanceService;
class KWTaskListService;
class MainMenu;
class NewTaskService;
class OrvaneKit;
struct WebServices;

/// The rooms that the main window shows; all outlive it.
struct MainWindowRooms {
    OrvaneKit &kit;
    CXClock &clock;
    KWProjectListPresenter &sidebar;
    KWTaskListService &tasks;
    NewTaskService &newTasks;
    MainMenu &menu;
    KWDelayDeleteManager &deletes;
    AlertPort &alerts;
    KWRepeatInstanceService &repeats;
    CalSubscriptionService &calendars;
    FocusPresenter &focus;
    const WebServices &web;
};
