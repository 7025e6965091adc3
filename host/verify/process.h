// Running the outside tools of verify on chip (avr-gcc, avr-objcopy,
// avr-size, pwm-measure): started at once so that several can run side by
// side, their output going to a file, and waited for with a time limit.
#pragma once

#include <sys/types.h>

#include <string>
#include <vector>

namespace zvhost {

class Process {
public:
  Process() = default;
  Process(const Process&) = delete;
  Process& operator=(const Process&) = delete;
  ~Process(); // a process still running is killed

  // Starts argv[0] (looked up on PATH) with its standard output and error
  // written to outputFile. False, error filled, when it cannot start.
  bool start(const std::vector<std::string>& argv, const std::string& outputFile,
             std::string& error);
  // Waits at most timeoutMs, killing it then; answers its exit status, or -1
  // when it was killed or ended by a signal. output: what it wrote.
  int finish(std::string& output, int timeoutMs = 60000);

private:
  pid_t pid_ = -1;
  std::string outputFile_;
};

// A tool beside the running program when it is there, else its bare name.
std::string besideProgram(const std::string& name);
std::string readFile(const std::string& path);

} // namespace zvhost
