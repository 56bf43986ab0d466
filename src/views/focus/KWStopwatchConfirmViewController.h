#pragma once

#include <QWidget>

#include <functional>
#include <optional>

class QLabel;
class QLineEdit;
class QPushButton;

/// The length of a timing in hours and minutes, to agree to or to shorten, and the button that does so. What
/// is wrong is said below the fields. Lengths are seconds.
class KWStopwatchConfirmViewController : public QWidget {
    Q_OBJECT

public:
    KWStopwatchConfirmViewController(double originalDuration, bool isAutoStoped, QWidget *parent = nullptr);

    bool isAutoStoped() const { return m_isAutoStoped; }
    double originalDuration() const { return m_originalDuration; }

    /// Hears every length that is typed and not above the original.
    std::function<void(double)> valueChangedHandler;
    /// Called when the length that stands there can be taken.
    std::function<void()> confirmActionHandler;

    void focusFirstField();

private:
    // A field with its unit, in one box.
    struct Part {
        QWidget *borderView;
        QLineEdit *textField;
        QLabel *label;
    };
    Part makePart(const char *name, const QString &what, int value);
    QString message() const;
    std::optional<int> numberIn(const QLineEdit &field) const;
    std::optional<double> typedDuration() const;
    QString problemWith(std::optional<double> typed) const;
    void edited();
    void confirm();
    void showUnits();

    const double m_originalDuration;
    const bool m_isAutoStoped;
    QLabel *m_message;
    Part m_hrs;
    Part m_mins;
    QLabel *m_problem;
    QPushButton *m_confirm;
};
