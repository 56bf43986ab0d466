#include "model/records/RecordFields.h"

#include "model/records/KWChecklistItemModel.h"
#include "model/records/KWProjectGroupModel.h"
#include "model/records/KWProjectModel.h"
#include "model/records/KWTagModel.h"
#include "model/records/KWTaskModel.h"
#include "model/records/KWUserModel.h"
#include "model/records/KWUserSettingsModel.h"
#include "model/store/Connection.h"
#include "model/store/Migrations.h"
#include "model/store/RecordMapper.h"
#include "support/TestMain.h"

#include <QSet>

using namespace Qt::StringLiterals;
using namespace std::chrono;

namespace {

template <class Visitor>
void forEachTwin(Visitor &&visit)
{
    visit.template operator()<KWUserModel>();
    visit.template operator()<KWUserSettingsModel>();
    visit.template operator()<KWProjectGroupModel>();
    visit.template operator()<KWProjectModel>();
    visit.template operator()<KWTagModel>();
    visit.template operator()<KWTaskModel>();
    visit.template operator()<KWChecklistItemModel>();
}

// A value that is not `value` and not that of another field: `number` differs from field to field.

void alter(QString &value, int number) { value = u"‘%1’ ü\n\"\\"_s.arg(number); }
void alter(QStringList &value, int number) { value = {u"a%1"_s.arg(number), u"b, \"c\" 日本"_s, QString{}}; }
void alter(bool &value, int) { value = !value; }
void alter(Instant &value, int number) { value = Instant{milliseconds{-86'400'123LL * number}}; }
void alter(QList<Instant> &value, int number) { value = {Instant{milliseconds{1}}, Instant{days{number}}}; }
void alter(KWTaskStatus &value, int) { value = KWTaskStatusAbandoned; }
void alter(KWSyncStatus &value, int) { value = KWSyncStatusDeleted; }

template <std::integral Number>
void alter(Number &value, int number)
{
    value = Number(std::is_signed_v<Number> ? -number - 10 : number);
}
void alter(std::int64_t &value, int number) { value = std::numeric_limits<std::int64_t>::max() - number; }

template <TextConstant Enum>
void alter(Enum &value, int)
{
    value = value == textValues<Enum>.back().first ? textValues<Enum>.front().first
                                                   : textValues<Enum>.back().first;
}

template <class Value>
void alter(std::optional<Value> &value, int number)
{
    alter(value.emplace(), number);
}

template <class Twin>
Twin altered(Twin twin)
{
    forEachField<Twin>([&](const auto &each, std::size_t index) { alter(each.of(twin), int(index) + 1); });
    return twin;
}

template <class Value>
constexpr bool isOptional = false;
template <class Value>
constexpr bool isOptional<std::optional<Value>> = true;

template <class Value>
QString declarationOf(const Value &)
{
    if constexpr (isOptional<Value>)
        return declarationOf(typename Value::value_type{}).section(u' ', 0, 0);
    else if constexpr (std::is_arithmetic_v<Value> || std::same_as<Value, Instant> ||
                       (std::is_enum_v<Value> && !TextConstant<Value>))
        return u"INTEGER NOT NULL"_s;
    else
        return u"TEXT NOT NULL"_s;
}

} // namespace

class RecordFields_test : public QObject {
    Q_OBJECT

    std::unique_ptr<Connection> m_connection;

    QStringList declarationsIn(const char *table);

private Q_SLOTS:
    void init();
    void everyFieldHasItsColumnAndEveryColumnItsField();
    void everyTableBelongsToAKind();
    void everyValueComesBackAsItWasWritten();
    void anUpdateWritesTheChangedFieldAndNoOther();
    void everyKeyInJsonIsUsedOnce();
    void everyConstantHasATextOfItsOwn();
    void anUnknownTextReadsAsTheDefaultAndIsKept();
};

void RecordFields_test::init()
{
    m_connection = std::make_unique<Connection>(":memory:", Connection::Access::ReadWriteCreate);
    Migrations::apply(*m_connection);
    m_connection->execute("PRAGMA foreign_keys = OFF"); // each kind on its own here
}

QStringList RecordFields_test::declarationsIn(const char *table)
{
    QStringList columns;
    auto statement = m_connection->prepare(std::string{"PRAGMA table_info("} + table + ")");
    while (statement->executeStep()) {
        const bool isNeeded = statement->getColumn(3).getInt() != 0;
        columns << QString::fromStdString(statement->getColumn(1).getString() + ' ' +
                                          statement->getColumn(2).getString() +
                                          (isNeeded ? " NOT NULL" : ""));
    }
    return columns;
}

void RecordFields_test::everyFieldHasItsColumnAndEveryColumnItsField()
{
    forEachTwin([this]<class Twin>() {
        const Twin twin;
        QStringList expected{u"id INTEGER"_s};
        forEachField<Twin>([&](const auto &each, std::size_t) {
            expected << QString::fromLatin1(each.name.data(), qsizetype(each.name.size())) + u' ' +
                            declarationOf(each.of(twin));
        });
        QCOMPARE(declarationsIn(Twin::tableName), expected);
    });
}

void RecordFields_test::everyTableBelongsToAKind()
{
    QSet<QString> expected{u"taskTags"_s}; // kept by triggers
    QSet<RecordKind> kinds;
    forEachTwin([&]<class Twin>() {
        expected << QString::fromLatin1(Twin::tableName);
        kinds << Twin::recordKind;
    });
    QSet<QString> tables;
    auto statement = m_connection->prepare("SELECT name FROM sqlite_schema WHERE type = 'table'");
    while (statement->executeStep())
        tables << QString::fromStdString(statement->getColumn(0).getString());
    QCOMPARE(tables, expected);
    QCOMPARE(std::size_t(kinds.size()), recordKindCount);
}

void RecordFields_test::everyValueComesBackAsItWasWritten()
{
    forEachTwin([this]<class Twin>() {
        const Twin plain;
        const Twin full = altered(plain);
        QCOMPARE(difference(plain, full), (FieldMask{1} << fieldCount<Twin>)-1); // no field was left out
        for (Twin written : {plain, full}) {
            if (written.sid.isEmpty()) written.sid = u"plain"_s;
            RecordMapper<Twin>::insert(*m_connection, written);
            const std::optional<Twin> found = RecordMapper<Twin>::find(*m_connection, written.sid);
            QVERIFY(found);
            QCOMPARE(difference(*found, written), FieldMask{0});
        }
    });
}

void RecordFields_test::anUpdateWritesTheChangedFieldAndNoOther()
{
    forEachTwin([this]<class Twin>() {
        Twin expected;
        expected.sid = u"one"_s;
        Twin other = altered(expected);
        other.sid = expected.sid;
        Twin bystander = expected;
        bystander.sid = bystander.userID = u"two"_s;
        RecordMapper<Twin>::insert(*m_connection, expected);
        RecordMapper<Twin>::insert(*m_connection, bystander);
        forEachField<Twin>([&](const auto &each, std::size_t index) {
            RecordMapper<Twin>::update(*m_connection, other, FieldMask{1} << index);
            each.of(expected) = each.of(std::as_const(other));
            QVERIFY2(RecordMapper<Twin>::find(*m_connection, u"one"_s) == expected, each.name.data());
        });
        QVERIFY(RecordMapper<Twin>::find(*m_connection, u"two"_s) == bystander);
    });
}

void RecordFields_test::everyKeyInJsonIsUsedOnce()
{
    forEachTwin([]<class Twin>() {
        QSet<QLatin1StringView> keys;
        forEachField<Twin>([&](const auto &each, std::size_t) {
            keys << QLatin1StringView{each.jsonKey.data(), qsizetype(each.jsonKey.size())};
        });
        QCOMPARE(std::size_t(keys.size()), fieldCount<Twin>);
    });
}

void RecordFields_test::everyConstantHasATextOfItsOwn()
{
    const auto check = []<class Enum>(Enum) {
        for (const auto &[value, text] : textValues<Enum>) {
            QCOMPARE(textOf(value), text);
            QCOMPARE(valueOf<Enum>(QString{text}), std::optional{value});
        }
        QVERIFY(!valueOf<Enum>(u"neither of them"));
        QVERIFY(!valueOf<Enum>(u""));
    };
    check(KWTaskKindText);
    check(CXRecurrenceFromDefault);
    check(KWProjectKindTask);
    check(KWProjectPermissionWrite);
    check(KWProjectViewModeList);
    check(KWTaskSortTypeCustom);
}

void RecordFields_test::anUnknownTextReadsAsTheDefaultAndIsKept()
{
    KWTagModel tag;
    tag.sid = u"tag"_s;
    tag.sortType = KWTaskSortTypeTitle;
    RecordMapper<KWTagModel>::insert(*m_connection, tag);
    m_connection->execute("UPDATE tags SET sortType = 'byWeather'");

    std::optional<KWTagModel> found = RecordMapper<KWTagModel>::find(*m_connection, tag.sid);
    QCOMPARE(found->sortType, KWTagModel{}.sortType);
    KWTagModel renamed = *found;
    renamed.label = u"Errands"_s;
    RecordMapper<KWTagModel>::update(*m_connection, renamed, difference(*found, renamed));
    QCOMPARE(m_connection->number("SELECT count(*) FROM tags WHERE sortType = 'byWeather'"), 1);
}

ORVANE_TEST(RecordFields_test)
#include "RecordFields_test.moc"
