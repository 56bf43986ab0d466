#pragma once

#include <QString>

#include <atomic>
#include <functional>
#include <memory>
#include <vector>

/// Work that a queue starts and that ends some time later. Main thread, but for isCancelled().
class KWAsyncOperation : public std::enable_shared_from_this<KWAsyncOperation> {
public:
    enum class State { Ready, Executing, Finished };

    virtual ~KWAsyncOperation() = default;

    State state() const { return m_state; }
    /// It ends at its next chance to, or never begins.
    void cancel() { m_isCancelled = true; }
    /// Any thread.
    bool isCancelled() const { return m_isCancelled; }

protected:
    /// Begins the work, which calls finish() when it is done.
    virtual void main() = 0;
    void finish();

private:
    friend class OperationQueue;

    State m_state = State::Ready;
    std::atomic<bool> m_isCancelled = false;
    std::function<void()> m_finished;
};

/// Operations one after another, in the order in which they came. Main thread.
class OperationQueue {
public:
    OperationQueue() = default;
    OperationQueue(const OperationQueue &) = delete;
    OperationQueue &operator=(const OperationQueue &) = delete;
    /// Cancels all; what is under way tells nobody that it has finished.
    ~OperationQueue();

    void addOperation(std::shared_ptr<KWAsyncOperation> operation);
    /// What is under way ends by itself; what has not begun is dropped.
    void cancelAllOperations();

private:
    void startNext();

    std::vector<std::shared_ptr<KWAsyncOperation>> m_operations; // the first may be under way
};
