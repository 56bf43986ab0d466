#include "client/RelaunchArguments.h"

using namespace Qt::StringLiterals;

QStringList relaunchArguments(const Invocation &invocation, bool isInBackground)
{
    QStringList arguments;
    for (const auto &[name, value] : {std::pair{u"--home"_s, invocation.home},
                                      {u"--locale"_s, invocation.locale},
                                      {u"--zone"_s, invocation.zone},
                                      {u"--theme"_s, invocation.theme}})
        if (!value.isEmpty()) arguments << name << value;
    // The folder of this one goes with it; the account of the person is not to open in its place.
    if (invocation.isDemo && invocation.home.isEmpty()) arguments << u"--demo"_s;
    if (isInBackground) arguments << u"--login-item"_s;
    return arguments;
}
