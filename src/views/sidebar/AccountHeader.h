#pragma once

#include <QWidget>

class MenuButton;

/// The account at the head of the sidebar: a circle with its initial, its name, and the button of the
/// main menu.
class AccountHeader : public QWidget {
    Q_OBJECT

public:
    explicit AccountHeader(QWidget *parent = nullptr);

    void setAccountName(const QString &name);
    MenuButton &menuButton() { return *m_menuButton; }

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    MenuButton *m_menuButton;
    QString m_name;
};
