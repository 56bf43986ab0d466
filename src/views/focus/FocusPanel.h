#pragma once

#include "views/focus/FocusRing.h"

class FocusPresenter;
class FocusTargetButton;
class PillButton;
class QLabel;

/// A session at work: what it is spent on, its clock, and the buttons for what can be done with it. Space
/// starts, pauses and goes on. While nobody sees it, a tick touches nothing.
class FocusPanel : public QWidget {
    Q_OBJECT

public:
    /// The presenter outlives it.
    FocusPanel(FocusPresenter &presenter, FocusRing::Size size, QWidget *parent = nullptr);

    void setMode(KWFocusType mode);
    KWFocusType mode() const { return m_mode; }
    FocusRing &ring() { return *m_ring; }
    /// Opens the popup that asks what is focused on.
    void pickTarget();
    /// Starts, pauses, goes on or relaxes.
    void performFirst();

Q_SIGNALS:
    /// Because that one runs now.
    void modeChanged(KWFocusType mode);

protected:
    void showEvent(QShowEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    void addParts();
    void refresh();
    void tick();
    void showCommands(const QList<FocusCommand> &commands);

    FocusPresenter &m_presenter;
    const FocusRing::Size m_size;
    KWFocusType m_mode;
    FocusTargetButton *m_target;
    FocusRing *m_ring;
    QLabel *m_words;
    QLabel *m_notice;
    QList<PillButton *> m_buttons;
    QList<FocusCommand> m_commands;
};
