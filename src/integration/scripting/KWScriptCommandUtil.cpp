#include "integration/scripting/KWScriptCommandUtil.h"

#include "corvexkit/log/CXLog.h"
#include "model/OrvaneKit.h"
#include "model/records/OneLine.h"

using namespace Qt::StringLiterals;

namespace {

constexpr CXLogger scriptLog{u"script"};
constexpr qsizetype longestLogged = 200; // of what a caller calls itself

} // namespace

bool KWScriptCommandUtil::begin(QLatin1StringView command, const ScriptCommandDescription &description,
                                const ScriptSurroundings &with)
{
    if (with.kit.manager().needsMigration() || !with.kit.account().isSignedIn()) return false;
    const QString from = description.from();
    if (from == recordedCaller) with.usage.record(usageCategory, u"action"_s, command);
    scriptLog.info(
        [&] { return u"apple script: "_s + command + u", from: "_s + onOneLine(from.left(longestLogged)); });
    return true;
}

std::optional<QString> KWScriptCommandUtil::answer(const Result<QString> &text)
{
    if (text) return *text;
    scriptLog.error(text.error().sentence);
    return std::nullopt;
}
