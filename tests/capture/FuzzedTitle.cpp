#include "capture/FuzzedTitle.h"

#include "capture/KWNativeParser.h"
#include "capture/KWTagTextEntity.h"
#include "capture/TitleRecognizer.h"
#include "capture/TokenScanner.h"
#include "model/text/UnicodeText.h"
#include "support/ManualClock.h"

#include <QLocale>

using namespace Qt::StringLiterals;

namespace {

bool isWithin(const TextRange &range, const QString &text)
{
    return range.location >= 0 && range.length >= 0 && range.end() <= text.size();
}

QByteArray complaintAboutTokens(const QString &text)
{
    for (const TokenKind kind :
         {TokenKind::Tag, TokenKind::Priority, TokenKind::List, TokenKind::Assignee, TokenKind::Date}) {
        qsizetype end = 0;
        for (const KWCandidateEntity &each : TokenScanner::scan(kind, text)) {
            if (!isWithin(each.range, text) || each.range.location < end) return "tokens out of order";
            end = each.range.end();
        }
    }
    return {};
}

QByteArray complaintAboutSplicing(const TextEntities &entities, const QString &text)
{
    qsizetype end = -1;
    for (const auto &each : KWTextEntity::splicedTextEntitis(entities, text)) {
        const TextRange range = each->range();
        if (!isWithin(range, text) || range.location <= end) return "spliced pieces touch";
        if (each->text() != text.mid(range.location, range.length)) return "a spliced piece has another text";
        end = range.end();
    }
    return {};
}

QByteArray complaintAboutDates(const QString &text, const CXClock &clock)
{
    const KWSmartTimeModel times;
    const KWTaskDefaultConfiguration defaults;
    TextEntities entities;
    for (const auto &each : KWTagTextEntity::possibleEntitiesInText(text))
        entities.append(each);
    const auto found =
        KWNativeParser::parse(text, clock.now(), times.firstWeekday, times.morning, times.afternoon,
                              times.evening, times.night, text, entities, {clock.zone(), defaults});
    for (const auto &each : found.recognizedStrings) {
        if (!isWithin(each->range(), text)) return "a date beyond the text";
        entities.append(each);
    }
    return complaintAboutSplicing(entities, text);
}

QByteArray complaintAboutRecognition(const QString &text, const TitleRecognizer &recognizer)
{
    const TitleRecognition found =
        recognizer.recognize(text, {.chosenProject = u"Home (old)"_s, .projectID = u"Home"_s});
    const QString whole = withoutBrokenSurrogates(text);
    qsizetype end = 0;
    for (const RecognizedPiece &each : found.pieces) {
        if (each.location < end || each.length <= 0) return "pieces out of order";
        if (each.text != whole.mid(each.location, each.length)) return "a piece has another text";
        end = each.location + each.length;
    }
    if (!found.title.isValidUtf16() || found.title != found.title.trimmed()) return "a broken title";
    return {};
}

QList<KWProjectModel> lists()
{
    QList<KWProjectModel> models;
    for (const QString &name : {u"Home"_s, u"Home Office"_s, u"C# work"_s, u"工作"_s, u"Home (old)"_s}) {
        models.emplaceBack().name = name;
        models.last().sid = name;
    }
    return models;
}

QHash<QString, NameIndex> members()
{
    QList<KWTeamworkerModel> models(2);
    models[0].name = u"North"_s;
    models[1].name = u"North Star"_s;
    return {{u"Home"_s, NameIndex::ofMembers(models)}};
}

QString titleOf(QByteArrayView input)
{
    const QByteArrayView bytes = input.sliced(1);
    if ((input[0] & 2) == 0) return QString::fromUtf8(bytes);
    QString text;
    for (qsizetype i = 0; i + 1 < bytes.size(); i += 2)
        text += QChar{char16_t(uchar(bytes[i]) | uchar(bytes[i + 1]) << 8)};
    return text;
}

} // namespace

QByteArray complaintAboutFuzzedTitle(QByteArrayView input)
{
    static const ManualClock clock{"2026-11-18 10:00"};
    static const TitleRecognizer recognizer{clock, {{}, {}, {}, NameIndex::ofLists(lists()), members()}};
    if (input.isEmpty()) return {};
    QLocale::setDefault((input[0] & 1) != 0 ? QLocale{QLocale::Chinese, QLocale::China}
                                            : QLocale{QLocale::English, QLocale::UnitedStates});
    const QString text = titleOf(input);
    for (const QByteArray &complaint : {complaintAboutTokens(text), complaintAboutDates(text, clock),
                                        complaintAboutRecognition(text, recognizer)})
        if (!complaint.isEmpty()) return complaint + ": " + text.toUtf8().toPercentEncoding(" ");
    return {};
}
