#pragma once

#include "capture/KWCandidateModel.h"
#include "capture/RecognitionOptions.h"
#include "capture/TokenScanner.h"
#include "model/text/TextRange.h"

#include <QPointer>

#include <functional>
#include <optional>

class KWCandidateViewController;
class NewTaskCandidates;
class QWidget;

/// Offers what can complete tokens of one kind. Main thread.
class KWCandidatePopover {
public:
    /// What a key asks of a text while it is edited.
    enum class Command {
        MoveUp,
        MoveDown,
        MoveToBeginningOfDocument,
        MoveToEndOfDocument,
        InsertNewline,
        CancelOperation,
        Other,
    };

    /// Where the field stands and what it has switched off.
    struct Context {
        QString projectID; ///< the list new tasks go to, as far as it is known
        QSet<QString> blockedListIDs;
        QSet<KWTaskPriority> blockedPriorities;
    };

    explicit KWCandidatePopover(NewTaskCandidates &candidates) : m_candidates(candidates) {}
    virtual ~KWCandidatePopover() = default;

    virtual TokenKind kind() const = 0;
    /// The character that a token of the kind begins with.
    QString prefixSymbal() const { return TokenScanner::prefixSymbal(kind()); }
    /// Takes the candidates as they are now.
    virtual void updateData(const Context &context) = 0;

    const QList<KWCandidateModel> &dataSourceArray() const { return m_dataSourceArray; }
    /// Keeps the candidates whose title contains the keyword, all of them for an empty one; white space and
    /// case do not count. One whose title is the keyword in lower case comes to the top; whether there is
    /// one.
    bool matchCandidatesWith(const QString &keyword);

    /// Shows the rows below the token `replacementRange` of `inputControl`, at `position` on the screen.
    void showIn(KWCandidateViewController &candidateVC, QWidget &inputControl, TextRange replacementRange,
                const QPoint &position);
    bool isShown() const;
    /// Whether the popover has used the key: the selection moved, the selected row was committed or the
    /// popover closed. Nothing is used while it is not shown.
    bool doCommandBy(Command command);
    /// Closes the popover, forgets the token and the control it belonged to, and calls the handler then.
    void dismissWithAnimated(const std::function<void()> &callHandler = {});

    /// Called with the row that takes the place of the token; the popover is closed then.
    std::function<void(const KWCandidateModel &row)> onCommit;

protected:
    /// Whether a token that no row stands for may be meant all the same: a new tag, a new list.
    virtual bool mayBeNew() const { return false; }
    void setOriginalDataSourceArray(const QList<KWCandidateModel> &candidates)
    {
        m_originalDataSourceArray = candidates;
    }

    NewTaskCandidates &m_candidates;

private:
    int rowBeginningWith(const QString &folded) const;
    void commit(int row);

    QList<KWCandidateModel> m_originalDataSourceArray;
    QList<KWCandidateModel> m_dataSourceArray;
    int m_defaultSelectedIndex = 0; // -1 where what is typed means something by itself
    QPointer<KWCandidateViewController> m_candidateVC;
    QPointer<QWidget> m_inputControl;
    std::optional<TextRange> m_replacementRange;
};
