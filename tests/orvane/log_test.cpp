// SPDX-License-Identifier: MIT
#include "host/log.h"
#include "orvane/orvane.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <vector>

namespace
{

const Log madeAtLoad("test.load");

struct Line {
    std::string channel;
    orvane::LogLevel level;
    std::string text;

    friend bool operator==(const Line&, const Line&) = default;
};

class LineObserver : public orvane::Observer
{
public:
    void LogWritten(const char* channel, orvane::LogLevel level, const char* text) override
    {
        lines.push_back({channel, level, text});
    }

    std::vector<Line> lines;
};

TEST(Log, SinkAndObserverGetTheWholeLine)
{
    std::vector<Line> lines;
    LineObserver observer;
    orvane::Settings settings;
    settings.logSink = [&](const char* channel, orvane::LogLevel level, const char* text) {
        lines.push_back({channel, level, text});
    };
    settings.observer = &observer;
    {
        const orvane::Host host(settings);
        const std::string name = "a.name";
        const Log log(name.c_str());
        madeAtLoad.Info("%d of %d\n", 2, 3);
        log.Error("%s", "");
        const char* const none = nullptr;
        log.Error(none);
        log.Info(none);
        Log(nullptr).Error("100%%");
        for (const std::size_t length : {254U, 255U, 256U, 257U, 100000U})
            log.Error("<%s>", std::string(length - 2, 'x').c_str());
    }
    std::vector<Line> expected = {
        {"test.load", orvane::LogLevel::Info, "2 of 3\n"},
        {"a.name", orvane::LogLevel::Error, ""},
        {"", orvane::LogLevel::Error, "100%"},
    };
    for (const std::size_t length : {254U, 255U, 256U, 257U, 100000U})
        expected.push_back({"a.name", orvane::LogLevel::Error, "<" + std::string(length - 2, 'x') + ">"});
    EXPECT_EQ(lines, expected);
    EXPECT_EQ(observer.lines, expected);
}

TEST(Log, WithoutASinkErrorsGoToTheErrorStream)
{
    testing::internal::CaptureStderr();
    madeAtLoad.Error("before %s", "start");
    madeAtLoad.Info("not shown");
    {
        const orvane::Host host{orvane::Settings()};
        madeAtLoad.Error("running");
        madeAtLoad.Info("not shown");
    }
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "test.load: before start\ntest.load: running\n");
}

TEST(Log, ExceptionOfASinkReachesTheCaller)
{
    orvane::Settings settings;
    settings.logSink = [](const char*, orvane::LogLevel, const char* text) { throw std::runtime_error(text); };
    const orvane::Host host(settings);
    EXPECT_THROW(madeAtLoad.Error("refused"), std::runtime_error);
}

} // namespace
