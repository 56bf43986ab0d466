#include "integration/scripting/KWPomoScriptCommand.h"

#include "integration/scripting/KWScriptCommandUtil.h"

namespace {

std::optional<std::int64_t> wholeNumber(const QVariant &value)
{
    switch (value.userType()) {
    case QMetaType::UChar:
    case QMetaType::Short:
    case QMetaType::UShort:
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::LongLong:
        return value.toLongLong();
    default:
        return std::nullopt;
    }
}

} // namespace

std::optional<QString> KWPomoScriptCommand::performDefaultImplementation()
{
    if (!KWScriptCommandUtil::begin(name, description(), with())) return std::nullopt;
    const std::optional<std::int64_t> seconds = wholeNumber(description().directParameter);
    FocusStartPort &focus = with().focus;
    if (!seconds || !focus.isPomoEnabled()) return std::nullopt;
    if (!focus.isPomoRunning() && !focus.isStopWatchRunning()) focus.startPomo(*seconds);
    return std::nullopt;
}
