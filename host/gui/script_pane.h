// The script pane of the desktop window: a .zsc script shown line by line,
// stepped one command at a time or run to its end, with each command's answer
// in the output below. The window carries out the lines.
#pragma once

#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QWidget>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace zvhost {

class ScriptPane : public QWidget {
public:
  explicit ScriptPane(QWidget* parent = nullptr);

  bool load(const std::string& path, std::string& error);
  void clear();
  QPushButton* stepButton() const { return step_; }
  QPlainTextEdit* scriptView() const { return script_; }
  // Carries out the next command (skipping blank and comment lines); false at the end.
  bool step();
  void runAll();
  int nextLine() const { return static_cast<int>(next_) + 1; }

  // Carries out one line; answers the line's output, if any.
  std::function<std::optional<std::string>(int lineNumber, const std::string& line)> execute;
  // The user asked for a script file to open.
  std::function<void()> onOpen;
  // The user asked to start the script again from its first line.
  std::function<void()> onRestart;
  // The user asked to close the script.
  std::function<void()> onClose;

  void restart();

private:
  void showPosition();
  std::vector<std::string> lines_;
  size_t next_ = 0;
  QLabel* title_;
  QPushButton* step_;
  QPlainTextEdit* script_;
  QPlainTextEdit* output_;
};

// Whether a line of the script file is the command word ("create"); false
// when the file can't be read.
bool scriptHasCommand(const std::string& path, const std::string& word);

} // namespace zvhost
