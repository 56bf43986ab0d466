#pragma once

#include "views/habits/HabitListModel.h"

#include <QWidget>

class HabitListView;
class IconButton;
class QLabel;
class QPushButton;
class QStackedWidget;
class TextButton;

/// The middle column with the habits: the head of the page, the list, and in place of an empty one what to do
/// next. The focus that it is given goes to the list. Insert makes a habit, also where there is none.
class HabitPane : public QWidget {
    Q_OBJECT

public:
    explicit HabitPane(QWidget *parent = nullptr);

    HabitListView &list() { return *m_list; }
    HabitListModel &model() { return m_model; }
    const HabitPageContent &content() const { return m_content; }

    void setContent(const HabitPageContent &content, std::chrono::weekday firstWeekday);
    /// The archived habits in place of the others, or back.
    void show(HabitListModel::Shows shows);
    HabitListModel::Shows shows() const { return m_shows; }
    QWidget &menuButton() const;

Q_SIGNALS:
    void creationRequested();
    void menuRequested();
    /// The pane comes into view or goes.
    void shownChanged();

protected:
    void showEvent(QShowEvent *event) override;
    void hideEvent(QHideEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    QLayout *makeHeader();
    QWidget *makeEmptyPage();
    void refresh();

    HabitListModel m_model;
    HabitPageContent m_content;
    std::chrono::weekday m_firstWeekday = std::chrono::Monday;
    HabitListModel::Shows m_shows = HabitListModel::Shows::Active;
    QLabel *m_title;
    TextButton *m_back;
    IconButton *m_add;
    IconButton *m_menu;
    HabitListView *m_list;
    QLabel *m_emptyText;
    QLabel *m_emptyHint;
    QPushButton *m_first;
    QStackedWidget *m_pages;
};
