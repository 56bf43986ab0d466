#pragma once

#include "views/controls/PaintedButton.h"
#include "views/theme/Icons.h"

#include <QColor>

/// A quiet button at the end of an add field: its icon and, in a soft pill, what was chosen by hand.
class PickerButton : public PaintedButton {
    Q_OBJECT

public:
    /// What is chosen, and how that is painted.
    struct Choice {
        QString words; ///< empty: nothing is chosen
        QColor text{};
        QColor soft{}; ///< the pill

        bool operator==(const Choice &) const = default;
    };

    PickerButton(Icon icon, QWidget *parent);

    void setChoice(const Choice &choice);
    const Choice &choice() const { return m_choice; }
    bool hasChoice() const { return !m_choice.words.isEmpty(); }
    /// What it is about as things are, for screen readers and, with the keys, in the tool tip.
    void describe(const QString &words, const QString &keys);

    /// Whether there is room for the words.
    void setSpelledOut(bool isSpelledOut);
    int widthOf(bool isSpelledOut) const;
    QSize sizeHint() const override;

protected:
    void paintContent(QPainter &painter) override;

private:
    const Icon m_icon;
    Choice m_choice;
    bool m_isSpelledOut = true;
};
