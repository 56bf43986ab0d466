#pragma once

#include "views/addfield/KWCandidatePopover.h"

class KWTagCandidatePopover final : public KWCandidatePopover {
public:
    using KWCandidatePopover::KWCandidatePopover;
    TokenKind kind() const override { return TokenKind::Tag; }
    void updateData(const Context &context) override;

protected:
    bool mayBeNew() const override { return true; }
};

class KWPriorityCandidatePopover final : public KWCandidatePopover {
public:
    using KWCandidatePopover::KWCandidatePopover;
    TokenKind kind() const override { return TokenKind::Priority; }
    void updateData(const Context &context) override;
};

class KWListCandidatePopover final : public KWCandidatePopover {
public:
    using KWCandidatePopover::KWCandidatePopover;
    TokenKind kind() const override { return TokenKind::List; }
    void updateData(const Context &context) override;

protected:
    bool mayBeNew() const override { return true; }
};

/// The members of the list that the task goes to.
class KWMentionCandidatePopover final : public KWCandidatePopover {
public:
    using KWCandidatePopover::KWCandidatePopover;
    TokenKind kind() const override { return TokenKind::Assignee; }
    void updateData(const Context &context) override;
};

class KWDateCandidatePopover final : public KWCandidatePopover {
public:
    using KWCandidatePopover::KWCandidatePopover;
    TokenKind kind() const override { return TokenKind::Date; }
    void updateData(const Context &context) override;
};
