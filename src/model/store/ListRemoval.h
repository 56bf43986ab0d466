#pragma once

class KWProject;

/// Deletes the list for good inside a save that somebody else makes: with its tasks, columns and members,
/// the manual positions in it and the way it is shown. Where it belongs to somebody else its contents are
/// only removed here, so that the others keep them.
void removeWithContents(KWProject &list);
