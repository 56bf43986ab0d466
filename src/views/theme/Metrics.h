#pragma once

#include <QtMath>

/// Sizes on the 4 px grid, in device-independent pixels at a text size of 100 %. What holds text grows
/// with the text: ask scaled() for those.
namespace Metrics {

inline constexpr int grid = 4;

inline constexpr int sidebarWidth = 248;
inline constexpr int sidebarMinimumWidth = 200;
inline constexpr int sidebarMaximumWidth = 360;
inline constexpr int detailWidth = 352;
inline constexpr int detailMinimumWidth = 300;
inline constexpr int detailMaximumWidth = 520;
inline constexpr int windowWidth = 1280;
inline constexpr int windowHeight = 800;
inline constexpr int windowMinimumWidth = 720;
inline constexpr int windowMinimumHeight = 480;
/// Below this window width the detail is a sheet over the list.
inline constexpr int narrowWindowWidth = 900;

inline constexpr int taskRow = 40;
inline constexpr int sidebarRow = 32;
inline constexpr int sectionHeader = 36; ///< of the sidebar
inline constexpr int listSection = 32;   ///< the header of a section of tasks
inline constexpr int addField = 40;
inline constexpr int control = 34;     ///< a button, a box of choices, a field; the focus ring included
inline constexpr int quietButton = 28; ///< a button without an outline
inline constexpr int checkbox = 16;
inline constexpr int icon = 16;
inline constexpr int dot = 9;
inline constexpr int avatar = 26;

inline constexpr int margin = 24;      ///< of the middle column
inline constexpr int sideMargin = 20;  ///< of the sidebar and the detail
inline constexpr int rowOutset = 10;   ///< how far a row's background stands out of the margins
inline constexpr int titleIndent = 28; ///< from a row's checkbox to its title
inline constexpr int gap = 12;         ///< between the pieces at the right of a row

inline constexpr int rowRadius = 8;
inline constexpr int fieldRadius = 10;
inline constexpr int popupRadius = 10;
inline constexpr int pillRadius = 5;
inline constexpr int checkboxRadius = 5;

/// How much larger than 100 % text is: the setting times the desktop's own text scaling.
double textScale();

/// A size that holds text, in whole pixels.
inline int scaled(int size) { return qRound(size * textScale()); }

} // namespace Metrics
