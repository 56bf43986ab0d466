#pragma once

#include "model/text/TextRange.h"

#include <QList>
#include <QString>

#include <memory>

class KWTextEntity;

/// Entities are shared: whoever merges them changes their ranges and flags for all who hold them.
using TextEntities = QList<std::shared_ptr<KWTextEntity>>;

/// A recognised piece of a typed text. Main thread only.
class KWTextEntity {
public:
    enum Type : unsigned { Date = 0, Tag = 1 };

    KWTextEntity() = default;
    /// Highlighted, as every new entity is.
    KWTextEntity(TextRange range, QString text, unsigned type);
    virtual ~KWTextEntity() = default;

    TextRange range() const { return m_range; }
    void setRange(TextRange range) { m_range = range; }
    /// As typed; of a tag, with its mark.
    const QString &text() const { return m_text; }
    void setText(const QString &text) { m_text = text; }
    unsigned type() const { return m_type; }
    void setType(unsigned type) { m_type = type; }
    bool isDate() const { return m_type == Date; }
    bool isTag() const { return m_type == Tag; }
    /// Whether the piece is shown marked.
    bool highlighted() const { return m_highlighted; }
    void setHighlighted(bool highlighted) { m_highlighted = highlighted; }

    /// Of the same class, and equal in everything.
    bool isEqualToTextEntity(const KWTextEntity &other) const;
    bool isEqualToTextEntityIngoringHighlighted(const KWTextEntity &other) const;
    bool operator==(const KWTextEntity &other) const { return isEqualToTextEntity(other); }
    /// Holds the object's identity too, so equal entities need not hash alike: an entity is no key.
    std::size_t hash() const;
    QString description() const;

    /// Merges what several recognisers found in `text`: highlighted entities in text order that neither
    /// overlap nor touch. An entity that lies wholly under others loses its highlight and is left out;
    /// where one overlaps or touches the one before it, that one, with its type, grows over both. Of
    /// entities with one range the last stays. A range that runs beyond the text counts up to its end.
    static TextEntities splicedTextEntitis(const TextEntities &entities, const QString &text);
    /// By location, the last first.
    static TextEntities reversedTextEntities(const TextEntities &entities);

private:
    TextRange m_range;
    QString m_text;
    unsigned m_type = Date;
    bool m_highlighted = true;
};
