#pragma once

#include <QWidget>

class QLabel;
class QLineEdit;

/// One box around a field and the unit behind it; a click on the unit goes to the field. It owns both.
class FieldBorderView : public QWidget {
    Q_OBJECT

public:
    FieldBorderView(QLineEdit &field, QLabel &unit, QWidget *parent = nullptr);

protected:
    void paintEvent(QPaintEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    QLineEdit &m_field;
};
