#include "real_files_tracer.h"

#include <csignal>
#include <cstddef>
#include <fcntl.h>
#include <linux/filter.h>
#include <linux/seccomp.h>
#include <sys/prctl.h>
#include <sys/ptrace.h>
#include <sys/syscall.h>
#include <sys/user.h>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

namespace veldrune::test {
namespace {

constexpr int not_traceable = 77;

// clang-format off
constexpr long calls_on_files[] = {
    SYS_open, SYS_openat, SYS_creat, SYS_close,
    SYS_read, SYS_write, SYS_pread64, SYS_pwrite64, SYS_readv, SYS_writev, SYS_preadv, SYS_pwritev,
    SYS_sendfile, SYS_copy_file_range, SYS_ftruncate, SYS_truncate, SYS_fallocate,
    SYS_fsync, SYS_fdatasync, SYS_flock, SYS_fcntl,
    SYS_stat, SYS_lstat, SYS_fstat, SYS_newfstatat, SYS_statx,
    SYS_access, SYS_faccessat, SYS_faccessat2, SYS_readlink, SYS_readlinkat,
    SYS_rename, SYS_renameat, SYS_renameat2, SYS_link, SYS_linkat, SYS_unlink, SYS_unlinkat,
    SYS_chmod, SYS_fchmod, SYS_fchmodat,
};
// clang-format on

// Has the system stop this process before each of these calls.
bool be_stopped_before_calls_on_files() {
    std::vector<sock_filter> filter{BPF_STMT(BPF_LD | BPF_W | BPF_ABS, offsetof(seccomp_data, nr))};
    for (const long call : calls_on_files) {
        filter.push_back(BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, static_cast<unsigned>(call), 0, 1));
        filter.push_back(BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_TRACE));
    }
    filter.push_back(BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ALLOW));
    const sock_fprog program{static_cast<unsigned short>(filter.size()), filter.data()};
    return ::prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) == 0 &&
           ::prctl(PR_SET_SECCOMP, SECCOMP_MODE_FILTER, &program) == 0;
}

user_regs_struct registers_of(pid_t process) {
    user_regs_struct registers{};
    ::ptrace(PTRACE_GETREGS, process, nullptr, &registers);
    return registers;
}
void set_registers(pid_t process, user_regs_struct registers) {
    ::ptrace(PTRACE_SETREGS, process, nullptr, &registers);
}

} // namespace

TracedChild::TracedChild(const std::function<int()>& operation) : process_(::fork()) {
    if (process_ == 0) {
        if (::ptrace(PTRACE_TRACEME, 0, nullptr, nullptr) != 0)
            ::_exit(not_traceable);
        ::raise(SIGSTOP);
        if (!be_stopped_before_calls_on_files())
            ::_exit(not_traceable);
        ::_exit(operation()); // without what ends the tests, a search for leaks included
    }
    ::waitpid(process_, &status_, 0);
    ::ptrace(PTRACE_SETOPTIONS, process_, nullptr, PTRACE_O_TRACESECCOMP | PTRACE_O_EXITKILL);
}

TracedChild::~TracedChild() {
    if (!WIFSTOPPED(status_))
        return;
    ::kill(process_, SIGKILL);
    ::waitpid(process_, &status_, 0);
}

bool TracedChild::possible() {
    TracedChild child([] { return ::access("/", F_OK); });
    return child.next_call() && child.finish() == 0;
}

std::optional<TracedChild::Call> TracedChild::next_call() {
    constexpr int before_call = SIGTRAP | PTRACE_EVENT_SECCOMP << 8;
    long signal = 0; // is passed on
    while (WIFSTOPPED(status_) && ::ptrace(PTRACE_CONT, process_, nullptr, signal) == 0) {
        ::waitpid(process_, &status_, 0);
        if (WIFSTOPPED(status_) && status_ >> 8 == before_call) {
            const user_regs_struct registers = registers_of(process_);
            const auto number = static_cast<long>(registers.orig_rax);
            return Call{number, number == SYS_openat && (registers.rdx & O_CREAT) != 0};
        }
        signal = WIFSTOPPED(status_) ? WSTOPSIG(status_) : 0;
    }
    return std::nullopt;
}

void TracedChild::halve_call() {
    user_regs_struct registers = registers_of(process_);
    registers.rdx = (registers.rdx + 1) / 2;
    set_registers(process_, registers);
}

void TracedChild::fail_call(int error) {
    user_regs_struct registers = registers_of(process_);
    registers.orig_rax = static_cast<unsigned long long>(-1); // no call
    registers.rax = static_cast<unsigned long long>(-error);
    set_registers(process_, registers);
}

int TracedChild::finish() {
    while (next_call()) {
    }
    return WIFEXITED(status_) ? WEXITSTATUS(status_) : -1;
}

} // namespace veldrune::test
