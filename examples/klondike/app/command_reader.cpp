// SPDX-License-Identifier: MIT
#include "examples/klondike/app/command_reader.h"

#include <array>
#include <cerrno>
#include <system_error>
#include <utility>

#include <poll.h>
#include <unistd.h>

namespace klondike
{

namespace
{

constexpr std::size_t kMostLine = 1000;
/// Lines that wait; a program that writes faster than the game plays has to wait then.
constexpr std::size_t kMostLines = 256;

} // namespace

CommandReader::Pipe::Pipe()
{
    if (pipe(m_ends) != 0) {
        throw std::system_error(errno, std::generic_category(), "no pipe to read commands with");
    }
}

CommandReader::Pipe::~Pipe()
{
    close(m_ends[0]);
    close(m_ends[1]);
}

void CommandReader::Pipe::Signal() const
{
    const char byte = 0;
    while (write(m_ends[1], &byte, 1) < 0 && errno == EINTR) {
    }
}

CommandReader::CommandReader(int descriptor, std::function<void()> wake)
    : m_descriptor(descriptor), m_wake(std::move(wake)), m_thread([this](const std::stop_token& end) { Run(end); })
{
}

CommandReader::~CommandReader()
{
    m_thread.request_stop();
    m_pipe.Signal();
}

std::optional<std::string> CommandReader::Take()
{
    const std::lock_guard lock(m_mutex);
    if (m_lines.empty()) {
        return std::nullopt;
    }
    std::string line = std::move(m_lines.front());
    m_lines.pop_front();
    m_taken.notify_one();
    return line;
}

bool CommandReader::HasLines()
{
    const std::lock_guard lock(m_mutex);
    return !m_lines.empty();
}

bool CommandReader::HasEnded()
{
    const std::lock_guard lock(m_mutex);
    return m_hasEnded;
}

void CommandReader::Run(const std::stop_token& end)
{
    ReadLines(end);
    {
        const std::lock_guard lock(m_mutex);
        m_hasEnded = true;
    }
    m_wake();
}

void CommandReader::Add(std::string line)
{
    {
        const std::lock_guard lock(m_mutex);
        m_lines.push_back(std::move(line));
    }
    m_wake();
}

void CommandReader::ReadLines(const std::stop_token& end)
{
    std::string line;
    std::array<char, 4096> buffer{};
    for (;;) {
        {
            std::unique_lock lock(m_mutex);
            if (!m_taken.wait(lock, end, [this] { return m_lines.size() < kMostLines; })) {
                return;
            }
        }
        std::array<pollfd, 2> ready{{{m_descriptor, POLLIN, 0}, {m_pipe.ReadEnd(), POLLIN, 0}}};
        if (poll(ready.data(), ready.size(), -1) < 0 && errno != EINTR) {
            return;
        }
        if (end.stop_requested()) {
            return;
        }
        if (ready[0].revents == 0) {
            continue;
        }
        const ssize_t count = read(m_descriptor, buffer.data(), buffer.size());
        if (count <= 0) {
            if (count < 0 && (errno == EINTR || errno == EAGAIN)) {
                continue;
            }
            if (!line.empty()) {
                Add(std::move(line)); // the last line may have no end
            }
            return;
        }
        for (ssize_t i = 0; i < count; ++i) {
            const char c = buffer[static_cast<std::size_t>(i)];
            if (c == '\n') {
                Add(std::exchange(line, {}));
            } else if (line.size() < kMostLine) {
                line += c;
            }
        }
    }
}

} // namespace klondike
