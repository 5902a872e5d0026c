// SPDX-License-Identifier: MIT
#include "host/log.h"

#include "orvane/running_host.h"

#include <cstdarg>
#include <cstdio>

namespace
{

/// The formatted line, of any length; the format itself when an argument cannot be converted.
std::string Format(const char* format, std::va_list arguments)
{
    std::va_list again;
    va_copy(again, arguments);
    char line[256];
    const int length = std::vsnprintf(line, sizeof line, format, arguments);
    std::string text;
    if (length < 0) {
        text = format;
    } else if (static_cast<std::size_t>(length) < sizeof line) {
        text.assign(line, static_cast<std::size_t>(length));
    } else {
        text.resize(static_cast<std::size_t>(length));
        // The terminating zero falls on the one that the string keeps behind its end.
        std::vsnprintf(text.data(), text.size() + 1, format, again);
    }
    va_end(again);
    return text;
}

/// To the observer, then to the sink; what they throw goes on to who logs. Neither changes the text.
void Write(const char* channel, orvane::LogLevel level, const char* format, std::va_list arguments)
{
    if (format == nullptr) {
        return;
    }
    const std::string line = Format(format, arguments);
    const char* const text = line.c_str();
    const orvane::RunningHost* host = orvane::Running();
    if (host != nullptr && host->observer != nullptr) {
        host->observer->LogWritten(channel, level, text);
    }
    if (host != nullptr && host->logSink) {
        host->logSink(channel, level, text);
    } else if (level == orvane::LogLevel::Error) {
        std::fprintf(stderr, "%s: %s\n", channel, text);
    }
}

} // namespace

Log::Log(const char* name) : m_name(name != nullptr ? name : "") {}

Log::~Log() = default;

void Log::Error(const char* format, ...) const
{
    std::va_list arguments;
    va_start(arguments, format);
    Write(m_name.c_str(), orvane::LogLevel::Error, format, arguments);
    va_end(arguments);
}

void Log::Info(const char* format, ...) const
{
    std::va_list arguments;
    va_start(arguments, format);
    Write(m_name.c_str(), orvane::LogLevel::Info, format, arguments);
    va_end(arguments);
}
