#pragma once

#include "model/records/KWConstants.h"

#include <QWidget>

class FocusPanel;
class FocusPresenter;
class IconButton;
class QGridLayout;
class QLabel;
class QVBoxLayout;
class SegmentedControl;

/// The middle column with the session of focus: the head with the choice between Pomo and stopwatch, and the
/// panel. The focus that it is given goes to the button that is asked for most.
class FocusPane : public QWidget {
    Q_OBJECT

public:
    explicit FocusPane(QWidget *parent = nullptr);

    /// Fills it, once; the presenter outlives it.
    void setPresenter(FocusPresenter &presenter);
    /// None before.
    FocusPanel *panel() const { return m_panel; }
    void showMode(KWFocusType mode);
    /// Whether the records stand in a sheet that a button opens.
    void setHasSheet(bool hasSheet);

Q_SIGNALS:
    void preferencesRequested();
    void windowRequested();
    /// The sheet with the records.
    void recordsRequested();
    /// The pane comes into view or goes.
    void shownChanged();

protected:
    void showEvent(QShowEvent *event) override;
    void hideEvent(QHideEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    void makeHead();
    void arrangeHead();

    FocusPresenter *m_presenter = nullptr;
    FocusPanel *m_panel = nullptr;
    QLabel *m_title;
    SegmentedControl *m_modes;
    IconButton *m_records;
    IconButton *m_window;
    IconButton *m_settings;
    QWidget *m_buttons;
    QGridLayout *m_head;
    QVBoxLayout *m_column;
};
