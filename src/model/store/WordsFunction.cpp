#include "model/store/WordsFunction.h"

#include "model/text/SearchWords.h"

#include <SQLiteCpp/Exception.h>
#include <sqlite3.h>

namespace {

QString textOf(sqlite3_value *value)
{
    const auto *utf8 = reinterpret_cast<const char *>(sqlite3_value_text(value));
    return QString::fromUtf8(utf8, sqlite3_value_bytes(value));
}

void hasWords(sqlite3_context *context, int count, sqlite3_value **values)
{
    QStringList texts;
    for (int i = 1; i < count; ++i)
        texts.append(textOf(values[i]));
    auto *known = static_cast<SearchPhrase *>(sqlite3_get_auxdata(context, 0));
    auto *phrase = known ? known : new SearchPhrase{textOf(values[0])};
    sqlite3_result_int(context, phrase->fits(texts));
    // SQLite keeps it for the next rows, or drops it at once.
    if (!known)
        sqlite3_set_auxdata(context, 0, phrase, [](void *kept) { delete static_cast<SearchPhrase *>(kept); });
}

} // namespace

void registerWordsFunction(sqlite3 *connection)
{
    constexpr int phraseAndTexts = 4;
    constexpr int kind = SQLITE_UTF8 | SQLITE_DETERMINISTIC;
    if (sqlite3_create_function(connection, "hasWords", phraseAndTexts, kind, nullptr, hasWords, nullptr,
                                nullptr) != SQLITE_OK)
        throw SQLite::Exception{connection};
}
