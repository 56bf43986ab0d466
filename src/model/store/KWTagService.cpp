#include "model/store/KWTagService.h"

#include "model/records/KWFilter.h"
#include "model/records/KWListDisplayConfiguration.h"
#include "model/records/KWListIdentifier.h"
#include "model/records/KWProjectPinnedSortOrder.h"
#include "model/records/KWTag.h"
#include "model/records/KWTask.h"
#include "model/records/KWTaskSortOrders.h"
#include "model/records/OneLine.h"
#include "model/records/SortOrderContext.h"
#include "model/store/KWCoreDataManager.h"
#include "model/store/StoreFailure.h"
#include "model/text/TagName.h"
#include "model/text/TwitterText.h"

#include <algorithm>

namespace {

Error noSuchTag() { return {storeText("There is no such tag any more.")}; }

/// What a name means in the records of one user, and how it is taken from or changed in them.
class TagUse {
public:
    TagUse(const QString &name, const QString &userID, ObjectContext &context)
        : m_name(name), m_userID(userID), m_context(context)
    {
    }

    Result<void> checkParent(const QString &parent) const
    {
        if (parent.isEmpty()) return {};
        const KWTag *tag = KWTag::findTagNamed(parent, m_userID, m_context);
        if (!tag) return noSuchTag();
        if ((*tag)->name == m_name) return Error{storeText("A tag cannot stand below itself.")};
        if (!(*tag)->parent.isEmpty() || !children().isEmpty())
            return Error{storeText("Tags stand below each other two deep at most.")};
        return {};
    }

    /// In place of the name stands `newName`, in tasks once at most; nothing when that is empty.
    void replaceInTasksBy(const QString &newName)
    {
        for (KWTask *each : tasks()) {
            QStringList tags = (*each)->tags;
            tags.replace(tags.indexOf(m_name), newName);
            tags.removeDuplicates();
            tags.removeAll(QString{});
            each->set(&KWTaskModel::tags, tags);
        }
    }

    /// A rule that cannot be read stays as it is.
    void replaceInFiltersBy(const QString &newName)
    {
        for (KWFilter *each : KWFilter::findFiltersOfUser(m_userID, m_context)) {
            const Result<CXSmartFilter> filter = each->parsedSmartFilter();
            if (!filter) continue;
            const CXSmartFilter renamed{filter->condition().withTagRenamed(m_name, newName)};
            if (renamed != *filter) each->set(&KWFilterModel::rule, renamed.toRule());
        }
    }

    void moveChildrenTo(const QString &parent)
    {
        for (KWTag *each : children())
            each->set(&KWTagModel::parent, (*each)->name == parent ? QString{} : parent);
    }

    /// Positions and the way the tag's list is shown go with its name, where the new one has none.
    void movePlacesTo(const QString &newName)
    {
        movePositions<KWTaskDueDateSortOrder>(newName);
        movePositions<KWTaskPrioritySortOrder>(newName);
        movePositions<KWTaskProjectSortOrder>(newName);
        movePositions<KWTaskTagSortOrder>(newName);
        movePositions<KWTaskPinnedSortOrder>(newName);
        moveList<KWListDisplayConfiguration>(&KWListDisplayConfigurationModel::listID, newName);
        moveList<KWProjectPinnedSortOrder>(&KWProjectPinnedSortOrderModel::listID, newName);
    }

private:
    QList<KWTask *> tasks() const
    {
        return m_context.fetch<KWTask>(
            {.where = "id IN (SELECT task FROM taskTags WHERE name = ?) AND userID = ?",
             .values = {m_name, m_userID}});
    }

    QList<KWTag *> children() const
    {
        return m_context.fetch<KWTag>(
            {.where = "userID = ? AND parent = ? AND isDeleted = 0", .values = {m_userID, m_name}});
    }

    template <class Record>
    static constexpr bool isInGroupOfTag = requires(typename Record::Model model)
    {
        model.tagName;
    };

    /// In the tag's list, and in its group of other lists.
    template <class Record>
    QList<Record *> positions() const
    {
        const QString list = contextID({.tagName = m_name});
        if constexpr (isInGroupOfTag<Record>)
            return m_context.fetch<Record>(
                {.where = "(contextID = ? OR tagName = ?) AND userID = ? AND isDeleted = 0",
                 .values = {list, m_name, m_userID}});
        else
            return m_context.fetch<Record>(
                {.where = "contextID = ? AND userID = ? AND isDeleted = 0", .values = {list, m_userID}});
    }

    /// Whether the task has another position in the list and group of this one.
    template <class Record>
    bool isTaken(const typename Record::Model &position) const
    {
        constexpr std::size_t own = std::tuple_size_v<decltype(synchronizableFields)>;
        const auto taskPositions = m_context.fetch<Record>(
            {.where = "taskID = ? AND userID = ?", .values = {position.taskID, m_userID}});
        return std::ranges::any_of(taskPositions, [&](const Record *each) {
            return each->sid() != position.sid && each->isNotDeleted() &&
                   difference(each->model(), position) >> own == 0;
        });
    }

    template <class Record>
    void movePositions(const QString &newName)
    {
        for (Record *each : positions<Record>()) {
            typename Record::Model moved = each->model();
            if (moved.contextID == contextID({.tagName = m_name}))
                moved.contextID = contextID({.tagName = newName});
            if constexpr (isInGroupOfTag<Record>)
                if (moved.tagName == m_name) moved.tagName = newName;
            newName.isEmpty() || isTaken<Record>(moved) ? each->deleteForever() : each->assign(moved);
        }
    }

    template <class Record>
    void moveList(QString Record::Model::*listID, const QString &newName)
    {
        const auto ofTag = [this](const QString &name) {
            return m_context.fetch<Record>(
                {.where = "userID = ? AND listID = ?",
                 .values = {m_userID, KWListIdentifier::tag(name).userDefaultEncode()}});
        };
        const bool isFree = !newName.isEmpty() && ofTag(newName).isEmpty();
        for (Record *each : ofTag(m_name))
            isFree ? each->set(listID, KWListIdentifier::tag(newName).userDefaultEncode())
                   : each->deleteForever();
    }

    QString m_name;
    QString m_userID;
    ObjectContext &m_context;
};

} // namespace

KWTagService::KWTagService(KWCoreDataManager &manager, QString userID)
    : m_manager(manager), m_userID(std::move(userID))
{
}

Result<QString> KWTagService::checkedLabel(const QString &typed)
{
    const QString label = onOneLine(typed);
    if (label.isEmpty()) return Error{storeText("A tag needs a name.")};
    if (isContainsSpecialCharactersForTag(label))
        return Error{storeText("The name of a tag has letters, digits, “_” and “-” only, and no space.")};
    return label;
}

QList<KWTagEntity> KWTagService::possibleEntitiesInText(QStringView text)
{
    QList<KWTagEntity> entities;
    for (const TextRange &each : TwitterText::cx_possibleHashtagsInText(text))
        entities.append({each});
    return entities;
}

Result<QString> KWTagService::create(const NewTag &tag)
{
    const Result<QString> label = checkedLabel(tag.label);
    if (!label) return label;
    const QString name = KWTag::nameForLabel(*label);
    const Result<void> saved =
        KWCoreDataService{m_manager}.sync_save([&](ObjectContext &context) -> Result<void> {
            const QString parent = KWTag::nameForLabel(tag.parent);
            if (Result<void> checked = TagUse{name, m_userID, context}.checkParent(parent); !checked)
                return checked;
            KWTag *made = KWTag::createNewTagWithName(*label, m_userID, TagUniqueness::MustBeNew, context);
            if (!made) return Error{storeText("There is a tag “%1” already.").arg(*label)};
            made->set(&KWTagModel::color, tag.color);
            made->set(&KWTagModel::parent, parent);
            return {};
        });
    if (!saved) return saved.error();
    return name;
}

Result<KWTagService::Renamed> KWTagService::rename(const QString &name, const QString &newLabel)
{
    const Result<QString> label = checkedLabel(newLabel);
    if (!label) return label.error();
    const QString newName = KWTag::nameForLabel(*label);
    Renamed renamed{.name = newName};
    const Result<void> saved =
        KWCoreDataService{m_manager}.sync_save([&](ObjectContext &context) -> Result<void> {
            KWTag *tag = KWTag::findTagNamed(name, m_userID, context);
            if (!tag) return noSuchTag();
            const QString oldName = (*tag)->name;
            if (oldName == newName) {
                tag->set(&KWTagModel::label, *label);
                renamed.undo = UndoToken::of(context);
                return {};
            }
            KWTag *other = KWTag::findTagNamed(newName, m_userID, context);
            TagUse use{oldName, m_userID, context};
            use.replaceInTasksBy(newName);
            use.replaceInFiltersBy(newName);
            use.movePlacesTo(newName);
            // What stood below it stands beside the other where that is below a tag itself.
            const bool isBelow = other && !(*other)->parent.isEmpty() && (*other)->parent != oldName;
            use.moveChildrenTo(isBelow ? (*other)->parent : newName);
            if (other) {
                tag->deleteForever();
            } else {
                tag->set(&KWTagModel::name, newName);
                tag->set(&KWTagModel::label, *label);
            }
            renamed.isJoined = other;
            renamed.undo = UndoToken::of(context);
            return {};
        });
    if (!saved) return saved.error();
    return renamed;
}

Result<UndoToken> KWTagService::remove(const QString &name)
{
    UndoToken undo;
    const auto saved = KWCoreDataService{m_manager}.sync_save([&](ObjectContext &context) -> Result<void> {
        KWTag *tag = KWTag::findTagNamed(name, m_userID, context);
        if (!tag) return noSuchTag();
        TagUse use{(*tag)->name, m_userID, context};
        use.replaceInTasksBy({});
        use.moveChildrenTo({});
        use.movePlacesTo({});
        tag->deleteForever();
        undo = UndoToken::of(context);
        return {};
    });
    if (!saved) return saved.error();
    return undo;
}

Result<void> KWTagService::setParent(const QString &name, const QString &parent)
{
    return KWCoreDataService{m_manager}.sync_save(
        [&](ObjectContext &context) { return setParent(name, parent, m_userID, context); });
}

Result<void> KWTagService::setParent(const QString &name, const QString &parent, const QString &userID,
                                     ObjectContext &context)
{
    KWTag *tag = KWTag::findTagNamed(name, userID, context);
    if (!tag) return noSuchTag();
    const QString parentName = KWTag::nameForLabel(parent);
    const Result<void> checked = TagUse{(*tag)->name, userID, context}.checkParent(parentName);
    if (checked) tag->set(&KWTagModel::parent, parentName);
    return checked;
}

Result<UndoToken> KWTagService::setColor(const QString &name, const QString &color)
{
    UndoToken undo;
    const auto saved = KWCoreDataService{m_manager}.sync_save([&](ObjectContext &context) -> Result<void> {
        KWTag *tag = KWTag::findTagNamed(name, m_userID, context);
        if (!tag) return noSuchTag();
        tag->set(&KWTagModel::color, color);
        undo = UndoToken::of(context);
        return {};
    });
    if (!saved) return saved.error();
    return undo;
}
