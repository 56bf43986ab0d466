#pragma once

#include <QList>
#include <QString>

/// A checklist as lines of text and back. In a text an item is a line "- [ ] Milk", or "- [x] Milk" when it
/// is ticked; the text above the checklist stands before them.
struct ChecklistText {
    struct Item {
        QString title;
        bool isCompleted = false;
        bool operator==(const Item &) const = default;
    };
    QString description;
    QList<Item> items;

    /// The lines written as items are the items and the others the description. Where none is, every line
    /// with a text is an item, without the "-", "*", "+" or number of a list.
    static ChecklistText ofText(const QString &text);
    QString toText() const;

    bool operator==(const ChecklistText &) const = default;
};
