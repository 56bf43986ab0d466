#pragma once

#include <QWidget>

#include <optional>

class IconButton;
class QAbstractButton;
class TextButton;

/// The head of a page: its title, a quiet note beside it, and at the other end what can be done with the
/// page as a whole.
class PageHeader : public QWidget {
    Q_OBJECT

public:
    explicit PageHeader(QWidget *parent = nullptr);

    void setTitle(const QString &title);
    void setNote(const QString &note);
    /// A mark before the title in the colour of a calendar, see ItemColors::edgeOf(); nothing for none.
    void setDot(const std::optional<QString> &color);
    /// The button's text; without one there is no button.
    void setAction(const QString &text);
    /// The same of the button that opens the menu of sort types.
    void setSorting(const QString &text);
    QWidget &sortButton() const;
    /// The button that opens the menu of the page.
    QWidget &menuButton() const;

    QSize sizeHint() const override;

Q_SIGNALS:
    void actionTriggered();
    void sortMenuRequested();
    void menuRequested();

protected:
    void resizeEvent(QResizeEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    static void setText(TextButton &button, const QString &text);
    void placeButtons();
    QList<QAbstractButton *> buttons() const;
    int buttonsWidth() const;

    TextButton *m_sort;
    TextButton *m_action;
    IconButton *m_menu;
    QString m_title;
    QString m_note;
    std::optional<QString> m_dot;
};
