#pragma once

#include <QObject>

#include <functional>

/// Asks before the program ends with text that is not saved. Main thread.
class QuitQuestion : public QObject {
public:
    struct Answers {
        /// The program ends in any case, and nobody is asked.
        std::function<bool()> isSettled;
        /// The person would rather see to the text.
        std::function<void()> refused;
    };
    explicit QuitQuestion(Answers answers);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    bool mayQuit();

    Answers m_answers;
    bool m_isAsking = false;
};
