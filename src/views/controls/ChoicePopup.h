#pragma once

#include "views/controls/PopupFrame.h"

#include <functional>

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
    /// Typing asks `search` in place of narrowing the choices here: it sees to it that setChoices() follows,
    /// and Enter waits for that.
    void setSearch(std::function<void(const QString &typed)> search) { m_search = std::move(search); }
    /// Others than before. The current one stays as long as nothing is typed; else it is the first one.
    void setChoices(const QList<Choice> &choices);
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
    void take(const QModelIndex &row);
    void fitFrame();

    QLineEdit *m_field;
    QListView *m_list;
    QSortFilterProxyModel *m_found;
    QPoint m_position; // where it is shown
    std::function<void(const QString &)> m_search;
    enum class Answer { There, Awaited, AwaitedToTake };
    Answer m_answer = Answer::There;
};
