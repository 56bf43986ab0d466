#include "views/theme/Theme.h"

#include "views/theme/ThemeConfigurator.h"

const Theme &Theme::light()
{
    static const Theme theme{
        .scheme = ColorScheme::Light,
        .window = 0xffffff,
        .sidebar = 0xf4f4f6,
        .hover = 0xececf0,
        .selection = 0xe4e3f7,
        .softAccent = 0xefeefc,
        .tag = 0xececf0,
        .toast = 0x2a2b32,
        .popup = 0xffffff,
        .text = 0x1f2229,
        .secondaryText = 0x525763,
        .faintText = 0x656a73,
        .doneText = 0x656a73,
        .accentText = 0x5252cc,
        .overdueText = 0xb93434,
        .onAccent = 0xffffff,
        .onToast = 0xffffff,
        .toastAction = 0xa8a6fb,
        .hairline = 0xe7e8ec,
        .popupEdge = 0xd3d5dc,
        .control = 0xa9aeb9,
        .done = 0xb5bac4,
        .accent = 0x5b5bd6,
        .high = {.mark = 0xe5484d, .soft = 0xfdeaea, .text = 0xb8343a},
        .medium = {.mark = 0xe79a0c, .soft = 0xfdf1dc, .text = 0x8a5a00},
        .low = {.mark = 0x3e8ef7, .soft = 0xe6f0fe, .text = 0x2563b0},
        .none = {.mark = 0xa9aeb9, .soft = 0xececf0, .text = 0x525763},
    };
    return theme;
}

const Theme &Theme::dark()
{
    static const Theme theme{
        .scheme = ColorScheme::Dark,
        .window = 0x1b1c20,
        .sidebar = 0x222329,
        .hover = 0x2b2c33,
        .selection = 0x34335a,
        .softAccent = 0x2a2948,
        .tag = 0x35363e,
        .toast = 0x35363e,
        .popup = 0x25262c,
        .text = 0xe9eaee,
        .secondaryText = 0xaeb3be,
        .faintText = 0x93979f,
        .doneText = 0x93979f,
        .accentText = 0xa09ef7,
        .overdueText = 0xff7b7b,
        .onAccent = 0x16171b,
        .onToast = 0xe9eaee,
        .toastAction = 0xb4b2fc,
        .hairline = 0x303138,
        .popupEdge = 0x41434c,
        .control = 0x696e79,
        .done = 0x5d616b,
        .accent = 0x8482f2,
        .high = {.mark = 0xff6b70, .soft = 0x48282e, .text = 0xff8a8e},
        .medium = {.mark = 0xf5b544, .soft = 0x44371f, .text = 0xf5b544},
        .low = {.mark = 0x6fb0ff, .soft = 0x223a57, .text = 0x6fb0ff},
        .none = {.mark = 0x696e79, .soft = 0x35363e, .text = 0xaeb3be},
    };
    return theme;
}

const Theme &Theme::current() { return ThemeConfigurator::shared().theme(); }

const Theme::Priority &Theme::priority(KWTaskPriority value) const
{
    if (value >= KWTaskPriorityHigh) return high;
    if (value >= KWTaskPriorityMedium) return medium;
    return value >= KWTaskPriorityLow ? low : none;
}
