#include "capture/TitleRecognizer.h"

#include "capture/TitleReading.h"
#include "model/text/UnicodeText.h"

TitleRecognizer::TitleRecognizer(const CXClock &clock, RecognitionSettings settings)
    : m_clock(clock), m_settings(std::move(settings))
{
}

TitleRecognition TitleRecognizer::recognize(const QString &text, const RecognitionOptions &options) const
{
    const QString title = withoutBrokenSurrogates(text);
    TitleReading reading{title, m_settings, m_priorityLabels, options};
    reading.readLists();
    reading.readTags();
    reading.readPriorities();
    reading.readNewList();
    reading.readAssignees();
    reading.readDate(m_clock);
    return reading.finished();
}
