#pragma once

#include <QLineEdit>

#include <chrono>
#include <optional>

/// A time of day, typed in any usual way ("9", "9:30", "930", "5 pm") or stepped by a quarter of an hour
/// with the arrows; the way it is shown follows the settings. Empty is no time.
class TimeField : public QLineEdit {
    Q_OBJECT

public:
    explicit TimeField(QWidget *parent = nullptr);

    void setTime(std::optional<std::chrono::minutes> time);
    std::optional<std::chrono::minutes> time() const { return m_time; }
    /// Also takes a length, such as "1h 30m" or "45 min".
    void setTakesDuration(bool takes) { m_takesDuration = takes; }
    /// What an arrow steps from while it is empty.
    void setFirstStep(std::chrono::minutes time) { m_firstStep = time; }
    /// Whether what is typed means something.
    bool isReadable() const { return m_isReadable; }

    static std::optional<std::chrono::minutes> timeIn(const QString &typed);
    static std::optional<std::chrono::minutes> durationIn(const QString &typed);

Q_SIGNALS:
    /// By typing or stepping, whenever it means something else.
    void timeChanged(std::optional<std::chrono::minutes> time);
    void durationTyped(std::chrono::minutes duration);

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;

private:
    void readTyped(const QString &typed);
    void step(int quarters);
    void showTime();

    std::optional<std::chrono::minutes> m_time;
    std::chrono::minutes m_firstStep{std::chrono::hours{9}};
    bool m_takesDuration = false;
    bool m_isReadable = true;
};
