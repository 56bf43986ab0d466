#pragma once

#include "calendar/subscriptions/FeedDownloadPort.h"

/// A calendar in a file of this computer; its date is the one of the file. Any thread.
Result<FeedAnswer> readFeedFile(const FeedRequest &request);
