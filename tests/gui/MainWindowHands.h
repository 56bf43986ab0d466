#pragma once

#include "gui/ClientFixture.h"
#include "views/sidebar/KWProjectListView.h"
#include "views/tasklist/TaskListPane.h"
#include "views/tasklist/TaskListView.h"

#include <memory>

class KWSmartProject;
class QMenu;
class QMimeData;

/// What a person does in the sidebar and the middle pane of the client's window, and what is seen there.
/// Whatever is not there ends the program with a message.
class MainWindowHands {
public:
    /// The client signed in for the first time, at that local time.
    void startClient(const char *localTime = "2026-11-21 09:00");
    void endClient() { m_client.reset(); }

    // The middle pane
    TaskListPane &pane() const;
    TaskListView &list() const;
    /// Sections in brackets, subtasks behind dots: "[Today] One .Two".
    QString shown() const;
    QString idOf(const QString &title) const;
    QStringList idsOf(const QStringList &titles) const;
    QModelIndex taskRow(const QString &title) const;
    QModelIndex sectionRow(const QString &title) const;
    void goTo(const QModelIndex &row) const;
    /// In the menu of what is selected.
    void chooseInMenu(const QString &entry) const;
    QMenu &openSortMenu() const;
    /// In the menu of the page.
    void chooseOfPage(const QString &entry) const;
    void sortBy(const QString &title) const;
    /// Over that share of the row's height.
    void drop(const QStringList &titles, const QModelIndex &onto, double share) const;

    // The sidebar
    KWProjectListView &tree() const;
    ProjectListTreeModel &treeModel() const { return tree().treeModel(); }
    QModelIndex listRow(const QString &title) const;
    QModelIndex listSection(const KWSmartProject &smart) const;
    /// "Home(Garden Work) Errand": the rows below, those below them in brackets.
    QString rowsBelow(const QModelIndex &parent) const;
    void goToList(const QModelIndex &row) const;
    void chooseInSidebar(const QModelIndex &row, const QString &entry) const;
    /// Into the field that is open for a name.
    void typeName(const QString &name) const;
    /// By the keyboard, in the section.
    void addTo(const KWSmartProject &section, const QString &name) const;
    /// Takes `carried`. Whether it was accepted.
    bool dropOnList(QMimeData *carried, const QModelIndex &row, double share) const;

    /// Ctrl+Z.
    void undo() const;

private:
    /// The keyboard is its own again after a menu.
    void activate() const;

protected:
    std::unique_ptr<ClientFixture> m_client;
};
