// SPDX-License-Identifier: MIT
#include "examples/common/unfinished_file.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <chrono>
#include <cstddef>
#include <string>
#include <system_error>

#ifdef _WIN32
#include <io.h>
#include <process.h>

#include <thread>
#else
#include <unistd.h>
#endif

namespace common
{

namespace
{

namespace fs = std::filesystem;

constexpr std::string_view kEnding = ".new";

#ifdef _WIN32

int ProcessNumber()
{
    return _getpid();
}

/// Fails where the file is there.
int MakeFile(const fs::path& name)
{
    return _wopen(name.c_str(), _O_WRONLY | _O_CREAT | _O_EXCL | _O_BINARY | _O_NOINHERIT, _S_IREAD | _S_IWRITE);
}

std::ptrdiff_t WriteSome(int descriptor, std::string_view bytes)
{
    constexpr std::size_t kMost = 1U << 20;
    return _write(descriptor, bytes.data(), static_cast<unsigned>(std::min(bytes.size(), kMost)));
}

bool Sync(int descriptor)
{
    return _commit(descriptor) == 0;
}

void CloseFile(int descriptor)
{
    _close(descriptor);
}

/// Puts a file in the place of another. One that somebody has open, if only to read it or to replace it too, cannot be
/// replaced at that moment.
void Replace(const fs::path& from, const fs::path& to)
{
    constexpr int kTries = 200;
    constexpr std::chrono::milliseconds kPause{5};
    std::error_code error;
    for (int i = 0; i < kTries; ++i) {
        fs::rename(from, to, error);
        if (error != std::errc::permission_denied) {
            break;
        }
        std::this_thread::sleep_for(kPause);
    }
    if (error) {
        throw std::system_error(error);
    }
}

/// Nothing to do: a folder cannot be opened, and its changes last.
void SyncFolder(const fs::path&) {}

#else

int ProcessNumber()
{
    return getpid();
}

/// Fails where the file is there.
int MakeFile(const fs::path& name)
{
    return open(name.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, S_IRUSR | S_IWUSR);
}

std::ptrdiff_t WriteSome(int descriptor, std::string_view bytes)
{
    return write(descriptor, bytes.data(), bytes.size());
}

bool Sync(int descriptor)
{
    return fsync(descriptor) == 0;
}

void CloseFile(int descriptor)
{
    close(descriptor);
}

/// Puts a file in the place of another.
void Replace(const fs::path& from, const fs::path& to)
{
    fs::rename(from, to);
}

/// Makes a renaming in it last. Some file systems cannot; the file is whole all the same.
void SyncFolder(const fs::path& folder)
{
    const int descriptor = open(folder.empty() ? "." : folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (descriptor >= 0) {
        Sync(descriptor);
        CloseFile(descriptor);
    }
}

#endif

[[noreturn]] void ThrowLastError()
{
    throw std::system_error(errno, std::generic_category());
}

/// Another one for each call of each program: PLACE.PROCESS-COUNT.new.
fs::path NextName(const fs::path& place)
{
    static std::atomic<unsigned> count{0};
    fs::path name = place;
    name += "." + std::to_string(ProcessNumber()) + "-" + std::to_string(++count);
    name += kEnding;
    return name;
}

} // namespace

UnfinishedFile::UnfinishedFile(const fs::path& place)
    : m_place(place), m_name(NextName(place)), m_descriptor(MakeFile(m_name))
{
    // A program that died, or one on another machine with this disk, may have had the same number.
    while (m_descriptor < 0 && errno == EEXIST) {
        m_name = NextName(place);
        m_descriptor = MakeFile(m_name);
    }
    if (m_descriptor < 0) {
        ThrowLastError();
    }
}

UnfinishedFile::~UnfinishedFile()
{
    Close();
    std::error_code ignored;
    if (!m_name.empty()) {
        fs::remove(m_name, ignored);
    }
}

void UnfinishedFile::Write(std::string_view bytes)
{
    while (!bytes.empty()) {
        const std::ptrdiff_t written = WriteSome(m_descriptor, bytes);
        if (written < 0 && errno != EINTR) {
            ThrowLastError();
        }
        bytes.remove_prefix(static_cast<std::size_t>(std::max<std::ptrdiff_t>(written, 0)));
    }
}

void UnfinishedFile::Publish()
{
    if (!Sync(m_descriptor)) {
        ThrowLastError();
    }
    Close();
    Replace(m_name, m_place);
    m_name.clear();
    SyncFolder(m_place.parent_path());
}

void UnfinishedFile::Close()
{
    if (m_descriptor >= 0) {
        CloseFile(m_descriptor);
        m_descriptor = -1;
    }
}

bool IsUnfinished(const fs::path& file)
{
    const std::string numbers = file.stem().extension().string();
    return file.extension() == kEnding && numbers.size() > 1 &&
           numbers.find_first_not_of("0123456789-", 1) == std::string::npos;
}

void RemoveLeftovers(const fs::path& place)
{
    const auto now = fs::file_time_type::clock::now();
    std::error_code error;
    const fs::path folder = place.has_parent_path() ? place.parent_path() : fs::path(".");
    for (fs::directory_iterator at(folder, error), end; !error && at != end; at.increment(error)) {
        if (!IsUnfinished(at->path()) || at->path().stem().stem() != place.filename()) {
            continue;
        }
        std::error_code gone; // by another program
        const auto time = at->last_write_time(gone);
        if (!gone && now - time > kLongestWriting) {
            fs::remove(at->path(), gone);
        }
    }
}

} // namespace common
