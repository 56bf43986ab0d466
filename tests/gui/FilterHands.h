#pragma once

#include "views/filtereditor/FilterEditor.h"

/// What a person does in the window of a filter, by keyboard. Whatever is not there ends the program with a
/// message.
class FilterHands {
public:
    explicit FilterHands(QWidget &window) : m_window(window) {}

    bool isOpen() const;
    FilterEditor &editor() const;
    /// The visible one of that name; with several, by their order from the top.
    template <class Widget>
    Widget &find(const char *name, int index = 0) const
    {
        QList<Widget *> found;
        for (Widget *each : editor().template findChildren<Widget *>(QString::fromLatin1(name)))
            if (each->isVisible()) found.append(each);
        if (found.size() <= index) qFatal("there is no %s", name);
        return *found.at(index);
    }

    /// Waits until the window of the filter has the keyboard.
    void takeKeyboard() const;
    void addCondition() const;
    void chooseSubject(int row, const QString &subject) const;
    /// Opens the menu of a condition, toggles its entry there and leaves.
    void choose(const char *button, const QString &title, int row = 0) const;

private:
    QWidget &m_window;
};
