// SPDX-License-Identifier: MIT
#pragma once

#include <condition_variable>
#include <deque>
#include <functional>
#include <mutex>
#include <optional>
#include <stop_token>
#include <string>
#include <thread>

namespace klondike
{

/// Reads lines from a file descriptor, such as the standard input, on a thread of its own.
class CommandReader
{
public:
    /// The function is called on the reader's thread when a line has come, or the end. The descriptor stays open, and
    /// outlives the reader. Throws std::system_error when the system gives no pipe or no thread.
    CommandReader(int descriptor, std::function<void()> wake);
    /// Ends at once, also in the middle of a wait for input.
    ~CommandReader();
    CommandReader(const CommandReader&) = delete;
    CommandReader& operator=(const CommandReader&) = delete;

    /// The next line without its end, in their order; a line too long for any command is cut. Empty: none has come.
    std::optional<std::string> Take();
    ///@{
    /// There are lines to take; and: no more will come.
    bool HasLines();
    bool HasEnded();
    ///@}

private:
    class Pipe
    {
    public:
        Pipe();
        ~Pipe();
        Pipe(const Pipe&) = delete;
        Pipe& operator=(const Pipe&) = delete;
        int ReadEnd() const { return m_ends[0]; }
        void Signal() const;

    private:
        int m_ends[2] = {-1, -1};
    };

    void Run(const std::stop_token& end);
    void ReadLines(const std::stop_token& end);
    void Add(std::string line);

    const int m_descriptor;
    const std::function<void()> m_wake;
    std::mutex m_mutex;
    std::condition_variable_any m_taken;
    std::deque<std::string> m_lines;
    bool m_hasEnded = false;
    Pipe m_pipe; ///< readable when the reader is to end
    std::jthread m_thread;
};

} // namespace klondike
