#pragma once

#include "capture/RecognitionOptions.h"
#include "capture/RecognizedPiece.h"

#include <optional>

/// What was recognised in an add field and taken back by the person: it stays plain text while the field is
/// in use. Main thread.
class TakenBackMarks {
public:
    enum class By { Click, Backspace };

    /// Keeps it in the options, which outlive this.
    explicit TakenBackMarks(RecognitionOptions &options) : m_options(options) {}

    /// Whether there was anything to take back: a tag is a word like others.
    bool takeBack(const RecognizedPiece &piece, By by, const QString &text);
    /// Lets what was taken back last be recognised again; whether nothing was typed since.
    bool restoreLast(const QString &text);
    /// To be told of each change of the text. An empty one begins anew.
    void follow(const QString &text);

private:
    struct Last {
        RecognizedPiece piece;
        By by;
        QString text; ///< of the field at the time
    };
    void allowLast();

    RecognitionOptions &m_options;
    std::optional<Last> m_last;
};
