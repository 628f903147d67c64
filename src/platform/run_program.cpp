// The input lies in a file without a name, not in a pipe: so a child that does not read it blocks nobody,
// and one that ends early costs us no signal.

#include "platform/run_program.h"

#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <memory>
#include <system_error>

#include "base/chess_exception.h"
#include "platform/clock.h"

extern char** environ;

namespace tarnwick {
namespace {

struct TFileCloser {
    void operator()(std::FILE* file) const { std::fclose(file); }
};
using TFile = std::unique_ptr<std::FILE, TFileCloser>;

TFile FileWith(std::string_view content) {
    TFile file(std::tmpfile());
    if (!file || std::fwrite(content.data(), 1, content.size(), file.get()) != content.size() ||
        std::fflush(file.get()) != 0 || std::fseek(file.get(), 0, SEEK_SET) != 0) {
        throw ChessException(std::generic_category().message(errno));
    }
    ::fcntl(fileno(file.get()), F_SETFD, FD_CLOEXEC);
    return file;
}

/// Both ends of a pipe; what is still open is closed at the end.
class CPipe {
  public:
    CPipe() {
        if (::pipe2(m_ends.data(), O_CLOEXEC) != 0) {
            throw ChessException(std::generic_category().message(errno));
        }
    }
    CPipe(const CPipe&) = delete;
    CPipe& operator=(const CPipe&) = delete;
    ~CPipe() {
        ::close(m_ends[0]);
        CloseWriteEnd();
    }

    int ReadEnd() const { return m_ends[0]; }
    int WriteEnd() const { return m_ends[1]; }
    void CloseWriteEnd() {
        if (m_ends[1] >= 0) {
            ::close(m_ends[1]);
            m_ends[1] = -1;
        }
    }

  private:
    std::array<int, 2> m_ends{-1, -1};
};

/// The number of the child; nothing if it could not be started.
std::optional<pid_t> Start(const TProgramRun& run, int input, int output) {
    std::vector<std::string> words = run.words;
    std::vector<char*> arguments;
    for (std::string& word : words) {
        arguments.push_back(word.data());
    }
    arguments.push_back(nullptr);
    posix_spawn_file_actions_t actions;
    ::posix_spawn_file_actions_init(&actions);
    ::posix_spawn_file_actions_adddup2(&actions, input, STDIN_FILENO);
    ::posix_spawn_file_actions_adddup2(&actions, output, STDOUT_FILENO);
    pid_t child = 0;
    const int error =
        ::posix_spawnp(&child, arguments[0], &actions, nullptr, arguments.data(), environ);
    ::posix_spawn_file_actions_destroy(&actions);
    return error == 0 ? std::optional(child) : std::nullopt;
}

/// All that comes until the other end is closed; nothing if it is too much or takes too long.
std::optional<std::string> ReadUntilClosed(int end, const TProgramRun& run) {
    const std::int64_t deadline = NowMs() + run.limitMs;
    std::string output;
    std::array<char, 1 << 16> block;
    while (true) {
        pollfd wait{.fd = end, .events = POLLIN, .revents = 0};
        const auto left = static_cast<int>(std::max<std::int64_t>(deadline - NowMs(), 0));
        const int ready = ::poll(&wait, 1, left);
        if (ready == 0) {
            return std::nullopt;
        }
        const ssize_t count = ready < 0 ? ready : ::read(end, block.data(), block.size());
        if (count == 0) {
            return output;
        }
        if (count < 0 && errno != EINTR) {
            return std::nullopt;
        }
        output.append(block.data(), static_cast<std::size_t>(std::max<ssize_t>(count, 0)));
        if (output.size() > run.maxOutput) {
            return std::nullopt;
        }
    }
}

bool EndedWell(pid_t child) {
    int status = 0;
    pid_t ended = 0;
    do {
        ended = ::waitpid(child, &status, 0);
    } while (ended < 0 && errno == EINTR);
    return ended == child && WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

}  // namespace

std::optional<std::string> RunProgram(const TProgramRun& run) {
    const TFile input = FileWith(run.input);
    CPipe pipe;
    const std::optional<pid_t> child = Start(run, fileno(input.get()), pipe.WriteEnd());
    if (!child) {
        return std::nullopt;
    }
    pipe.CloseWriteEnd();
    std::optional<std::string> output = ReadUntilClosed(pipe.ReadEnd(), run);
    if (!output) {
        ::kill(*child, SIGKILL);
    }
    return EndedWell(*child) ? output : std::nullopt;
}

std::filesystem::path FolderOfThisProgram() {
    std::error_code error;
    const std::filesystem::path program = std::filesystem::read_symlink("/proc/self/exe", error);
    return error ? std::filesystem::path() : program.parent_path();
}

}  // namespace tarnwick
