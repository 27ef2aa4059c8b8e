#ifndef TESTS_SUPPORT_CHILDPROCESS_H
#define TESTS_SUPPORT_CHILDPROCESS_H

#include <cerrno>
#include <fcntl.h>
#include <sched.h>
#include <string>
#include <sys/mount.h>
#include <sys/wait.h>
#include <unistd.h>

/// Runs a function in a process of its own.
/// @param function what it returns becomes the exit status.
/// @return the status as waitpid() gives it.
template <class Function>
int RunInChild(Function function) {
  pid_t const process = fork();
  if (process == 0) {
    _exit(function());
  }
  int status = -1;
  while (waitpid(process, &status, 0) < 0 && errno == EINTR) {
  }
  return status;
}

/// Gives this process mounts of its own, which go with it.
/// @return false where that is not allowed.
inline bool EnterOwnMounts() {
  std::string const user = "0 " + std::to_string(geteuid()) + " 1";
  std::string const group = "0 " + std::to_string(getegid()) + " 1";
  if (unshare(CLONE_NEWNS) != 0) {
    if (unshare(CLONE_NEWUSER | CLONE_NEWNS) != 0) {
      return false;
    }
    for (auto const& [file, text] :
         {std::pair("/proc/self/setgroups", std::string("deny")),
          std::pair("/proc/self/uid_map", user), std::pair("/proc/self/gid_map", group)}) {
      int const map = open(file, O_WRONLY);
      if (write(map, text.data(), text.size()) < 0) {
        return false;
      }
      close(map);
    }
  }
  return mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0;
}

/// Whether EnterOwnMounts() works on this machine.
inline bool CanEnterOwnMounts() {
  return RunInChild([] { return EnterOwnMounts() ? 0 : 1; }) == 0;
}

#endif
