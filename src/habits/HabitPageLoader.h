#pragma once

#include "habits/HabitDetailContent.h"
#include "habits/HabitPageContent.h"

#include <QObject>

#include <memory>

class OrvaneKit;

/// Reads the page of habits, and one habit in detail, in the background, and again whenever something on them
/// may have changed. Main thread.
class HabitPageLoader : public QObject {
    Q_OBJECT

public:
    /// The kit outlives it.
    explicit HabitPageLoader(OrvaneKit &kit);
    ~HabitPageLoader() override;

    void load();
    /// Of which habit the detail is read; none with an empty id. The month is any day of it.
    void showDetail(const QString &habitID, Day month);
    /// Reads nothing until the next load().
    void stop();

    Day today() const;
    std::chrono::weekday firstWeekday() const;

Q_SIGNALS:
    /// Not when it is as it was.
    void pageLoaded(const HabitPageContent &content);
    void detailLoaded(const HabitDetailContent &content);
    /// The habit of the detail is gone.
    void detailGone();
    void failed(const QString &sentence);

private:
    struct State;
    std::unique_ptr<State> m_state;
};
