#pragma once

#include <QLineEdit>

class QStringListModel;

/// A small field that takes a tag; the tags that there are complete what is typed. Enter, a comma and a
/// space hand it over, Escape empties it.
class TagField : public QLineEdit {
    Q_OBJECT

public:
    explicit TagField(QWidget *parent = nullptr);

    /// The labels that can be completed.
    void setChoices(const QStringList &labels);
    void dress();

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

Q_SIGNALS:
    void entered(const QString &label);
    /// Backspace with nothing to delete.
    void backspacedAtStart();

protected:
    void keyPressEvent(QKeyEvent *event) override;

private:
    void handOver();

    QStringListModel *m_choices;
};
