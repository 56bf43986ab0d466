#pragma once

#include <thread>

/// Reads the font configuration of the desktop on a thread of its own, while the main thread starts the
/// application: with the many files of a usual one this is the longest single step of a start.
/// Fontconfig's own functions may be called on any thread; what was read is found when Qt asks for it.
class FontWarmUp {
public:
    FontWarmUp();
    FontWarmUp(const FontWarmUp &) = delete;
    FontWarmUp &operator=(const FontWarmUp &) = delete;
    ~FontWarmUp() { finish(); }

    /// Waits for the end. Call before the first text is measured, or it would be read twice.
    void finish();

private:
    std::thread m_thread;
};
