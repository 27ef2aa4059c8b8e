#include "Programs.h"

#include <fcntl.h>
#include <fstream>
#include <iterator>
#include <spawn.h>
#include <sstream>
#include <stdexcept>
#include <sys/wait.h>

namespace {

std::string Read(std::string const& file) {
  std::ifstream in(file);
  return {std::istreambuf_iterator<char>(in), {}};
}

std::string LastLine(std::string text) {
  text.erase(text.find_last_not_of('\n') + 1);
  return text.substr(text.rfind('\n') + 1);
}

/// Runs a program with its output and errors in a file.
void Run(std::vector<std::string> words, std::string const& output) {
  std::vector<char*> arguments;
  for (std::string& word : words) {
    arguments.push_back(word.data());
  }
  arguments.push_back(nullptr);
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, output.c_str(), O_WRONLY, 0);
  posix_spawn_file_actions_adddup2(&actions, STDOUT_FILENO, STDERR_FILENO);
  pid_t child = 0;
  int const failed =
      posix_spawnp(&child, words[0].c_str(), &actions, nullptr, arguments.data(), environ);
  posix_spawn_file_actions_destroy(&actions);
  if (failed != 0) {
    throw std::runtime_error(words[0] + " is missing");
  }
  int status = 0;
  waitpid(child, &status, 0);
  if (status != 0) {
    throw std::runtime_error(words[0] + " failed: " + LastLine(Read(output)));
  }
}

}  // namespace

void RunProgram(std::vector<std::string> const& command) {
  Run(command, "/dev/null");
}

std::string ReadProgram(std::vector<std::string> const& command) {
  TemporaryFile const output;
  Run(command, output.name);
  return Read(output.name);
}

void MeasurePeer(benchmark::State& state, std::vector<std::string> const& command) {
  try {
    std::istringstream lines(ReadProgram(command));
    for (std::string line; std::getline(lines, line);) {
      auto const sign = line.find('=');
      state.counters[line.substr(0, sign)] = std::stod(line.substr(sign + 1));
    }
  } catch (std::exception const& error) {
    state.SkipWithError(error.what());
  }
}
