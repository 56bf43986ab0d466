#pragma once

struct sqlite3;

/// Teaches the connection the tokenizer "orvane" of SQLite's FTS5, by which the search index of the store
/// is made: the words of searchWords(). Whoever writes tasks needs it. Throws SQLite::Exception.
void registerSearchTokenizer(sqlite3 *connection);
