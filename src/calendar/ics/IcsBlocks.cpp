#include "calendar/ics/IcsBlocks.h"

#include "calendar/ics/IcsLines.h"
#include "model/settings/KWLocalizedString.h"

#include <QByteArrayList>

namespace {

/// Takes the lines one by one.
class BlockCutter {
public:
    Result<void> take(const QByteArray &line);
    Result<IcsBlocks> finish();

private:
    Result<void> begin(const QByteArray &component);
    void end(const QByteArray &component);
    void keep(const QByteArray &line);
    void leaveOut();

    IcsBlocks m_blocks;
    QByteArrayList m_open; // the components that have begun, from the outermost
    QByteArray m_block;    // of the event or zone that has begun
    bool m_hasCalendar = false;
};

constexpr qsizetype blockDepth = 2; // in the calendar

Result<void> BlockCutter::take(const QByteArray &line)
{
    if (line.size() > IcsBlocks::longestLine) return {};
    const qsizetype colon = line.indexOf(':');
    const QByteArray name = line.first(std::max<qsizetype>(colon, 0)).toUpper();
    if (name == "BEGIN") return begin(line.sliced(colon + 1).trimmed().toUpper());
    if (name == "END")
        end(line.sliced(colon + 1).trimmed().toUpper());
    else
        keep(line);
    return {};
}

Result<void> BlockCutter::begin(const QByteArray &component)
{
    // The one before has no end.
    if (component == "VEVENT" && m_open.size() >= blockDepth) {
        leaveOut();
        m_open.resize(blockDepth - 1);
    }
    if (m_open.isEmpty() && component != "VCALENDAR") return {};
    m_hasCalendar = true;
    m_open.append(component);
    if (m_open.size() > IcsBlocks::deepest)
        return Error{KWLocalizedString("The calendar is nested too deeply.")};
    if (m_open.size() == blockDepth) m_block.clear();
    keep("BEGIN:" + component);
    return {};
}

void BlockCutter::end(const QByteArray &component)
{
    const qsizetype begun = m_open.lastIndexOf(component);
    if (begun < 0) return;
    m_open.resize(begun + 1);
    keep("END:" + component);
    if (m_open.size() == blockDepth && component == "VTIMEZONE") m_blocks.zones.push_back(m_block);
    if (m_open.size() == blockDepth && component == "VEVENT") {
        if (m_block.size() > IcsBlocks::longestEvent)
            ++m_blocks.leftOut;
        else
            m_blocks.events.push_back(m_block);
    }
    m_open.removeLast();
}

void BlockCutter::keep(const QByteArray &line)
{
    if (m_open.size() == 1) m_blocks.head += line + "\r\n";
    if (m_open.size() < blockDepth || m_block.size() > IcsBlocks::longestEvent) return;
    const QByteArray &block = m_open.at(blockDepth - 1);
    if (block == "VTIMEZONE" || (block == "VEVENT" && m_open.size() == blockDepth)) m_block += line + "\r\n";
}

void BlockCutter::leaveOut()
{
    if (m_open.at(blockDepth - 1) == "VEVENT") ++m_blocks.leftOut;
}

Result<IcsBlocks> BlockCutter::finish()
{
    if (!m_hasCalendar) return Error{KWLocalizedString("This is no calendar.")};
    // What is missing would look like events that were deleted.
    if (!m_open.isEmpty()) return Error{KWLocalizedString("The calendar breaks off before its end.")};
    return std::move(m_blocks);
}

} // namespace

Result<IcsBlocks> IcsBlocks::cut(const QByteArray &text)
{
    if (text.size() > mostBytes) return Error{KWLocalizedString("The calendar is larger than 20 MB.")};
    BlockCutter cutter;
    IcsLines lines{text};
    int events = 0;
    while (lines.next()) {
        if (lines.line().compare("BEGIN:VEVENT", Qt::CaseInsensitive) == 0 && ++events > mostEvents)
            return Error{KWLocalizedString("The calendar has more than 50,000 events.")};
        if (const Result<void> taken = cutter.take(lines.line()); !taken) return taken.error();
    }
    return cutter.finish();
}
