#include "capture/TokenScanner.h"

#include "model/store/KWTagService.h"

#include <QRegularExpression>

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace {

struct KindEntry {
    TokenKind kind;
    QStringView marks; // the first is the one completions use
    const char16_t *pattern;
};

const std::array<KindEntry, 5> kinds{{
    {TokenKind::Tag, u"#＃", nullptr},
    {TokenKind::Priority, u"!！", uR"((!|！)[^(!！)]*?(\s|$))"},
    {TokenKind::List, u"~^～", uR"((\^|~|～)[^(\^~～)]*?(  |$|[\n\r\t]))"},
    {TokenKind::Assignee, u"@", uR"(@[^@]*?(\s|$))"},
    {TokenKind::Date, u"*", uR"(\*[^\*]*?(\s|$))"},
}};

const KindEntry &entryOf(TokenKind kind) { return *std::ranges::find(kinds, kind, &KindEntry::kind); }

const QRegularExpression &patternOf(TokenKind kind)
{
    static const auto compiled = [] {
        std::array<QRegularExpression, kinds.size()> patterns;
        for (std::size_t i = 0; i < kinds.size(); ++i) {
            if (!kinds[i].pattern) continue;
            patterns[i] = QRegularExpression{QStringView{kinds[i].pattern}.toString(),
                                             QRegularExpression::CaseInsensitiveOption |
                                                 QRegularExpression::UseUnicodePropertiesOption};
            patterns[i].optimize();
        }
        return patterns;
    }();
    return compiled[std::size_t(&entryOf(kind) - kinds.data())];
}

QString keywordOf(QStringView token, QStringView marks)
{
    QString keyword;
    keyword.reserve(token.size());
    for (const QChar unit : token)
        if (!unit.isSpace()) keyword.append(unit);
    if (!keyword.isEmpty() && marks.contains(keyword.front())) keyword.remove(0, 1);
    return keyword;
}

QList<TextRange> rangesOf(TokenKind kind, const QString &text)
{
    QList<TextRange> ranges;
    if (kind == TokenKind::Tag) {
        for (const KWTagEntity &each : KWTagService::possibleEntitiesInText(text))
            ranges.append(each.range);
        return ranges;
    }
    for (auto matches = patternOf(kind).globalMatch(text); matches.hasNext();) {
        const QRegularExpressionMatch match = matches.next();
        ranges.append({match.capturedStart(), match.capturedLength()});
    }
    return ranges;
}

} // namespace

QList<KWCandidateEntity> TokenScanner::scan(TokenKind kind, const QString &text)
{
    const QStringView marks = entryOf(kind).marks;
    QList<KWCandidateEntity> tokens;
    for (const TextRange &each : rangesOf(kind, text)) {
        const QString string = text.mid(each.location, each.length);
        tokens.append({each, string, keywordOf(string, marks)});
    }
    return tokens;
}

TokenKinds TokenScanner::kindsIn(QStringView text)
{
    TokenKinds found;
    for (const KindEntry &each : kinds)
        if (std::ranges::any_of(each.marks, [text](QChar mark) { return text.contains(mark); }))
            found |= each.kind;
    return found;
}

QString TokenScanner::prefixSymbal(TokenKind kind) { return entryOf(kind).marks.first(1).toString(); }
