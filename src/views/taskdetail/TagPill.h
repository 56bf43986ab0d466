#pragma once

#include "views/controls/PaintedButton.h"

/// A tag of the task in its pill. Pressing it, Delete or Backspace asks to take it away, as long as it is
/// enabled.
class TagPill : public PaintedButton {
    Q_OBJECT

public:
    TagPill(QString name, const QString &label, QWidget *parent = nullptr);

    const QString &name() const { return m_name; }

    QSize sizeHint() const override;

Q_SIGNALS:
    void removed();

protected:
    Ring ring() const override;
    void paintContent(QPainter &painter) override;
    void keyPressEvent(QKeyEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    int crossWidth() const;
    void nameItself();

    QString m_name;
};
