#include "capture/TitleReading.h"

#include "capture/KWNativeParser.h"
#include "capture/TitleText.h"
#include "corvexkit/time/CXClock.h"
#include "model/records/KWTag.h"
#include "model/text/UnicodeText.h"

#include <algorithm>
#include <array>

namespace {

QStringView contentOf(const KWCandidateEntity &token) { return QStringView{token.string}.sliced(1); }

bool standsAfterWhiteSpace(QStringView text, qsizetype position)
{
    return position == 0 || text[position - 1].isSpace();
}

// "~ten minutes": the mark says "about".
bool beginsWithNumber(QStringView text)
{
    static constexpr std::array<QStringView, 21> numbers{
        u"one",    u"two",   u"three", u"four",   u"five",   u"six",     u"seven",
        u"eight",  u"nine",  u"ten",   u"eleven", u"twelve", u"fifteen", u"twenty",
        u"thirty", u"forty", u"fifty", u"sixty",  u"ninety", u"hundred", u"half"};
    return std::ranges::any_of(numbers, [text](QStringView number) {
        return text.startsWith(number, Qt::CaseInsensitive) && isWordBoundary(text, number.size());
    });
}

TextRange rangeOf(const RecognizedPiece &piece) { return {piece.location, piece.length}; }

TextRange withoutTrailingSpace(QStringView text, TextRange range)
{
    while (!range.isEmpty() && text[range.end() - 1].isSpace())
        --range.length;
    return range;
}

} // namespace

TitleReading::TitleReading(const QString &text, const RecognitionSettings &settings,
                           const PriorityLabels &labels, const RecognitionOptions &options)
    : m_text(text)
    , m_settings(settings)
    , m_labels(labels)
    , m_options(options)
    , m_kinds(TokenScanner::kindsIn(text) & TokenKinds{int(options.parseOption)})
    , m_links(holdsLinkMark(text) ? linkRanges(text) : QList<TextRange>{})
    , m_free(text)
{
}

QList<KWCandidateEntity> TitleReading::tokens(TokenKind kind) const
{
    if (!m_kinds.testFlag(kind)) return {};
    QList<KWCandidateEntity> found = TokenScanner::scan(kind, m_text);
    if (!m_links.isEmpty())
        found.removeIf(
            [this](const KWCandidateEntity &each) { return isInside(m_links, each.range.location); });
    return found;
}

bool TitleReading::isFree(TextRange range) const
{
    return QStringView{m_free}.sliced(range.location, range.length) ==
           QStringView{m_text}.sliced(range.location, range.length);
}

void TitleReading::occupy(TextRange range)
{
    std::fill_n(m_free.begin() + range.location, range.length, QChar{QChar::ObjectReplacementCharacter});
}

void TitleReading::addPiece(RecognizedPieceType type, TextRange range, const QString &value)
{
    occupy(range);
    m_pieces.append({type, range.location, range.length, m_text.mid(range.location, range.length), value});
}

void TitleReading::readLists()
{
    for (const KWCandidateEntity &each : listTokens()) {
        if (!isFree(each.range)) continue;
        m_newList.reset();
        const auto match = m_settings.lists.longestAtStartOf(contentOf(each), m_options.blockedProjects,
                                                             m_options.chosenProject);
        if (!match) {
            if (mayNameNewList(each)) m_newList = each.range;
        } else if (match->entry) {
            m_result.parsedProjectResult = RecognizedList{match->entry->id, match->entry->name};
            addPiece(RecognizedPieceType::List, {each.range.location, 1 + match->length}, match->entry->id);
        }
    }
}

QList<KWCandidateEntity> TitleReading::listTokens() const
{
    QList<KWCandidateEntity> found = tokens(TokenKind::List);
    if (m_options.chosenProject.isEmpty() || !m_kinds.testFlag(TokenKind::List)) return found;
    const QString chosen =
        TokenScanner::prefixSymbal(TokenKind::List) + m_settings.lists.nameOf(m_options.chosenProject);
    const TextRange place{m_text.indexOf(chosen), chosen.size()};
    const auto isPlace = [&place](const KWCandidateEntity &each) {
        return each.range.location == place.location;
    };
    if (chosen.size() == 1 || place.location < 0 || std::ranges::any_of(found, isPlace)) return found;
    if (isInside(m_links, place.location)) return found;
    found.append({place, chosen, {}});
    std::ranges::sort(found, {}, [](const KWCandidateEntity &each) { return each.range.location; });
    return found;
}

bool TitleReading::mayNameNewList(const KWCandidateEntity &token) const
{
    return standsAfterWhiteSpace(m_text, token.range.location) &&
           QChar::isLetter(characterAt(token.string, 1)) && !beginsWithNumber(contentOf(token));
}

void TitleReading::readTags()
{
    if (!m_kinds.testFlag(TokenKind::Tag)) return;
    QSet<QString> names;
    for (const auto &each : KWTagTextEntity::validEntitiesInText(textForTags())) {
        occupy(each->range());
        m_tagEntities.append(each);
        const QString name = KWTag::nameForLabel(each->tagName());
        if (names.contains(name)) continue;
        names.insert(name);
        m_result.tags.append(each->tagName());
    }
}

// A list is no word that a tag could stand in: "~garden#errand" names both.
QString TitleReading::textForTags() const
{
    if (!m_newList) return m_free;
    const QStringView list = QStringView{m_free}.sliced(m_newList->location);
    const auto isHashMark = [](QChar unit) { return unit == u'#' || unit == u'＃'; };
    const auto mark = std::ranges::find_if(list, isHashMark);
    if (mark == list.end()) return m_free;
    return masked(m_free, {{m_newList->location, mark - list.begin()}});
}

void TitleReading::readPriorities()
{
    for (const KWCandidateEntity &each : tokens(TokenKind::Priority)) {
        const std::optional<KWTaskPriority> priority = m_labels.priorityLabelled(each.absString);
        if (!priority || m_options.blockedPriorities.contains(*priority)) continue;
        const TextRange range = withoutTrailingSpace(m_text, each.range);
        if (!mayBeginPriorityAt(range.location) || !isFree(range)) continue;
        m_result.priority = priority;
        addPiece(RecognizedPieceType::Priority, range, QString::number(*priority));
    }
}

// "Great!none of it": behind a word the mark ends a sentence, but "~garden!high" names both.
bool TitleReading::mayBeginPriorityAt(qsizetype location) const
{
    return (m_newList && m_newList->contains(location)) ||
           KWTagTextEntity::isValidPrefix(QStringView{m_free}.first(location));
}

void TitleReading::readNewList()
{
    if (!m_newList) return;
    qsizetype end = m_newList->end();
    const auto endAt = [this, &end](qsizetype position) {
        if (position > m_newList->location) end = std::min(end, position);
    };
    for (const RecognizedPiece &each : std::as_const(m_pieces))
        endAt(each.location);
    for (const auto &each : std::as_const(m_tagEntities))
        endAt(each->range().location);
    for (const KWCandidateEntity &each : tokens(TokenKind::Assignee))
        if (standsAfterWhiteSpace(m_text, each.range.location)) endAt(each.range.location);
    endNewListAt(end);
    occupy({m_newList->location, 1});
}

void TitleReading::readAssignees()
{
    const NameIndex *members = membersOfList();
    if (!members || !m_kinds.testFlag(TokenKind::Assignee) || m_options.donotParseAssignee) return;
    const QStringView text{m_text};
    for (qsizetype i = text.indexOf(u'@'); i >= 0; i = text.indexOf(u'@', i + 1)) {
        if (!standsAfterWhiteSpace(text, i) || isInside(m_links, i)) continue;
        const QStringView rest = text.sliced(i + 1);
        if (rest.isEmpty() || rest.front().isSpace()) continue;
        const auto match = members->longestAtStartOf(rest, {}, m_options.chosenTeamworker);
        if (!match) continue;
        const TextRange assigneeEntity{i, 1 + match->length};
        if (!isFree(assigneeEntity)) continue;
        m_result.assignedTeamworker = RecognizedPerson{match->entry->id.toLongLong(), match->entry->name};
        addPiece(RecognizedPieceType::Assignee, assigneeEntity, match->entry->id);
    }
}

const NameIndex *TitleReading::membersOfList() const
{
    const bool isNamed = m_result.parsedProjectResult && !m_options.isProjectManual;
    if (m_newList && !m_options.isProjectManual) return nullptr;
    const auto found =
        m_settings.members.constFind(isNamed ? m_result.parsedProjectResult->id : m_options.projectID);
    return found == m_settings.members.cend() ? nullptr : &*found;
}

void TitleReading::endNewListAt(qsizetype position)
{
    m_newList = withoutTrailingSpace(m_text, {m_newList->location, position - m_newList->location});
}

bool TitleReading::addNewList()
{
    const QString name = m_text.mid(m_newList->location + 1, m_newList->length - 1);
    if (m_options.blockedProjects.contains(name)) return false;
    m_result.parsedProjectResult = RecognizedList{{}, name};
    addPiece(RecognizedPieceType::List, *m_newList, name);
    return true;
}

void TitleReading::readDate(const CXClock &clock)
{
    const QList<KWCandidateEntity> dateTokens = tokens(TokenKind::Date);
    parseDate(clock, dateTokens);
    if (m_newList) {
        const std::optional<qsizetype> date = firstDateInNewList();
        const bool beginsName = date == m_newList->location + 1;
        if (date && !beginsName) endNewListAt(*date);
        const bool isMade = addNewList();
        if (!isMade) {
            m_newList.reset();
            readAssignees();
        }
        if (beginsName || !isMade) parseDate(clock, dateTokens);
    }
}

void TitleReading::parseDate(const CXClock &clock, const QList<KWCandidateEntity> &dateTokens)
{
    m_result.date = {};
    const bool readsPlainDates = reads(ParseOption::Date) && m_settings.recognition.dateEnabled;
    if (m_options.donotParseDate || (!readsPlainDates && dateTokens.isEmpty())) return;
    const KWSmartTimeModel &times = m_settings.smartTimes;
    m_result.date = KWNativeParser::parse(textForDates(dateTokens), clock.now(), times.firstWeekday,
                                          times.morning, times.afternoon, times.evening, times.night, m_text,
                                          occupiedEntities(), {clock.zone(), m_settings.defaults});
    includeMarks(dateTokens);
}

QString TitleReading::textForDates(const QList<KWCandidateEntity> &dateTokens) const
{
    QString text = masked(m_free, m_links);
    if (reads(ParseOption::Date) && m_settings.recognition.dateEnabled) return text;
    QList<TextRange> between;
    qsizetype position = 0;
    for (const KWCandidateEntity &each : dateTokens) {
        between.append({position, each.range.location + 1 - position});
        position = each.range.end();
    }
    between.append({position, text.size() - position});
    return masked(std::move(text), between);
}

TextEntities TitleReading::occupiedEntities() const
{
    TextEntities entities{m_tagEntities.begin(), m_tagEntities.end()};
    const auto add = [&](TextRange range) {
        entities.append(std::make_shared<KWTextEntity>(range, QString{}, KWTextEntity::Tag));
    };
    for (const RecognizedPiece &each : m_pieces)
        add(rangeOf(each));
    for (const TextRange &each : m_links)
        add(each);
    for (const TextRange &each : quotationRanges(m_text))
        add(each);
    return entities;
}

std::optional<qsizetype> TitleReading::firstDateInNewList() const
{
    for (const auto &each : m_result.date.recognizedStrings)
        if (m_newList->contains(each->range().location)) return each->range().location;
    return std::nullopt;
}

void TitleReading::includeMarks(const QList<KWCandidateEntity> &dateTokens)
{
    if (dateTokens.isEmpty()) return;
    for (const auto &each : m_result.date.recognizedStrings) {
        const TextRange range{each->range().location - 1, each->range().length + 1};
        const auto isMarkOfIt = [&range](const KWCandidateEntity &token) {
            return token.range.location == range.location;
        };
        if (std::ranges::none_of(dateTokens, isMarkOfIt)) continue;
        each->setRange(range);
        each->setText(m_text.mid(range.location, range.length));
    }
}

TitleRecognition TitleReading::finished()
{
    m_result.title = cutTitle();
    m_result.pieces = m_pieces + splicedPieces();
    std::ranges::sort(m_result.pieces, {}, &RecognizedPiece::location);
    return std::move(m_result);
}

QString TitleReading::cutTitle() const
{
    QList<TextRange> cuts;
    std::ranges::transform(m_pieces, std::back_inserter(cuts), rangeOf);
    if (m_settings.recognition.removesTag) cuts += rangesCutWithTags(m_text, m_tagEntities);
    if (m_settings.recognition.removesDate)
        for (const auto &each : m_result.date.recognizedStrings)
            cuts.append(each->range());
    return titleWithout(m_text, std::move(cuts));
}

QList<RecognizedPiece> TitleReading::splicedPieces() const
{
    TextEntities entities{m_result.date.recognizedStrings.begin(), m_result.date.recognizedStrings.end()};
    entities.append({m_tagEntities.begin(), m_tagEntities.end()});
    if (entities.isEmpty()) return {};
    QList<RecognizedPiece> pieces;
    for (const auto &each : KWTextEntity::splicedTextEntitis(entities, m_text)) {
        const auto type = each->isTag() ? RecognizedPieceType::Tag : RecognizedPieceType::Date;
        pieces.append({type, each->range().location, each->range().length, each->text(), {}});
    }
    return pieces;
}
