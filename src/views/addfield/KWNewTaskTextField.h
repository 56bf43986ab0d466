#pragma once

#include "views/addfield/KWTagCandidateTextField.h"

#include <functional>

class FieldPickers;

/// The field in which a task is typed. Enter submits, Escape gives the focus away.
class KWNewTaskTextField : public KWTagCandidateTextField {
    Q_OBJECT

public:
    /// How far the ring of the focused field stands out of its outline, on every side of the widget.
    static constexpr int ring = 3;

    explicit KWNewTaskTextField(QWidget *parent = nullptr);
    ~KWNewTaskTextField() override;

    /// What the field was opened with.
    const QString &presetContent() const { return m_presetContent; }
    void setPresetContent(const QString &content);

    void setPlaceholder(const QString &placeholder);
    /// Shown instead for a while; empty: the other one again.
    void setPassingPlaceholder(const QString &placeholder);
    const QString &placeholder() const
    {
        return m_passingPlaceholder.isEmpty() ? m_placeholder : m_passingPlaceholder;
    }
    /// What becomes of the text, for screen readers; empty while there is none.
    void setUnderstood(const QString &words);
    /// Whether the placeholder teaches, where there is room: shows an example of what can be typed.
    bool isDetailedPlaceholder() const { return m_isDetailedPlaceholder; }
    void setDetailedPlaceholder(bool isDetailed);
    void setLesson(const QString &example);

    /// Enter in the field submits nothing typed, too.
    bool canBeEmpty = false;
    /// Asked for pasted text that has line breaks, when that is what the clipboard holds: whether somebody
    /// else takes care of it. Else its lines are joined at the end of the text.
    std::function<bool(const QString &pasted)> shouldCreateMultiTasks;
    /// Adds the text, its line breaks as spaces, behind what is there.
    void appendLines(const QString &lines);

    /// The buttons at its end; there while it has a text or the keyboard, or something was chosen.
    FieldPickers &pickers() { return *m_pickers; }

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

Q_SIGNALS:
    /// Enter. The text stays until whoever saved it clears it.
    void submitted(const QString &text);
    /// Escape: the person is done here.
    void left();
    /// Down: on to what stands below.
    void steppedDown();
    /// The question mark of the empty field.
    void helpRequested();

protected:
    bool event(QEvent *event) override;
    bool canInsertFromMimeData(const QMimeData *source) const override;
    void insertFromMimeData(const QMimeData *source) override;
    void inputMethodEvent(QInputMethodEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void dress() override;

private:
    void paintFrame();
    void describe();
    void paintPlaceholder() const;
    QString shownPlaceholder(int width) const;
    void arrange();
    bool isInUse() const;
    bool showsHint() const;
    bool isOnHelp(const QEvent &event);
    QRect helpBounds() const;

    FieldPickers *m_pickers;
    QString m_presetContent;
    QString m_placeholder;
    QString m_passingPlaceholder;
    QString m_lesson;
    QString m_understood;
    bool m_isDetailedPlaceholder = true;
};
