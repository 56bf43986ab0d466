#pragma once

#include "views/controls/TextButton.h"

#include <QList>
#include <QStringList>

class QMenu;

/// A button that says what was chosen of many, and opens a menu in which each is chosen or not. The menu
/// stays open until Escape or a click beside it.
class ChoicesButton : public TextButton {
    Q_OBJECT

public:
    struct Choice {
        QString id;
        QString title;
    };
    /// `question` is what it says as long as nothing is chosen, and its name for screen readers.
    ChoicesButton(const QString &question, const QList<Choice> &choices, QWidget *parent = nullptr);

    /// In the order of the choices.
    QStringList chosen() const;
    bool isChosen(const QString &id) const { return chosen().contains(id); }
    /// An id that is none of the choices is offered from now on, as `unknownTitle`.
    void setChosen(const QStringList &ids, const QString &unknownTitle = {});

Q_SIGNALS:
    void changed();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void addChoice(const Choice &choice);
    void showChosen();

    QString m_question;
    QMenu *m_menu;
};
