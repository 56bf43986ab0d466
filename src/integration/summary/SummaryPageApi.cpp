#include "integration/summary/SummaryPageApi.h"

#include "integration/summary/SummaryDocument.h"
#include "integration/summary/SummaryMarkdown.h"
#include "integration/summary/SummaryReader.h"
#include "model/OrvaneKit.h"
#include "model/events/NotificationNames.h"
#include "model/records/KWProject.h"
#include "model/records/KWSmartProject.h"
#include "model/records/KWUserSettings.h"
#include "model/settings/KWLocalizedString.h"
#include "model/settings/KWUserDefaults.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QLocale>
#include <QPointer>

using namespace Qt::StringLiterals;

namespace {

struct PageText {
    const char *key;
    const char *text;
};

constexpr PageText pageTexts[] = {
    {"heading", "Summary"},
    {"range", "Days"},
    {"today", "Today"},
    {"yesterday", "Yesterday"},
    {"thisWeek", "This Week"},
    {"lastWeek", "Last Week"},
    {"thisMonth", "This Month"},
    {"lastMonth", "Last Month"},
    {"days", "From … to …"},
    {"from", "From"},
    {"to", "To"},
    {"lists", "Lists"},
    {"allLists", "All Lists"},
    {"statuses", "Tasks"},
    {"completed", "Completed"},
    {"open", "Open"},
    {"group", "Grouped by"},
    {"day", "Day"},
    {"list", "List"},
    {"status", "Status"},
    {"fields", "Shown"},
    {"field.list", "List"},
    {"field.tags", "Tags"},
    {"field.date", "Date"},
    {"field.completion", "Completion"},
    {"field.text", "Text"},
    {"field.focusTime", "Focus of each"},
    {"field.focus", "Focus"},
    {"field.habits", "Habits"},
    {"edit", "Edit"},
    {"preview", "Preview"},
    {"markdown", "Summary as Markdown"},
    {"copy", "Copy"},
    {"copyMarkdown", "Copy Markdown"},
    {"copyPlainText", "Copy Plain Text"},
    {"copyRichText", "Copy with Formatting"},
    {"exportPdf", "PDF…"},
    {"exportPNG", "Picture…"},
    {"exportMail", "Mail…"},
    {"insertSummary", "Insert"},
    {"copied", "The summary is on the clipboard."},
    {"edited", "You have changed this text. Another choice writes it anew."},
    {"rewrite", "Write Anew"},
    {"keep", "Keep My Text"},
};

QString textOf(const QJsonObject &object)
{
    return QString::fromUtf8(QJsonDocument{object}.toJson(QJsonDocument::Compact));
}

QJsonObject textsOfPage()
{
    QJsonObject texts;
    for (const PageText &each : pageTexts)
        texts.insert(QString::fromLatin1(each.key), KWLocalizedString(each.text));
    return texts;
}

SummaryChoice choiceOf(const QJsonObject &json, OrvaneKit &kit)
{
    return SummaryChoice::fromJson(
        json, kit.clock().today(),
        KWUserSettings::firstWeekdayOfUser(kit.account().currentUserID(), kit.context()));
}

// As it looks; a text of so many lines that laying it out would hold up the client, as it stands.
QString shownMarkdown(const QString &markdown)
{
    constexpr qsizetype mostLines = 3000;
    constexpr qsizetype mostCharacters = 200'000;
    if (markdown.size() > mostCharacters || markdown.count(u'\n') > mostLines)
        return u"<pre>"_s + markdown.toHtmlEscaped() + u"</pre>"_s;
    return SummaryDocument::htmlOfMarkdown(markdown);
}

QString pageOf(const SummaryContent &content, const CXTimeZone &zone)
{
    const QLocale locale;
    const QString markdown = summaryMarkdown(content, zone, locale);
    return textOf({{u"title"_s, summaryTitle(content, locale)},
                   {u"markdown"_s, markdown},
                   {u"html"_s, shownMarkdown(markdown)}});
}

} // namespace

SummaryPageApi::SummaryPageApi(OrvaneKit &kit, QObject *parent)
    : JsApiHandleObject(parent)
    , m_kit(kit)
    , m_registration(kit.bus().registerEventBus([this](const StoreChange &) { Q_EMIT summaryChanged({}); }))
    , m_newDay(kit.center().addObserver(KWNewDayComesNotification,
                                        [this](const auto &) { Q_EMIT summaryChanged({}); }))
{
}

QString SummaryPageApi::openSummary(const QString &)
{
    const QString userID = m_kit.account().currentUserID();
    QJsonArray lists;
    for (const KWProject *each : KWProject::findProjectsOfUser(userID, ProjectScope::Open, m_kit.context()))
        if (!each->isNoteKind())
            lists.append(QJsonObject{
                {u"id"_s, each->sid()},
                {u"name"_s, each->isInbox() ? KWSmartProject::inbox().displayName() : each->model().name}});
    const QByteArray kept = m_kit.defaults().value(Settings::summaryChoice, userID).toUtf8();
    return textOf({{u"texts"_s, textsOfPage()},
                   {u"lists"_s, lists},
                   {u"choice"_s, choiceOf(QJsonDocument::fromJson(kept).object(), m_kit).toJson()},
                   {u"canInsert"_s, m_canInsert}});
}

QString SummaryPageApi::requestSummary(const QString &text)
{
    const QJsonDocument document = QJsonDocument::fromJson(text.toUtf8());
    if (!document.isObject()) return {};
    const QString userID = m_kit.account().currentUserID();
    if (userID.isEmpty()) return {};
    const SummaryChoice choice = choiceOf(document.object(), m_kit);
    m_kit.defaults().set(Settings::summaryChoice, textOf(choice.toJson()), userID);
    if (m_isReading)
        m_next = choice;
    else
        read(choice);
    return {};
}

void SummaryPageApi::read(const SummaryChoice &choice)
{
    m_isReading = true;
    auto content = std::make_shared<SummaryContent>();
    KWCoreDataService{m_kit.manager()}.async_perform(
        [choice, userID = m_kit.account().currentUserID(), content](ObjectContext &context) -> Result<void> {
            auto summary = readSummary(choice, userID, context);
            if (!summary) return summary.error();
            *content = std::move(*summary);
            return {};
        },
        [self = QPointer{this}, content](const Result<void> &done) {
            if (self) self->finish(*content, done);
        });
}

void SummaryPageApi::finish(const SummaryContent &content, const Result<void> &done)
{
    m_isReading = false;
    if (const auto next = std::exchange(m_next, std::nullopt)) return read(*next);
    Q_EMIT summaryRead(done ? pageOf(content, m_kit.clock().zone())
                            : textOf({{u"error"_s, done.error().sentence}}));
}

QString SummaryPageApi::htmlOfMarkdown(const QString &markdown) { return shownMarkdown(markdown); }
