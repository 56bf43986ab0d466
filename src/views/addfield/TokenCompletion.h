#pragma once

#include "capture/RecognitionOptions.h"
#include "capture/TypedToken.h"
#include "views/addfield/CandidatePopovers.h"

#include <QObject>

#include <array>

class KWNewTaskTextField;

/// Completes the token that is typed in an add field: offers what it may become in a popover below it, which
/// goes when the token is ended, the caret leaves it, or Escape is pressed. Main thread.
class TokenCompletion : public QObject {
    Q_OBJECT

public:
    TokenCompletion(KWNewTaskTextField &field, NewTaskCandidates &candidates);
    ~TokenCompletion() override;

    /// To be called when the text is another one and its pieces are recognised. Tokens of kinds that are
    /// switched off, and what was blocked, are not offered.
    void update(const RecognitionOptions &options, const QString &projectID);
    void dismiss();
    bool isShown() const { return m_shown && m_shown->isShown(); }

Q_SIGNALS:
    /// A row has been chosen; it is about to stand in the text.
    void committed(TokenKind kind, const KWCandidateModel &row);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    std::optional<TypedToken> tokenToComplete(const RecognitionOptions &options) const;
    KWCandidatePopover *popoverOf(TokenKind kind) const;
    void commit(const KWCandidateModel &row);
    bool obey(KWCandidatePopover::Command command);
    bool isTypedWhole() const;
    void followCaret();
    QPoint positionBelow(qsizetype location) const;

    KWNewTaskTextField &m_field;
    std::array<std::unique_ptr<KWCandidatePopover>, 5> m_popovers;
    QPointer<KWCandidateViewController> m_candidateVC; // made when it is first needed
    KWCandidatePopover *m_shown = nullptr;
    std::optional<TypedToken> m_token;
    QString m_text;                       // in which the token stands
    std::optional<qsizetype> m_leftAlone; // where the token begins that is not to be completed
};
