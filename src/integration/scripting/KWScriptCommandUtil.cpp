#include "integration/scripting/KWScriptCommandUtil.h"

#include "corvexkit/log/CXLog.h"
#include "model/OrvaneKit.h"

using namespace Qt::StringLiterals;

namespace {

constexpr CXLogger scriptLog{u"script"};

} // namespace

bool KWScriptCommandUtil::begin(QLatin1StringView command, const ScriptCommandDescription &description,
                                const ScriptSurroundings &with)
{
    if (with.kit.manager().needsMigration() || !with.kit.account().isSignedIn()) return false;
    const QString from = description.from();
    if (from == recordedCaller) with.usage.record(usageCategory, u"action"_s, command);
    scriptLog.info([&] { return u"apple script: "_s + command + u", from: "_s + from; });
    return true;
}

std::optional<QString> KWScriptCommandUtil::answer(const Result<QString> &text)
{
    if (text) return *text;
    scriptLog.error(text.error().sentence);
    return std::nullopt;
}
