#pragma once

#include "corvexkit/filter/CXSmartFilterCondition.h"

#include <QWidget>

class ChoicesButton;
class QDateEdit;
class QSpinBox;

/// The dates of a condition: the usual ones by name, days counted from today, and a stretch of the calendar.
class DateSpanEdit : public QWidget {
    Q_OBJECT

public:
    explicit DateSpanEdit(Day today, QWidget *parent = nullptr);

    CXSmartFilterCondition::Dates dates() const;
    void setDates(const CXSmartFilterCondition::Dates &dates);
    /// Why these dates cannot be; empty when they can.
    QString problem() const;
    /// What Tab stops at, in its order.
    QList<QWidget *> controls() const;

Q_SIGNALS:
    void changed();

private:
    QWidget *makeRelative();
    QWidget *makeFixed(Day today);
    void showParts();
    CXDateSpan relative() const;
    CXDateSpan fixed() const;

    ChoicesButton *m_choices;
    QWidget *m_relative;
    QWidget *m_fixed;
    QSpinBox *m_first;
    QSpinBox *m_last;
    QDateEdit *m_from;
    QDateEdit *m_until;
    QList<CXDateSpan> m_more; // stretches beside the ones that are shown; they stay
};
