#include "process.h"

#include <fcntl.h>
#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <thread>

extern char** environ;

namespace zvhost {

Process::~Process() {
  if (pid_ > 0) {
    kill(pid_, SIGKILL);
    waitpid(pid_, nullptr, 0);
  }
}

bool Process::start(const std::vector<std::string>& argv, const std::string& outputFile,
                    std::string& error) {
  std::vector<char*> args;
  for (const std::string& a : argv)
    args.push_back(const_cast<char*>(a.c_str()));
  args.push_back(nullptr);
  posix_spawn_file_actions_t files;
  posix_spawn_file_actions_init(&files);
  posix_spawn_file_actions_addopen(&files, 1, outputFile.c_str(), O_WRONLY | O_CREAT | O_TRUNC,
                                   0644);
  posix_spawn_file_actions_adddup2(&files, 1, 2);
  const int rc = posix_spawnp(&pid_, args[0], &files, nullptr, args.data(), environ);
  posix_spawn_file_actions_destroy(&files);
  outputFile_ = outputFile;
  if (rc != 0) {
    pid_ = -1;
    error = "cannot run " + argv[0] + ": " + std::strerror(rc);
    return false;
  }
  return true;
}

int Process::finish(std::string& output, int timeoutMs) {
  int status = 0;
  const auto deadline = std::chrono::steady_clock::now() + std::chrono::milliseconds(timeoutMs);
  pid_t done = 0;
  // Short sleeps: these tools take milliseconds, and a wait of one costs one.
  while ((done = waitpid(pid_, &status, WNOHANG)) == 0 &&
         std::chrono::steady_clock::now() < deadline)
    std::this_thread::sleep_for(std::chrono::microseconds(200));
  if (done == 0) {
    kill(pid_, SIGKILL);
    waitpid(pid_, &status, 0);
    status = -1;
  }
  pid_ = -1;
  output = readFile(outputFile_);
  return status >= 0 && WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

std::string besideProgram(const std::string& name) {
  std::error_code ec;
  const std::filesystem::path self = std::filesystem::read_symlink("/proc/self/exe", ec);
  if (!ec && std::filesystem::exists(self.parent_path() / name, ec))
    return (self.parent_path() / name).string();
  return name;
}

std::string readFile(const std::string& path) {
  std::ostringstream text;
  text << std::ifstream(path, std::ios::binary).rdbuf();
  return text.str();
}

} // namespace zvhost
