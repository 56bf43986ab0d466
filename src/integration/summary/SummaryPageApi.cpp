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
using namespace std::chrono_literals;

namespace {

constexpr auto changesAreJoined = 300ms;

struct PageText {
    const char *key;
    const char *text;
};

constexpr PageText pageTexts[] = {
    {"language", "en"}, // of these texts, by BCP 47
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
    {"cancel", "Cancel"},
    {"shortened", "A summary is of ten years at most. This one begins later than was chosen."},
};

template <class Json>
QString textOf(const Json &json)
{
    return QString::fromUtf8(QJsonDocument{json}.toJson(QJsonDocument::Compact));
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

QString asItStands(const QString &markdown) { return u"<pre>"_s + markdown.toHtmlEscaped() + u"</pre>"_s; }

// As it looks; a text of so many lines that nobody would wait for it to be laid out, as it stands.
QString shownMarkdown(const QString &markdown)
{
    constexpr qsizetype mostLines = 3000;
    constexpr qsizetype mostCharacters = 200'000;
    const bool isLong = markdown.size() > mostCharacters || markdown.count(u'\n') > mostLines;
    return isLong ? asItStands(markdown) : SummaryDocument::htmlOfMarkdown(markdown);
}

QString pageOf(const SummaryContent &content, const CXTimeZone &zone)
{
    const QLocale locale;
    const QString markdown = summaryMarkdown(content, zone, locale);
    return textOf(QJsonObject{{u"title"_s, summaryTitle(content, locale)},
                              {u"markdown"_s, markdown},
                              {u"html"_s, shownMarkdown(markdown)},
                              {u"isShortened"_s, content.choice.isShortened}});
}

} // namespace

SummaryPageApi::SummaryPageApi(OrvaneKit &kit, CXClock &clock, HiddenTasks hiddenTasks, QObject *parent)
    : JsApiHandleObject(parent)
    , m_kit(kit)
    , m_clock(clock)
    , m_hiddenTasks(std::move(hiddenTasks))
    , m_registration(kit.bus().registerEventBus([this](const StoreChange &) { tellChange(); }))
{
    for (const QString &each : {KWDataDidChangeOutsideMainAppNotification, KWSyncDidBatchPullNotification,
                                KWNewDayComesNotification, SystemTimeZoneDidChangeNotification,
                                delayDeleteStatusChangedNotification})
        m_observations.push_back(kit.center().addObserver(each, [this](const auto &) { tellChange(); }));
}

void SummaryPageApi::tellChange()
{
    if (!m_telling.isPending())
        m_telling = m_clock.callAfter(changesAreJoined, [this] { Q_EMIT summaryChanged({}); });
}

QString SummaryPageApi::openSummary(const QString &)
{
    const QString userID = m_kit.account().currentUserID();
    m_unsavedText.clear(); // of a page that was there before
    const QByteArray kept = m_kit.defaults().value(Settings::summaryChoice, userID).toUtf8();
    return textOf(QJsonObject{{u"texts"_s, textsOfPage()},
                              {u"choice"_s, choiceOf(QJsonDocument::fromJson(kept).object(), m_kit).toJson()},
                              {u"canInsert"_s, m_canInsert}});
}

QString SummaryPageApi::summaryLists(const QString &)
{
    QJsonArray lists;
    for (const KWProject *each :
         KWProject::findProjectsOfUser(m_kit.account().currentUserID(), ProjectScope::Open, m_kit.context()))
        if (!each->isNoteKind())
            lists.append(QJsonObject{
                {u"id"_s, each->sid()},
                {u"name"_s, each->isInbox() ? KWSmartProject::inbox().displayName() : each->model().name}});
    return textOf(lists);
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
    auto page = std::make_shared<QString>();
    KWCoreDataService{m_kit.manager()}.async_perform(
        [choice, userID = m_kit.account().currentUserID(), hidden = m_hiddenTasks(),
         page](ObjectContext &context) -> Result<void> {
            const auto content = readSummary(choice, userID, context, hidden);
            if (!content) return content.error();
            *page = pageOf(*content, context.clock().zone());
            return {};
        },
        [self = QPointer{this}, page](const Result<void> &done) {
            if (self) self->finish(*page, done);
        });
}

void SummaryPageApi::finish(const QString &page, const Result<void> &done)
{
    m_isReading = false;
    if (const auto next = std::exchange(m_next, std::nullopt)) return read(*next);
    Q_EMIT summaryRead(done ? page : textOf(QJsonObject{{u"error"_s, done.error().sentence}}));
}

QString SummaryPageApi::requestPreview(const QString &markdown)
{
    auto html = std::make_shared<QString>(asItStands(markdown));
    KWCoreDataService{m_kit.manager()}.async_perform(
        [markdown, html](ObjectContext &) -> Result<void> {
            *html = shownMarkdown(markdown);
            return {};
        },
        [self = QPointer{this}, html](const Result<void> &) {
            if (self) Q_EMIT self->previewMade(*html);
        });
    return {};
}

QString SummaryPageApi::tellUnsaved(const QString &beginning)
{
    m_unsavedText = beginning;
    return {};
}
