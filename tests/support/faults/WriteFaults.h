#ifndef TESTS_SUPPORT_WRITEFAULTS_H
#define TESTS_SUPPORT_WRITEFAULTS_H

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

/// What befalls calls of the system that can change files: those that create, rename, link, remove or
/// cut them, and those that write to or close what the process itself has opened for writing.
struct WriteFault {
  enum class Kind {
    None,
    Kill,   ///< ends the process in place of the call, which no process can prevent
    Error,  ///< the call fails and does nothing
    Short   ///< writes half of what it should, and at least a byte
  };

  Kind kind = Kind::None;
  std::size_t first = 1;   ///< the first call that it befalls, counted from 1
  bool onwards = false;    ///< and all after it
  int error = 0;           ///< for Kind::Error
  bool noUnnamed = false;  ///< there are no files without names, as on some file systems
};

/// How a run under faults went.
struct FaultedRun {
  int status = -1;                   ///< as waitpid() gives it
  std::size_t calls = 0;             ///< of those that can change files
  std::vector<std::string> faulted;  ///< the names of those that the fault befell

  bool Killed() const;
  bool Befell(std::string const& call) const;
  int ExitCode() const;  ///< -1 when it was killed
};

/// Runs a function in a process of its own, with all its threads, under a fault.
/// @param program what it returns becomes the exit status.
FaultedRun RunUnderFault(WriteFault const& fault, std::function<int()> const& program);

/// How far sweeps go from one run to the next: sanitizers make runs slow.
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
constexpr int kSweepStep = 7;
#else
constexpr int kSweepStep = 1;
#endif

/// Whether this machine lets a process watch the calls of another.
bool CanRunUnderFaults();

#endif
