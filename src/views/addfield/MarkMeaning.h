#pragma once

#include <QString>

class OrvaneKit;
struct NewTaskDraft;
struct RecognizedPiece;

/// What a mark in the text of that draft stands for: "Date: Tomorrow, 17:00. Click to take it back."
QString meaningOf(const RecognizedPiece &piece, const NewTaskDraft &draft, OrvaneKit &kit);
