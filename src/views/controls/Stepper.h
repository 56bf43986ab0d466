#pragma once

#include <QWidget>

class QSpinBox;

/// A whole number between two limits, typed or stepped by the buttons beside it and the arrows.
class Stepper : public QWidget {
    Q_OBJECT

public:
    Stepper(const char *name, const QString &what, int least, int most, QWidget *parent = nullptr);

    int value() const;
    /// Within the limits. Tells nobody.
    void setValue(int value);

Q_SIGNALS:
    void valueChanged(int value);

private:
    QSpinBox *m_number;
};
