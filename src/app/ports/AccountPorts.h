#pragma once

#include "model/records/KWUserModel.h"

#include <optional>

/// What a start, a sign-in and a sign-out call for the account. Each class that can be is also the room
/// that is not there: it does nothing. Main thread; work on the network begins here and ends later.

/// Who is signed in.
class AccountPort {
public:
    virtual ~AccountPort() = default;
    /// Reads again who is signed in.
    virtual void refreshCurrentUser() = 0;
    virtual const std::optional<KWUserModel> &currentUser() const = 0;
};

class AccountDetailsPort {
public:
    virtual ~AccountDetailsPort() = default;
    virtual void fetchProfile() {}
    virtual void fetchAvatar() {}
    virtual void fetchStatus() {}
};

class AnalyticsPort {
public:
    virtual ~AnalyticsPort() = default;
    virtual void start() {}
    virtual void setUser(const QString & /*userID*/, const QString & /*nickName*/) {}
};

class TeamLoaderPort {
public:
    virtual ~TeamLoaderPort() = default;
    virtual void update() {}
};

class AttachmentsPort {
public:
    virtual ~AttachmentsPort() = default;
    /// Goes on with the files that an earlier run did not bring to their end.
    virtual void processLeftFromLastRun() {}
};

/// What habits ask for once a day.
class DailyCheckPort {
public:
    virtual ~DailyCheckPort() = default;
    virtual void run() {}
};

class HolidaysPort {
public:
    virtual ~HolidaysPort() = default;
    virtual void userDidSignIn() {}
};

class RemotePushPort {
public:
    virtual ~RemotePushPort() = default;
    virtual void registerIfNeeded() {}
};
