#include "tools/drive/client/process.h"

#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <spawn.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <stdexcept>
#include <utility>

namespace velvox::drive {
namespace {

constexpr Milliseconds toolTime{60'000};

[[noreturn]] void fail(const std::string& what) {
    throw std::runtime_error(what + ": " + std::strerror(errno));
}

struct Pipe {
    Pipe() {
        int ends[2];
        if (pipe2(ends, O_CLOEXEC) != 0) fail("pipe");
        readEnd = ends[0];
        writeEnd = ends[1];
    }
    int readEnd;
    int writeEnd;
};

std::vector<char*> pointers(std::vector<std::string>& texts) {
    std::vector<char*> all;
    for (std::string& text : texts) all.push_back(text.data());
    all.push_back(nullptr);
    return all;
}

int waitingTime(Clock::time_point deadline) {
    const auto left = std::chrono::ceil<Milliseconds>(deadline - Clock::now()).count();
    return left > 0 ? static_cast<int>(left) : 0;
}

bool readable(int file, Clock::time_point deadline) {
    pollfd wanted{file, POLLIN, 0};
    int ready = 0;
    do {
        ready = poll(&wanted, 1, waitingTime(deadline));
    } while (ready < 0 && errno == EINTR);
    return ready > 0;
}

}  // namespace

Process::Process(const std::vector<std::string>& command, bool piped) {
    posix_spawn_file_actions_t files;
    posix_spawn_file_actions_init(&files);
    std::optional<Pipe> in;
    std::optional<Pipe> out;
    if (piped) {
        // Writing to a program that has ended must not end this program with a signal.
        signal(SIGPIPE, SIG_IGN);
        in.emplace();
        out.emplace();
        posix_spawn_file_actions_adddup2(&files, in->readEnd, STDIN_FILENO);
        posix_spawn_file_actions_adddup2(&files, out->writeEnd, STDOUT_FILENO);
        input_ = in->writeEnd;
        output_ = out->readEnd;
    } else {
        posix_spawn_file_actions_addopen(&files, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
        posix_spawn_file_actions_addopen(&files, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);
    }
    std::vector<std::string> words = command;
    const int error =
        posix_spawnp(&id_, words[0].c_str(), &files, nullptr, pointers(words).data(), environ);
    if (piped) {
        close(in->readEnd);
        close(out->writeEnd);
    }
    posix_spawn_file_actions_destroy(&files);
    if (error != 0) {
        errno = error;
        fail(command[0] + " does not start");
    }
    watch_ = static_cast<int>(syscall(SYS_pidfd_open, id_, 0));
    if (watch_ < 0) fail("pidfd_open");
}

Process::~Process() {
    if (!exit_) {
        kill(id_, SIGKILL);
        waitpid(id_, nullptr, 0);
    }
    for (const int file : {watch_, input_, output_})
        if (file >= 0) close(file);
}

std::optional<int> Process::exitWithin(Milliseconds time) {
    if (exit_ || !readable(watch_, Clock::now() + time)) return exit_;
    int status = 0;
    if (waitpid(id_, &status, 0) != id_) fail("waitpid");
    exit_ = WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
    return exit_;
}

void Process::write(std::string_view bytes) const {
    while (!bytes.empty()) {
        const ssize_t sent = ::write(input_, bytes.data(), bytes.size());
        if (sent < 0 && errno == EINTR) continue;
        if (sent <= 0) fail("write to a program");
        bytes.remove_prefix(static_cast<std::size_t>(sent));
    }
}

void Process::closeInput() {
    close(std::exchange(input_, -1));
}

bool Process::readMore(Clock::time_point deadline) {
    if (!readable(output_, deadline)) throw std::runtime_error("a program does not answer in time");
    char piece[65536];
    const ssize_t got = read(output_, piece, sizeof piece);
    if (got > 0) read_.append(piece, static_cast<std::size_t>(got));
    return got > 0;
}

std::string Process::readUntil(char end, Milliseconds time) {
    const auto deadline = Clock::now() + time;
    std::size_t at = 0;
    for (std::size_t searched = 0; (at = read_.find(end, searched)) == read_.npos;) {
        searched = read_.size();
        if (!readMore(deadline)) throw std::runtime_error("a program ended without an answer");
    }
    const std::string text = read_.substr(0, at);
    read_.erase(0, at + 1);
    return text;
}

std::string Process::readAll(Milliseconds time) {
    const auto deadline = Clock::now() + time;
    while (readMore(deadline)) {
    }
    return std::exchange(read_, {});
}

std::string outputOf(const std::vector<std::string>& command, std::string_view input) {
    Process process(command, true);
    process.write(input);
    process.closeInput();
    std::string output = process.readAll(toolTime);
    const auto code = process.exitWithin(toolTime);
    if (code != 0) throw std::runtime_error(command[0] + " failed: " + output);
    return output;
}

}  // namespace velvox::drive
