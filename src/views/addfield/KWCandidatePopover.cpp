#include "views/addfield/KWCandidatePopover.h"

#include "views/addfield/KWCandidateViewController.h"

#include <QLocale>

#include <algorithm>

namespace {

// A keyword has no white space, so titles are compared without theirs.
QString folded(const QString &text, const QLocale &locale)
{
    QString lower = locale.toLower(text);
    lower.removeIf([](QChar unit) { return unit.isSpace(); });
    return lower;
}

} // namespace

bool KWCandidatePopover::matchCandidatesWith(const QString &keyword)
{
    const QLocale locale;
    const QString wanted = folded(keyword, locale);
    m_dataSourceArray = m_originalDataSourceArray;
    m_defaultSelectedIndex = 0;
    if (wanted.isEmpty()) return false;
    m_dataSourceArray.removeIf(
        [&](const KWCandidateModel &each) { return !folded(each.title, locale).contains(wanted); });
    const auto equal =
        std::ranges::find(m_dataSourceArray, locale.toLower(keyword), &KWCandidateModel::title);
    if (equal != m_dataSourceArray.end()) {
        std::rotate(m_dataSourceArray.begin(), equal, equal + 1);
        return true;
    }
    m_defaultSelectedIndex = rowBeginningWith(wanted);
    return false;
}

int KWCandidatePopover::rowBeginningWith(const QString &wanted) const
{
    const QLocale locale;
    const auto found = std::ranges::find_if(m_dataSourceArray, [&](const KWCandidateModel &each) {
        return folded(each.title, locale).startsWith(wanted);
    });
    if (found != m_dataSourceArray.end()) return int(found - m_dataSourceArray.begin());
    return mayBeNew() ? -1 : 0;
}

void KWCandidatePopover::showIn(KWCandidateViewController &candidateVC, QWidget &inputControl,
                                TextRange replacementRange, const QPoint &position)
{
    m_candidateVC = &candidateVC;
    m_inputControl = &inputControl;
    m_replacementRange = replacementRange;
    candidateVC.selectedHandler = [this](int row) { commit(row); };
    candidateVC.show(m_dataSourceArray, m_defaultSelectedIndex, position);
}

bool KWCandidatePopover::isShown() const
{
    return m_inputControl && m_candidateVC && m_candidateVC->isVisible();
}

bool KWCandidatePopover::doCommandBy(Command command)
{
    if (!isShown()) return false;
    const int selected = m_candidateVC->selectedIndex();
    const int last = int(m_dataSourceArray.size()) - 1;
    switch (command) {
    case Command::MoveUp:
        m_candidateVC->setSelectedIndex(std::max(selected - 1, 0));
        return true;
    case Command::MoveDown:
        m_candidateVC->setSelectedIndex(std::min(selected + 1, last));
        return true;
    case Command::MoveToBeginningOfDocument:
        m_candidateVC->setSelectedIndex(0);
        return true;
    case Command::MoveToEndOfDocument:
        m_candidateVC->setSelectedIndex(last);
        return true;
    case Command::InsertNewline:
        if (selected < 0) return false;
        commit(selected);
        return true;
    case Command::CancelOperation:
        dismissWithAnimated();
        return true;
    case Command::Other:
        break;
    }
    return false;
}

void KWCandidatePopover::commit(int row)
{
    if (!m_replacementRange || row < 0 || row >= m_dataSourceArray.size()) return;
    const KWCandidateModel candidate = m_dataSourceArray.at(row);
    dismissWithAnimated([this, &candidate] {
        if (onCommit) onCommit(candidate);
    });
}

void KWCandidatePopover::dismissWithAnimated(const std::function<void()> &callHandler)
{
    if (m_candidateVC && m_replacementRange) {
        m_candidateVC->hide();
        m_candidateVC->selectedHandler = nullptr;
    }
    m_replacementRange.reset();
    m_inputControl.clear();
    if (callHandler) callHandler();
}
