// The script runner: carries out one script line at a time against the
// components it creates through a backend, and answers one JSON object per
// command. A line it cannot carry out answers a script error and the run goes
// on; a failed operation of a component is no script error. Message boxes
// shown during a command are answered with OK at once and listed in its answer.
#pragma once

#include <iosfwd>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "backend.h"
#include "host/program/recorder.h"
#include "host/verify/verify.h"
#include "json_out.h"
#include "late_bound.h"
#include "lexer.h"
#include "ops.h"
#include "platform/msgbox.h"

namespace zvhost {

// The service of the runner's objects: it lists the boxes shown while a
// command runs, and passes the others on to outside when there is one.
class RecordingMessageBoxes : public zv::MessageBoxService {
public:
  void show(const std::string& text, const std::string& title) override;
  std::vector<std::string> texts;
  bool inCommand = false;
  zv::MessageBoxService* outside = nullptr;
};

class Runner {
public:
  // backend must outlive the runner. outside answers the boxes that its
  // objects show between commands, when someone else drives them.
  explicit Runner(Backend& backend, zv::MessageBoxService* outside = nullptr);
  ~Runner();
  Runner(const Runner&) = delete;
  Runner& operator=(const Runner&) = delete;

  // Runs each line as soon as it is read and flushes its answer. Answers the
  // exit status: 2 when any line was a script error, otherwise 0.
  int run(std::istream& in, std::ostream& out);
  // One line; nullopt for an empty line or a comment.
  std::optional<Json> execute(int lineNumber, const std::string& line);

  bool hadScriptError() const { return scriptErrors_; }
  ComponentHandle* current();
  // The recorder of one of the runner's components, so that a window can add
  // what the user does with it; nullptr for a component not the runner's.
  SimulationRecorder* recorderOf(const zv::ComponentObject* component);

private:
  // What one command answers, besides its line, text and messages.
  struct Reply {
    zv::Status status;
    std::optional<Json> result;
    std::optional<Json> byref;
  };
  struct Slot {
    std::unique_ptr<ComponentHandle> object;
    std::unique_ptr<LateBoundComponent> late; // the object by operation names
    SimulationRecorder recorder;
    std::optional<Verification> verified; // the last verify on chip
  };

  Reply dispatch(const std::string& command, LineScanner& scan);
  Slot& currentSlot();
  ComponentHandle& component() { return *currentSlot().object; }

  // runner.cpp: component life, container calls, the host interface
  Reply create(LineScanner& scan);
  Reply use(LineScanner& scan);
  Reply readProps(LineScanner& scan);
  Reply writeProps(LineScanner& scan);
  Reply hostOperation(OpKind kind, LineScanner& scan);
  Reply publicInterface(LineScanner& scan);
  void record(const std::string& op, const std::vector<zv::Variant>& args);
  // page_commands.cpp
  Reply pageCommand(LineScanner& scan);
  PageHandle& requirePage();
  Json pageState();
  // view_commands.cpp: inspection and output files
  Reply state();
  Reply panel();
  Reply canvas(LineScanner& scan);
  Reply render(LineScanner& scan);
  Reply program(LineScanner& scan);
  // verify_commands.cpp: the program built and run on a simulated chip
  Reply verify(LineScanner& scan);
  Reply vcd(LineScanner& scan);

  Backend& backend_;
  RecordingMessageBoxes boxes_;
  std::vector<Slot> components_;
  size_t current_ = 0; // 1-based; 0 before the first create
  std::unique_ptr<PageHandle> page_;
  bool scriptErrors_ = false;
  std::string where_; // "line N" of the command running
};

// A number word of a command (a component number, a canvas index, a count).
int wordNumber(const std::string& word);

} // namespace zvhost
