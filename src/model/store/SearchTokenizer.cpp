#include "model/store/SearchTokenizer.h"

#include "model/text/SearchWords.h"

#include <SQLiteCpp/Exception.h>
#include <sqlite3.h>

namespace {

/// Byte positions in UTF-8 of ascending positions in UTF-16.
class BytePositions {
public:
    explicit BytePositions(QStringView text) : m_text(text) {}

    int at(qsizetype position)
    {
        for (; m_unit < position; ++m_unit) {
            const char16_t unit = m_text[m_unit].unicode();
            const bool isHalf = unit >= 0xD800 && unit < 0xE000; // two of them are four bytes
            m_bytes += unit < 0x80 ? 1 : unit < 0x800 || isHalf ? 2 : 3;
        }
        return m_bytes;
    }

private:
    QStringView m_text;
    qsizetype m_unit = 0;
    int m_bytes = 0;
};

// It keeps nothing, so there is nothing to make; but none would be an error.
int makeTokenizer(void *, const char **, int, Fts5Tokenizer **made)
{
    static int nothing = 0;
    *made = reinterpret_cast<Fts5Tokenizer *>(&nothing);
    return SQLITE_OK;
}

void dropTokenizer(Fts5Tokenizer *) {}

using Taker = int (*)(void *, int, const char *, int, int, int);

int tokenize(Fts5Tokenizer *, void *context, int, const char *utf8, int size, Taker take)
{
    const QString text = QString::fromUtf8(utf8, size);
    BytePositions bytes{text};
    for (const SearchWord &each : searchWords(text)) {
        const QByteArray word = each.folded.toUtf8();
        const int start = bytes.at(each.mark.position);
        const int end = bytes.at(each.mark.position + each.mark.length);
        if (const int code = take(context, 0, word.constData(), int(word.size()), start, end)) return code;
    }
    return SQLITE_OK;
}

// The way to FTS5 that SQLite documents for extensions.
fts5_api *apiOf(sqlite3 *connection)
{
    fts5_api *api = nullptr;
    sqlite3_stmt *statement = nullptr;
    if (sqlite3_prepare_v2(connection, "SELECT fts5(?1)", -1, &statement, nullptr) == SQLITE_OK) {
        sqlite3_bind_pointer(statement, 1, static_cast<void *>(&api), "fts5_api_ptr", nullptr);
        sqlite3_step(statement);
    }
    sqlite3_finalize(statement);
    return api;
}

} // namespace

void registerSearchTokenizer(sqlite3 *connection)
{
    fts5_tokenizer tokenizer{makeTokenizer, dropTokenizer, tokenize};
    fts5_api *api = apiOf(connection);
    if (!api || api->xCreateTokenizer(api, "orvane", nullptr, &tokenizer, nullptr) != SQLITE_OK)
        throw SQLite::Exception{"no full-text search", SQLITE_ERROR};
}
