#pragma once

#include "corvexkit/filter/CXSmartFilterCondition.h"

#include <QWidget>

class ChoicesButton;
class DateSpanEdit;
class QComboBox;
class QHBoxLayout;
class QLabel;
class QLineEdit;
struct FilterChoices;

/// One condition of the filter editor: what it is about, whether it must be so or not, what it looks for.
/// Several conditions that were joined elsewhere stand in one row, and stay as they are.
class ConditionRow : public QWidget {
    Q_OBJECT

public:
    ConditionRow(const CXSmartFilterCondition &condition, const FilterChoices &choices, Day today,
                 QWidget *parent = nullptr);

    CXSmartFilterCondition condition() const;
    /// Why the condition cannot be; empty when it can.
    QString problem() const;
    void focusOnValue();
    /// What Tab stops at, in its order.
    QList<QWidget *> controls() const;

Q_SIGNALS:
    void changed();
    void removalRequested();
    /// controls() are others now.
    void controlsChanged();

private:
    void makeValue(const CXSmartFilterCondition::Question &question);
    QWidget *valueFor(const CXSmartFilterCondition::Question &question);
    ChoicesButton *makeChoices(const CXSmartFilterCondition::Question &question);

    const FilterChoices &m_choices;
    const Day m_today;
    QHBoxLayout *m_row;
    QComboBox *m_subject = nullptr; // none of joined conditions
    QComboBox *m_isNot;
    QWidget *m_remove;
    QWidget *m_value = nullptr; // one of those below, or a label
    ChoicesButton *m_chosen = nullptr;
    DateSpanEdit *m_dates = nullptr;
    QLineEdit *m_words = nullptr;
    CXSmartFilterCondition::Question m_question; // as it came, or of the subject that was chosen
};
