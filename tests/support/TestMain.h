#pragma once

#include <QObject>
#include <QTest>

#include <functional>
#include <memory>

/// Registers a test class with the program it is compiled into. The program runs the classes named on
/// its command line, or all of them, each in a home of its own: XDG folders in a temporary directory,
/// zone UTC, locale C, no desktop.
#define ORVANE_TEST(Class)                                                                                   \
    namespace {                                                                                              \
    const TestRegistration registration_##Class{#Class, [] { return std::make_unique<Class>(); }};           \
    }

class TestRegistration {
public:
    using Factory = std::function<std::unique_ptr<QObject>()>;
    TestRegistration(const char *name, Factory factory);
};
