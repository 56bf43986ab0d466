#pragma once

#include "views/controls/PopupFrame.h"

class QLineEdit;
class QListView;
class QSortFilterProxyModel;

/// A small frame over the window that asks for one of many: typing narrows them, arrows move, Enter or a
/// click takes, Escape goes back. It is as high as its rows, and gone when it has answered.
class ChoicePopup : public PopupFrame {
    Q_OBJECT

public:
    struct Choice {
        QString id;
        QString title;
        QString color{};        ///< "#rrggbb" of the dot before it
        bool isChecked = false; ///< it holds already
    };
    /// `question` is what the field asks for, and its accessible name.
    ChoicePopup(const QString &question, const QList<Choice> &choices, QWidget *parent);

    /// Enter takes that one as long as nothing is typed; the first one if this is not said.
    void setCurrent(const QString &id);
    /// Shows it with its corner at `position`, or as near as the screen allows.
    void popUp(const QPoint &position);

Q_SIGNALS:
    void chosen(const QString &id);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void narrow(const QString &typed);
    void fitRows();
    void takeCurrent();

    QLineEdit *m_field;
    QListView *m_list;
    QSortFilterProxyModel *m_found;
};
