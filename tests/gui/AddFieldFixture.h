#pragma once

#include "gui/ClientFixture.h"

#include <QStringList>

class KWNewTaskTextField;

/// The client with the Inbox open and the keyboard in its add field.
class AddFieldFixture : public ClientFixture {
public:
    AddFieldFixture();

    KWNewTaskTextField &field();
    /// Types a title and presses Enter.
    void add(const QString &title);
    /// The titles of all tasks, in their manual order.
    QStringList savedTitles();
};
