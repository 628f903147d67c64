#pragma once

// A body of a test in a process of its own, for limits and signals that would end the test.

#include <sys/wait.h>
#include <unistd.h>

namespace tarnwick {

/// Runs the body in a child process and gives its exit status, -1 if a signal ended it.
template <typename TBody>
int StatusOfChild(TBody body) {
    const pid_t child = ::fork();
    if (child == 0) {
        ::_exit(body());
    }
    int status = 0;
    ::waitpid(child, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

}  // namespace tarnwick
