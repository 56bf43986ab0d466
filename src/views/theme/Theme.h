#pragma once

#include "model/records/KWConstants.h"

#include <QColor>

enum class ColorScheme { Light, Dark };

/// Every colour of the product, written once per scheme. Views name a role, never a colour.
/// Each text role keeps the AA contrast of WCAG 2.1 (success criterion 1.4.3, 4.5 to 1) on every
/// background it is painted on: all of window, sidebar, field and hover, and where noted the selection.
struct Theme {
    ColorScheme scheme;

    // Backgrounds
    QColor window;
    QColor sidebar;
    QColor hover;
    QColor selection;
    QColor softAccent; ///< behind recognised pieces and around the focused field
    QColor tag;        ///< behind a tag's name
    QColor toast;
    QColor popup;

    // Text
    QColor text;          ///< also on the selection
    QColor secondaryText; ///< also on the selection
    QColor faintText;     ///< not on the selection: there `secondaryText` stands in
    QColor doneText;      ///< not on the selection: there `secondaryText` stands in
    QColor accentText;    ///< also on the selection and on the soft accent
    QColor overdueText;   ///< also on the selection
    QColor onAccent;      ///< on the accent
    QColor onToast;
    QColor toastAction;

    // Lines and marks
    QColor hairline;
    QColor popupEdge; ///< around what stands over other windows
    QColor control;   ///< outline of an empty checkbox
    QColor done;      ///< filled checkbox of a closed task
    QColor accent;

    /// What one priority paints.
    struct Priority {
        QColor mark; ///< checkbox outline and flag
        QColor soft; ///< behind a recognised piece
        QColor text; ///< on `soft`
    };
    Priority high;
    Priority medium;
    Priority low;
    Priority none;

    const Priority &priority(KWTaskPriority value) const;

    static const Theme &light();
    static const Theme &dark();
    /// The theme in force. Main thread only, like all painting.
    static const Theme &current();
};
