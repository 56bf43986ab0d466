#include "model/store/FocusThings.h"

#include "model/settings/KWLocalizedString.h"

using namespace Qt::StringLiterals;

namespace {

DatedThing sessionOf(const FocusRow &row)
{
    DatedThing thing;
    thing.kind = DatedThing::Kind::Focus;
    thing.sid = row.sessionID;
    thing.isReadOnly = true;
    thing.startDate = row.sessionStart;
    thing.endDate = row.sessionEnd;
    return thing;
}

} // namespace

Result<std::vector<DatedThing>> readFocusThings(const FocusRowsRequest &request,
                                                const QStringList &hiddenLists, ObjectContext &context)
{
    const auto rows = readFocusRows(request, context);
    if (!rows) return rows.error();
    std::vector<DatedThing> things;
    QStringList titles; // of the last one
    const auto nameLast = [&things, &titles] {
        if (!things.empty())
            things.back().title = titles.isEmpty() ? KWLocalizedString("Focus") : titles.join(u", "_s);
    };
    for (const FocusRow &each : *rows) {
        if (hiddenLists.contains(each.listID)) continue;
        if (things.empty() || things.back().sid != each.sessionID) {
            nameLast();
            titles.clear();
            things.push_back(sessionOf(each));
        }
        if (!each.title.isEmpty() && !titles.contains(each.title)) titles += each.title;
        if (things.back().listID.isEmpty()) things.back().listID = each.listID;
        if (things.back().color.isEmpty()) things.back().color = each.color;
    }
    nameLast();
    return things;
}
