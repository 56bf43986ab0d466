#pragma once

#include <QWidget>

class QButtonGroup;

/// The picture and the colour of a habit, to choose from rows of each. Tab goes to the chosen one of a row,
/// arrows to the others.
class HabitLookPicker : public QWidget {
    Q_OBJECT

public:
    /// What is none of those that can be chosen stays as long as nothing is chosen.
    HabitLookPicker(const QString &iconRes, const QString &color, QWidget *parent = nullptr);

    const QString &iconRes() const { return m_iconRes; }
    const QString &color() const { return m_color; }

private:
    QWidget *makePictures();
    QWidget *makeColors();

    QString m_iconRes;
    QString m_color;
    QButtonGroup *m_pictures;
};
