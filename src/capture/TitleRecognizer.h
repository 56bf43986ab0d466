#pragma once

#include "capture/PriorityLabels.h"
#include "capture/RecognitionOptions.h"
#include "capture/RecognitionSettings.h"
#include "capture/TitleRecognition.h"

class CXClock;

/// Understands typed titles.
///
/// - Tags are the hashtags.
/// - A priority is "!" and a priority's label. Of several the last counts, and all are cut.
/// - A list is "~" or "^" and the longest name of a list that the token begins with. Of several the last
///   counts, and all are cut. A last token that names no list, stands after white space and begins with a
///   letter, but not with a number in words, names a list that is to be made: its name reaches to the next
///   piece, to a word that begins with "@", or to the token's end.
/// - An assignee is "@" after white space and the longest name of a member of the task's list that follows.
///   Of several the last counts, and all are cut.
/// - A date is what NLPNativeTitleParser finds outside of these; a "*" right before it belongs to it.
///
/// Nothing is a token inside a link or a mail address, no date is read in quotation marks, and a token
/// that means nothing is plain text. Any text is answered, in time proportional to its length; broken
/// surrogates count as U+FFFD. Main thread only.
class TitleRecognizer {
public:
    TitleRecognizer(const CXClock &clock, RecognitionSettings settings);

    TitleRecognition recognize(const QString &text, const RecognitionOptions &options = {}) const;

private:
    const CXClock &m_clock;
    RecognitionSettings m_settings;
    PriorityLabels m_priorityLabels;
};
