#pragma once

class Connection;

/// The numbered changes of the store's schema. A migration, once released, never changes.
namespace Migrations {

/// The version that this program writes.
int currentVersion();

/// Brings the store from its version to the current one, each step in a transaction of its own, and
/// reads the root of every table. Throws SQLite::Exception; the step that failed left no trace.
void apply(Connection &connection);

/// Up to `version` only; for tests that start from an old store.
void applyUpTo(int version, Connection &connection);

} // namespace Migrations
