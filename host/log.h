// SPDX-License-Identifier: MIT
#pragma once

#include "host/export.h"

#include <string>

#if defined(__GNUC__)
#define ORVANE_PRINTF(formatIndex, firstArgument) __attribute__((format(printf, formatIndex, firstArgument)))
#else
#define ORVANE_PRINTF(formatIndex, firstArgument)
#endif

/// A named channel of the host's log. May be made before the host is started and live past its stop: lines written
/// then go where the host's default sends them.
class ORVANE_API Log
{
public:
    /// The name is copied; null is taken as the empty name.
    explicit Log(const char* name);
    ~Log();
    Log(const Log&) = delete;
    Log& operator=(const Log&) = delete;

    /// Writes a printf-style line at the error level. A null format writes nothing.
    void Error(const char* format, ...) const ORVANE_PRINTF(2, 3);
    /// Writes a printf-style line at the information level. A null format writes nothing.
    void Info(const char* format, ...) const ORVANE_PRINTF(2, 3);

private:
    std::string m_name;
};
