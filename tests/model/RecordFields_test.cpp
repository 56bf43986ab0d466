#include "model/records/RecordFields.h"

#include "model/records/EveryRecord.h"
#include "model/records/RecordJson.h"
#include "model/store/Connection.h"
#include "model/store/Migrations.h"
#include "model/store/RecordMapper.h"
#include "support/TestMain.h"

#include <QJsonDocument>

using namespace Qt::StringLiterals;
using namespace std::chrono;

namespace {

template <class Visitor>
void forEachTwin(Visitor &&visit)
{
#define VISIT(Record) visit.template operator()<Record::Model>();
    EVERY_RECORD(VISIT)
#undef VISIT
}

// A value that is not `value` and not that of another field: `number` differs from field to field.

void alter(QString &value, int number) { value = u"‘%1’ ü\n\"\\"_s.arg(number); }
void alter(QStringList &value, int number) { value = {u"a%1"_s.arg(number), u"b, \"c\" 日本"_s, QString{}}; }
void alter(bool &value, int) { value = !value; }
void alter(Instant &value, int number) { value = Instant{milliseconds{-86'400'123LL * number}}; }
void alter(QList<Instant> &value, int number) { value = {Instant{milliseconds{1}}, Instant{days{number}}}; }
void alter(double &value, int number) { value = number + 0.25; }

// An enumeration kept as its number.
template <NumberConstant Enum>
void alter(Enum &value, int)
{
    value = value == numberValues<Enum>.back() ? numberValues<Enum>.front() : numberValues<Enum>.back();
}

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
Twin altered(int firstNumber = 1)
{
    Twin twin;
    forEachField<Twin>(
        [&](const auto &each, std::size_t index) { alter(each.of(twin), firstNumber + int(index)); });
    return twin;
}

} // namespace

class RecordFields_test : public QObject {
    Q_OBJECT

    std::unique_ptr<Connection> m_connection;

private Q_SLOTS:
    void init()
    {
        m_connection = std::make_unique<Connection>(":memory:", Connection::Access::ReadWriteCreate);
        Migrations::apply(*m_connection);
        m_connection->execute("PRAGMA foreign_keys = OFF"); // each kind on its own here
    }

    void anUpdateWritesTheChangedFieldAndNoOther()
    {
        forEachTwin([this]<class Twin>() {
            Twin expected;
            expected.sid = u"one"_s;
            const Twin bystander = altered<Twin>(100);
            Twin other = altered<Twin>();
            QCOMPARE(difference(Twin{}, other), (FieldMask{1} << fieldCount<Twin>)-1); // none left out
            other.sid = expected.sid;
            RecordMapper<Twin>::insert(*m_connection, expected);
            RecordMapper<Twin>::insert(*m_connection, bystander);
            forEachField<Twin>([&](const auto &each, std::size_t index) {
                RecordMapper<Twin>::update(*m_connection, other, FieldMask{1} << index);
                each.of(expected) = each.of(std::as_const(other));
                QVERIFY2(RecordMapper<Twin>::find(*m_connection, u"one"_s) == expected, each.name.data());
            });
            QVERIFY(RecordMapper<Twin>::find(*m_connection, bystander.sid) == bystander);
        });
    }

    void jsonKeepsEveryFieldAndRefusesWhatNoneCanHold()
    {
        forEachTwin([]<class Twin>() {
            const Twin original = altered<Twin>();
            const QJsonObject json =
                QJsonDocument::fromJson(QJsonDocument{toJson(original)}.toJson()).object();
            QCOMPARE(json.size(), qsizetype(fieldCount<Twin>)); // no two have one key
            Twin read;
            QCOMPARE(readJson(json, read), std::nullopt);
            QVERIFY2(read == original, Twin::tableName);
            forEachField<Twin>([&]<class Owner, class Value>(const Field<Owner, Value> &each, std::size_t) {
                const auto key = QString::fromLatin1(each.jsonKey.data(), qsizetype(each.jsonKey.size()));
                QList<QJsonValue> refused{QJsonObject{}};
                if constexpr (NumberConstant<Value>) refused << 4; // no constant has it
                for (const QJsonValue &wrong : refused)
                    QCOMPARE(readJson(QJsonObject{{key, wrong}}, read), std::optional{key});
            });
            QVERIFY2(read == original, Twin::tableName);
        });
    }

    void whatNoConstantHasReadsAsTheDefaultAndIsKept()
    {
        KWTagModel tag;
        tag.sid = u"tag"_s;
        tag.sortType = KWTaskSortTypeTitle;
        tag.syncStatus = KWSyncStatusUpdated;
        RecordMapper<KWTagModel>::insert(*m_connection, tag);
        m_connection->execute("UPDATE tags SET sortType = 'byWeather', syncStatus = 17");

        std::optional<KWTagModel> found = RecordMapper<KWTagModel>::find(*m_connection, tag.sid);
        QCOMPARE(found->sortType, KWTagModel{}.sortType);
        QCOMPARE(found->syncStatus, KWTagModel{}.syncStatus);
        KWTagModel renamed = *found;
        renamed.label = u"Errands"_s;
        RecordMapper<KWTagModel>::update(*m_connection, renamed, difference(*found, renamed));
        QCOMPARE(m_connection->number("SELECT count(*) FROM tags WHERE sortType = 'byWeather' "
                                      "AND syncStatus = 17"),
                 1);
    }
};

ORVANE_TEST(RecordFields_test)
#include "RecordFields_test.moc"
