#pragma once

#include "corvexkit/stopwatch/StopwatchStore.h"

/// Keeps the text of a stopwatch in memory, which may be taken away.
class MemoryStopwatchStore final : public Corvex::Focus::StopwatchStore {
public:
    QString text;
    QStringList aside;
    bool isBroken = false;
    int saveCount = 0;

    Result<QString> load() override
    {
        if (isBroken) return broken();
        return text;
    }
    Result<void> save(const QString &newText) override
    {
        if (isBroken) return broken();
        ++saveCount;
        text = newText;
        return {};
    }
    Result<void> clear() override { return save({}); }
    Result<void> putAside() override
    {
        aside.append(text);
        return clear();
    }

private:
    static Error broken() { return {QStringLiteral("The disk is gone.")}; }
};
