#pragma once

#include <functional>
#include <optional>
#include <sys/types.h>

namespace veldrune::test {

/// A process that does one thing and is stopped before each of its system calls on files. Killed
/// when destroyed.
class TracedChild {
  public:
    /// Forks a process that runs operation and ends with what it returns.
    explicit TracedChild(const std::function<int()>& operation);
    ~TracedChild();
    TracedChild(const TracedChild&) = delete;
    TracedChild& operator=(const TracedChild&) = delete;

    /// Whether the system allows it.
    static bool possible();

    struct Call {
        long number; // SYS_pwrite64 and others
        bool creates;
    };
    /// Runs up to the next call on files and stops before it. Nothing once the process has ended.
    std::optional<Call> next_call();
    /// Makes the call before which the process stands read or write only half as many bytes.
    void halve_call();
    /// Makes that call do nothing and return this error.
    void fail_call(int error);
    /// Runs to the end. What operation returned; -1 if it did not end by itself.
    int finish();

  private:
    pid_t process_ = -1;
    int status_ = 0; // as waitpid reports it
};

} // namespace veldrune::test
