#pragma once

#include "capture/KWTextEntity.h"

#include <QSet>
#include <QStringView>

class KWTagTextEntity;
using TagTextEntities = QList<std::shared_ptr<KWTagTextEntity>>;

/// A tag in a typed text, its mark included.
class KWTagTextEntity : public KWTextEntity {
public:
    KWTagTextEntity(TextRange range, QString text) : KWTextEntity(range, std::move(text), Tag) {}

    /// The text without its mark.
    QString tagName() const { return text().mid(1); }
    TextRange rangeOfTagName() const { return {range().location + 1, range().length - 1}; }

    /// While typing: also the tag that is not finished yet at the end of the text.
    static TagTextEntities possibleEntitiesInText(const QString &text);
    /// On commit.
    static TagTextEntities validEntitiesInText(const QString &text);
    /// Whether a tag may stand right after `text`.
    static bool isValidPrefix(QStringView text);
};

/// What cutting tags out of a title takes away, in text order: each tag and the character that parts it
/// from what follows. Only the tag where the text, cut so far from its end on, ends with it, where another
/// tag follows at once, and where the next character has two units.
QList<TextRange> rangesCutWithTags(const QString &title, const TagTextEntities &entities);

/// Cuts the tags out of `title`. Hands back the rest in `result` and the names of the tags in `tags`,
/// each where it is given.
void cx_removeTagTextEntities(const QString &title, const TagTextEntities &entities, QString *result,
                              QSet<QString> *tags);
