#pragma once

#include <chrono>

/// A moment, counted in milliseconds since the Unix epoch, without leap seconds.
using Instant = std::chrono::sys_time<std::chrono::milliseconds>;

/// A wall-clock reading in a zone that the context gives.
using LocalTime = std::chrono::local_time<std::chrono::milliseconds>;

/// A day of the proleptic Gregorian calendar, in no zone.
using Day = std::chrono::local_days;
