#pragma once

#include <QWidget>

/// The account at the head of the sidebar: a circle with its initial, its name, and the key that finds
/// anything.
class AccountHeader : public QWidget {
    Q_OBJECT

public:
    explicit AccountHeader(QWidget *parent = nullptr);

    void setAccountName(const QString &name);
    /// The key combination as text; empty shows none.
    void setShortcutHint(const QString &hint);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    QString m_name;
    QString m_hint;
};
