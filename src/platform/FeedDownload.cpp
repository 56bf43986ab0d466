#include "platform/FeedDownload.h"

#include "platform/FeedTransfer.h"

FeedDownload::FeedDownload(CXClock &clock) : m_clock(clock) {}

void FeedDownload::download(const FeedRequest &request, Completion completion)
{
    auto *transfer = new FeedTransfer{m_network, m_clock, request, std::move(completion)};
    transfer->setParent(this);
    transfer->begin();
}
