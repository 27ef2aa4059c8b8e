#include "ChildRun.h"

#include <chrono>
#include <cstdio>
#include <exception>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

constexpr double kKilobytesPerMegabyte = 1024;

/// Calls `main` in a child process whose standard output the result is read from.
ChildRun Run(std::function<void()> const& main) {
  ChildRun run;
  int ends[2];
  if (pipe(ends) != 0) {
    return run;
  }
  pid_t const child = fork();
  if (child == 0) {
    dup2(ends[1], STDOUT_FILENO);
    close(ends[0]);
    close(ends[1]);
    try {
      main();
    } catch (std::exception const& error) {
      std::fprintf(stderr, "%s\n", error.what());
      _exit(1);
    }
    std::fflush(stdout);
    _exit(0);
  }
  close(ends[1]);
  if (child < 0) {
    close(ends[0]);
    return run;
  }
  std::FILE* const told = fdopen(ends[0], "r");
  bool const read = std::fscanf(told, "%lf %lf", &run.seconds, &run.peakBefore) == 2;
  std::fclose(told);
  int status = 0;
  rusage usage{};
  wait4(child, &status, 0, &usage);
  run.done = read && WIFEXITED(status) && WEXITSTATUS(status) == 0;
  run.peakBefore /= kKilobytesPerMegabyte;
  run.peak = static_cast<double>(usage.ru_maxrss) / kKilobytesPerMegabyte;
  return run;
}

}  // namespace

ChildRun RunInChild(std::function<void()> const& prepare, std::function<void()> const& work) {
  return Run([&] {
    prepare();
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    auto const start = std::chrono::steady_clock::now();
    work();
    std::chrono::duration<double> const seconds = std::chrono::steady_clock::now() - start;
    std::printf("%.9f %ld\n", seconds.count(), usage.ru_maxrss);
  });
}

ChildRun RunProgram(std::string const& command) {
  return Run([&] {
    execl("/bin/sh", "sh", "-c", command.c_str(), nullptr);
    _exit(127);
  });
}
