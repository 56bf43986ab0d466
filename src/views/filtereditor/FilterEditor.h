#pragma once

#include "views/filtereditor/FilterChoices.h"

#include "corvexkit/filter/CXSmartFilter.h"

#include <QDialog>

#include <functional>

class ConditionRow;
class QComboBox;
class QLabel;
class QLineEdit;
class QScrollArea;
class QVBoxLayout;

/// A window in which a filter is made or changed: its name, its conditions one below the other, and how
/// many tasks fit now. Enter saves, Escape leaves everything as it was.
class FilterEditor : public QDialog {
    Q_OBJECT

public:
    struct Content {
        QString name;
        CXSmartFilter filter;
    };
    FilterEditor(const Content &content, FilterChoices choices, Day today, QWidget *parent);

    Content content() const;

    /// Says how many tasks a filter shows; asked after every change.
    void setCount(const std::function<Result<int>(const CXSmartFilter &)> &count);
    /// Counts again.
    void refreshCount();
    /// Why the filter could not be saved, or not be read.
    void showProblem(const QString &sentence);

public Q_SLOTS:
    /// Escape: what is not saved goes at the second one only.
    void reject() override;

Q_SIGNALS:
    /// Its content can be saved; close the window when it is.
    void saveRequested();

private:
    QLayout *makeFooter();
    void addRow(const CXSmartFilterCondition &condition);
    void removeRow(ConditionRow *row);
    void orderTabs();
    void save();
    void changed();

    FilterChoices m_choices;
    const Day m_today;
    QLineEdit *m_name;
    QComboBox *m_join;
    QVBoxLayout *m_rowsLayout;
    QScrollArea *m_area;
    QLabel *m_countLabel;
    QLabel *m_message;
    QList<QWidget *> m_buttons; // below the rows
    QList<ConditionRow *> m_rows;
    bool m_isChanged = false;
    bool m_hasWarned = false;
    std::function<Result<int>(const CXSmartFilter &)> m_count;
};
