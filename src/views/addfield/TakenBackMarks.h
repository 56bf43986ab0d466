#pragma once

#include "capture/RecognitionOptions.h"

#include <QString>

#include <optional>

/// What was recognised in an add field and taken back by the person: it stays plain text while the field is
/// in use. Main thread.
class TakenBackMarks {
public:
    /// Keeps it in the options, which outlive this.
    explicit TakenBackMarks(RecognitionOptions &options) : m_options(options) {}

    /// Takes back what a mark's link names, in a field with this text. `words` are those that Backspace was
    /// pressed behind; none for a click. Whether there was anything to take back.
    bool takeBack(const QString &link, const QString &text, const QString &words = {});
    /// Lets what was taken back last be recognised again; whether nothing was typed since.
    bool restoreLast(const QString &text);
    /// To be told of each change of the text. An empty one begins anew.
    void follow(const QString &text);

private:
    struct Last {
        QString link;
        QString text;
        QString words;
    };
    void allowLast();

    RecognitionOptions &m_options;
    std::optional<Last> m_last;
};
