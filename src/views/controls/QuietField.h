#pragma once

#include "views/theme/Icons.h"

#include <QLineEdit>

/// A field of one line without a frame: an icon and what it adds, until something is typed. Escape empties
/// it, and when it is empty goes on to who asks for it next.
class QuietField : public QLineEdit {
    Q_OBJECT

public:
    QuietField(const QString &adds, Icon icon, QWidget *parent = nullptr);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    void dress();

    const Icon m_icon;
};
