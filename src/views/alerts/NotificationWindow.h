#pragma once

#include "views/controls/PopupFrame.h"

class NotificationCard;
class QLabel;
class ScrollColumn;
class QVBoxLayout;

/// The window of the notification panel: the messages below each other, as high as they need and the screen
/// allows. From two messages on a line above them counts them and dismisses all.
class NotificationWindow : public PopupFrame {
    Q_OBJECT

public:
    NotificationWindow();

    /// Takes the card, below the others.
    void add(NotificationCard *card);
    /// Takes the card out and deletes it once that is safe: its own button may be what closes it.
    void remove(NotificationCard *card);

Q_SIGNALS:
    void allDismissed();

private:
    void place();

    QWidget *m_head;
    QLabel *m_count;
    ScrollColumn *m_area;
    QVBoxLayout *m_cards;
};
