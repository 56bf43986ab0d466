#pragma once

#include "capture/RecognitionOptions.h"
#include "capture/RecognizedPiece.h"

/// What the mark of a piece carries as its link, so that a click can take the recognition back: a JSON object
/// (RFC 8259) with a "type", one of "date", "assignee", "project" and "priority", and a "value": an id, the
/// number of a priority, or "". A tag has none: it is a word like others.
QString recognitionLink(const RecognizedPiece &piece);

enum class Recognition { Allowed, Blocked };

/// Lets the options recognise what a link stands for, or not. False, and nothing is changed, for a text that
/// is no such object, and for a list or a priority without its value.
bool setRecognition(const QString &link, Recognition recognition, RecognitionOptions &options);
