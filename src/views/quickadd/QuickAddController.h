#pragma once

#include "app/ports/WindowPorts.h"
#include "model/events/KWNotificationCenter.h"
#include "views/addfield/AddFieldController.h"

#include <QObject>
#include <QStringList>

#include <memory>

class QuickAddWindow;

/// The window in which a task is typed without the main one. Its tasks go to the list for new tasks, unless
/// the text says otherwise. What is typed and not saved is kept for the user, also when the program ends: it
/// stands in the field at the next opening. Main thread.
class QuickAddController : public QObject, public QuickAddPort {
    Q_OBJECT

public:
    /// All outlive it.
    explicit QuickAddController(AddFieldController::Rooms rooms);
    ~QuickAddController() override;

    /// A title does not replace what was typed: that comes back once the title is saved.
    void show(const QString &title, const QString &activationToken) override;

    /// None before it is first shown, and signed out.
    QuickAddWindow *window() const;

private:
    struct Content;

    void showWaiting();

    AddFieldController::Rooms m_rooms;
    std::unique_ptr<Content> m_content;
    QStringList m_waiting; // titles, until somebody signs in
    KWNotificationCenter::Observation m_signIn;
    KWNotificationCenter::Observation m_signOut;
};
