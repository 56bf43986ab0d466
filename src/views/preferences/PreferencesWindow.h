#pragma once

#include <QWidget>

class PreferencesPage;
class QLabel;
class QListWidget;
class QStackedWidget;

/// The preferences: their pages at the left, the chosen one at the right, and a line at the bottom for what
/// could not be done. Escape closes it; what was changed is saved already.
class PreferencesWindow : public QWidget {
    Q_OBJECT

public:
    explicit PreferencesWindow(QWidget *parent = nullptr);

    void addPage(PreferencesPage *page);
    /// By object name; the first one for a name that is none.
    void showPage(const QString &name);
    void showMessage(const QString &sentence);

protected:
    void resizeEvent(QResizeEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    QListWidget *m_names;
    QStackedWidget *m_pages;
    QLabel *m_message;
};
