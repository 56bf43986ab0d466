#include "calendar/KWAsyncOperation.h"

#include <utility>

void KWAsyncOperation::finish()
{
    m_state = State::Finished;
    if (const auto finished = std::exchange(m_finished, nullptr)) finished();
}

OperationQueue::~OperationQueue()
{
    cancelAllOperations();
    for (const auto &each : m_operations)
        each->m_finished = nullptr;
}

void OperationQueue::addOperation(std::shared_ptr<KWAsyncOperation> operation)
{
    m_operations.push_back(std::move(operation));
    if (m_operations.size() == 1) startNext();
}

void OperationQueue::cancelAllOperations()
{
    for (const auto &each : m_operations)
        each->cancel();
    std::erase_if(m_operations,
                  [](const auto &each) { return each->state() == KWAsyncOperation::State::Ready; });
}

void OperationQueue::startNext()
{
    if (m_operations.empty()) return;
    const std::shared_ptr<KWAsyncOperation> next = m_operations.front();
    next->m_state = KWAsyncOperation::State::Executing;
    next->m_finished = [this] {
        m_operations.erase(m_operations.begin());
        startNext();
    };
    next->main();
}
