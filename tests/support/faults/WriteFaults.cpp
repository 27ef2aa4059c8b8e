#include "support/faults/WriteFaults.h"

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstdint>
#include <fcntl.h>
#include <map>
#include <set>
#include <stdexcept>
#include <sys/ptrace.h>
#include <sys/syscall.h>
#include <sys/user.h>
#include <sys/wait.h>
#include <unistd.h>
#include <utility>

namespace {

/// What makes a call one that can change files.
enum class When { Always, OpensForWriting, Writes, ClosesWritten };

struct Call {
  char const* name;
  When when;
  int flags = -1;  ///< which argument holds the flags of opening
};

// Made before the first test, which would leave it behind.
std::map<long, Call> const kCalls{
    {SYS_open, {"open", When::OpensForWriting, 1}},
    {SYS_openat, {"openat", When::OpensForWriting, 2}},
    {SYS_creat, {"creat", When::Always}},
    {SYS_write, {"write", When::Writes}},
    {SYS_pwrite64, {"pwrite64", When::Writes}},
    {SYS_writev, {"writev", When::Writes}},
    {SYS_pwritev, {"pwritev", When::Writes}},
    {SYS_sendfile, {"sendfile", When::Always}},
    {SYS_copy_file_range, {"copy_file_range", When::Always}},
    {SYS_fsync, {"fsync", When::Always}},
    {SYS_fdatasync, {"fdatasync", When::Always}},
    {SYS_truncate, {"truncate", When::Always}},
    {SYS_ftruncate, {"ftruncate", When::Always}},
    {SYS_fallocate, {"fallocate", When::Always}},
    {SYS_rename, {"rename", When::Always}},
    {SYS_renameat, {"rename", When::Always}},
    {SYS_renameat2, {"rename", When::Always}},
    {SYS_link, {"link", When::Always}},
    {SYS_linkat, {"link", When::Always}},
    {SYS_symlink, {"symlink", When::Always}},
    {SYS_symlinkat, {"symlink", When::Always}},
    {SYS_unlink, {"unlink", When::Always}},
    {SYS_unlinkat, {"unlink", When::Always}},
    {SYS_mkdir, {"mkdir", When::Always}},
    {SYS_mkdirat, {"mkdir", When::Always}},
    {SYS_rmdir, {"rmdir", When::Always}},
    {SYS_chmod, {"chmod", When::Always}},
    {SYS_fchmod, {"chmod", When::Always}},
    {SYS_fchmodat, {"chmod", When::Always}},
    {SYS_close, {"close", When::ClosesWritten}},
};

/// Follows a process from call to call.
class Watch {
 public:
  Watch(pid_t process, WriteFault const& fault) : process_(process), fault_(fault) {
    threads_.insert(process);
  }

  FaultedRun ToTheEnd() {
    constexpr long kOptions = PTRACE_O_TRACESYSGOOD | PTRACE_O_EXITKILL | PTRACE_O_TRACECLONE;
    ptrace(PTRACE_SETOPTIONS, process_, 0, kOptions);
    Continue(process_, 0);
    int status = 0;
    while (pid_t const thread = waitpid(-1, &status, __WALL)) {
      if (thread < 0) {
        throw std::runtime_error("the process was lost");
      }
      if (WIFSTOPPED(status)) {
        Stopped(thread, status);
      } else if (thread == process_) {
        run_.status = status;
        break;
      }
    }
    return run_;
  }

 private:
  static constexpr int kCallStop = SIGTRAP | 0x80;

  void Stopped(pid_t thread, int status) {
    bool const isNew = threads_.insert(thread).second;
    int const signal = WSTOPSIG(status);
    if (signal == kCallStop) {
      AtCall(thread);
      Continue(thread, 0);
    } else if (isNew || status >> 16 != 0) {
      Continue(thread, 0);
    } else {
      Continue(thread, signal);
    }
  }

  static void Continue(pid_t thread, int signal) { ptrace(PTRACE_SYSCALL, thread, 0, signal); }

  void AtCall(pid_t thread) {
    __ptrace_syscall_info info{};
    ptrace(PTRACE_GET_SYSCALL_INFO, thread, sizeof info, &info);
    if (info.op == PTRACE_SYSCALL_INFO_ENTRY) {
      auto const call = kCalls.find(static_cast<long>(info.entry.nr));
      if (fault_.noUnnamed && OpensUnnamed(info.entry.nr, info.entry.args)) {
        Fail(thread, EOPNOTSUPP);
      } else if (call != kCalls.end() && Counts(call->second, info.entry.args)) {
        Befall(thread, call->second, info.entry.args);
      }
      if (info.entry.nr == SYS_dup || info.entry.nr == SYS_fcntl) {
        from_[thread] = static_cast<int>(info.entry.args[0]);
        opens_[thread] = info.entry.nr == SYS_dup || info.entry.args[1] == F_DUPFD ||
                         info.entry.args[1] == F_DUPFD_CLOEXEC;
        opens_[thread] = opens_[thread] && written_.count(from_[thread]) != 0;
      }
    } else if (info.op == PTRACE_SYSCALL_INFO_EXIT) {
      if (opens_[thread] && !info.exit.is_error) {
        written_.insert(static_cast<int>(info.exit.rval));
      }
      opens_[thread] = false;
      if (int const error = std::exchange(errors_[thread], 0)) {
        SetRegister(thread, &user_regs_struct::rax, static_cast<unsigned long long>(-error));
      }
    }
  }

  /// Whether a call with these arguments can change a file.
  bool Counts(Call const& call, std::uint64_t const* arguments) {
    auto const file = static_cast<int>(arguments[0]);
    switch (call.when) {
      case When::Always:
        return true;
      case When::OpensForWriting:
        return (arguments[call.flags] & (O_WRONLY | O_RDWR | O_CREAT)) != 0;
      case When::Writes:
        return written_.count(file) != 0;
      case When::ClosesWritten:
        return written_.erase(file) != 0;
    }
    return false;
  }

  void Befall(pid_t thread, Call const& call, std::uint64_t const* arguments) {
    ++run_.calls;
    opens_[thread] = call.when == When::OpensForWriting;
    bool const befalls =
        run_.calls == fault_.first || (fault_.onwards && run_.calls > fault_.first);
    if (fault_.kind == WriteFault::Kind::None || !befalls) {
      return;
    }
    run_.faulted.emplace_back(call.name);
    if (fault_.kind == WriteFault::Kind::Kill) {
      kill(process_, SIGKILL);
    } else if (fault_.kind == WriteFault::Kind::Error) {
      if (call.when == When::ClosesWritten) {  // a file is closed even so
        errors_[thread] = fault_.error;
      } else {
        Fail(thread, fault_.error);
      }
    } else if (call.when == When::Writes && arguments[2] > 1) {
      SetRegister(thread, &user_regs_struct::rdx, arguments[2] / 2);
    }
  }

  static bool OpensUnnamed(std::uint64_t number, std::uint64_t const* arguments) {
    return number == SYS_openat && (arguments[2] & O_TMPFILE) == O_TMPFILE;
  }

  /// Lets the call that a thread has begun fail.
  void Fail(pid_t thread, int error) {
    errors_[thread] = error;
    opens_[thread] = false;
    SetRegister(thread, &user_regs_struct::orig_rax, static_cast<unsigned long long>(-1));
  }

  static void SetRegister(pid_t thread, unsigned long long user_regs_struct::*which,
                          unsigned long long value) {
    user_regs_struct registers{};
    ptrace(PTRACE_GETREGS, thread, 0, &registers);
    registers.*which = value;
    ptrace(PTRACE_SETREGS, thread, 0, &registers);
  }

  pid_t process_;
  WriteFault const& fault_;
  FaultedRun run_;
  std::set<pid_t> threads_;
  std::set<int> written_;        // files that are open for writing
  std::map<pid_t, int> from_;    // what a thread duplicates
  std::map<pid_t, bool> opens_;  // whether the call of a thread opens a file for writing
  std::map<pid_t, int> errors_;  // what the call of a thread is to fail with
};

}  // namespace

bool FaultedRun::Killed() const {
  return WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL;
}

bool FaultedRun::Befell(std::string const& call) const {
  return std::find(faulted.begin(), faulted.end(), call) != faulted.end();
}

int FaultedRun::ExitCode() const {
  return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

FaultedRun RunUnderFault(WriteFault const& fault, std::function<int()> const& program) {
  pid_t const process = fork();
  if (process == 0) {
    if (ptrace(PTRACE_TRACEME, 0, 0, 0) != 0) {
      _exit(127);
    }
    raise(SIGSTOP);
    _exit(program());
  }
  int status = 0;
  waitpid(process, &status, 0);
  if (!WIFSTOPPED(status)) {
    return {status, 0, {}};
  }
  return Watch(process, fault).ToTheEnd();
}

bool CanRunUnderFaults() {
  FaultedRun const run = RunUnderFault({}, [] {
    int const file = open("/dev/null", O_WRONLY);
    static_cast<void>(write(file, "", 1));
    return 0;
  });
  return run.ExitCode() == 0 && run.calls == 2;
}
