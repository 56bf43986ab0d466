#pragma once

struct sqlite3;

/// Teaches the connection the SQL function hasWords(typed, text, text, text): whether the words of a
/// SearchPhrase stand in the texts, as the search index finds them. Throws SQLite::Exception.
void registerWordsFunction(sqlite3 *connection);
