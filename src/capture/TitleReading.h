#pragma once

#include "capture/KWTagTextEntity.h"
#include "capture/PriorityLabels.h"
#include "capture/RecognitionOptions.h"
#include "capture/RecognitionSettings.h"
#include "capture/TitleRecognition.h"
#include "capture/TokenScanner.h"
#include "model/text/OpaqueText.h"

class CXClock;

/// The reading of one title: recognises its pieces one kind after the other, each in what the kinds
/// before it have left. Used once.
class TitleReading {
public:
    /// `text` is well-formed UTF-16; all of the arguments outlive the reading.
    TitleReading(const QString &text, const RecognitionSettings &settings, const PriorityLabels &labels,
                 const RecognitionOptions &options);

    void readLists();
    void readTags();
    void readPriorities();
    void readNewList();
    void readAssignees();
    void readDate(const CXClock &clock);
    TitleRecognition finished();

private:
    bool reads(ParseOption option) const { return m_options.parseOption.testFlag(option); }
    QList<KWCandidateEntity> tokens(TokenKind kind) const;
    /// Also where the list chosen from a completion stands, whose name may end a token.
    QList<KWCandidateEntity> listTokens() const;
    const NameIndex *membersOfList() const;
    bool isFree(TextRange range) const;
    void occupy(TextRange range);
    void addPiece(RecognizedPieceType type, TextRange range, const QString &value);
    bool mayNameNewList(const KWCandidateEntity &token) const;
    bool mayBeginPriorityAt(qsizetype location) const;
    QString textForTags() const;
    void endNewListAt(qsizetype position);
    bool addNewList();
    void parseDate(const CXClock &clock, const QList<KWCandidateEntity> &dateTokens);
    QString textForDates(const QList<KWCandidateEntity> &dateTokens) const;
    TextEntities occupiedEntities() const;
    std::optional<qsizetype> firstDateInNewList() const;
    void includeMarks(const QList<KWCandidateEntity> &dateTokens);
    QString cutTitle() const;
    QList<RecognizedPiece> splicedPieces() const;

    const QString &m_text;
    const RecognitionSettings &m_settings;
    const PriorityLabels &m_labels;
    const RecognitionOptions &m_options;
    const TokenKinds m_kinds;
    const QList<TextRange> m_links;
    QString m_free;                     // the text with what is recognised masked
    QList<RecognizedPiece> m_pieces;    // lists, priorities and assignees
    TagTextEntities m_tagEntities;      // in text order
    std::optional<TextRange> m_newList; // mark and name of the list to be made, as far as known
    TitleRecognition m_result;
};
