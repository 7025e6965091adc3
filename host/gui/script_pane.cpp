#include "script_pane.h"

#include <QFileInfo>
#include <QFontDatabase>
#include <QHBoxLayout>
#include <QPushButton>
#include <QScrollBar>
#include <QTextBlock>
#include <QVBoxLayout>
#include <fstream>

namespace zvhost {

namespace {
bool isCommand(const std::string& line) {
  size_t first = line.find_first_not_of(" \t\r");
  return first != std::string::npos && line[first] != '#';
}
} // namespace

bool scriptHasCommand(const std::string& path, const std::string& word) {
  std::ifstream in(path);
  for (std::string line; std::getline(in, line);) {
    size_t first = line.find_first_not_of(" \t\r");
    size_t end = first == std::string::npos ? first : line.find_first_of(" \t\r", first);
    if (isCommand(line) && line.substr(first, end - first) == word)
      return true;
  }
  return false;
}

ScriptPane::ScriptPane(QWidget* parent) : QWidget(parent) {
  auto* layout = new QVBoxLayout(this);
  auto* buttons = new QHBoxLayout;
  auto* open = new QPushButton(tr("Open script..."), this);
  step_ = new QPushButton(tr("Step"), this);
  step_->setShortcut(QKeySequence(Qt::Key_F10));
  step_->setToolTip(tr("Carry out the next command (F10)"));
  auto* run = new QPushButton(tr("Run all"), this);
  auto* again = new QPushButton(tr("Restart"), this);
  auto* close = new QPushButton(tr("Close"), this);
  for (QPushButton* b : {open, step_, run, again, close})
    buttons->addWidget(b);
  layout->addLayout(buttons);
  title_ = new QLabel(tr("No script"), this);
  layout->addWidget(title_);
  script_ = new QPlainTextEdit(this);
  script_->setReadOnly(true);
  script_->setLineWrapMode(QPlainTextEdit::NoWrap);
  layout->addWidget(script_, 2);
  output_ = new QPlainTextEdit(this);
  output_->setReadOnly(true);
  layout->addWidget(output_, 1);
  QFont mono = QFontDatabase::systemFont(QFontDatabase::FixedFont);
  script_->setFont(mono);
  output_->setFont(mono);

  connect(open, &QPushButton::clicked, this, [this] {
    if (onOpen)
      onOpen();
  });
  connect(step_, &QPushButton::clicked, this, [this] { step(); });
  connect(run, &QPushButton::clicked, this, [this] { runAll(); });
  connect(again, &QPushButton::clicked, this, [this] {
    if (onRestart)
      onRestart();
  });
  connect(close, &QPushButton::clicked, this, [this] {
    if (onClose)
      onClose();
  });
}

bool ScriptPane::load(const std::string& path, std::string& error) {
  std::ifstream in(path);
  if (!in) {
    error = "cannot read " + path;
    return false;
  }
  lines_.clear();
  for (std::string line; std::getline(in, line);)
    lines_.push_back(line);
  title_->setText(QFileInfo(QString::fromStdString(path)).fileName());
  QStringList text;
  for (const std::string& line : lines_)
    text << QString::fromStdString(line);
  script_->setPlainText(text.join('\n'));
  restart();
  return true;
}

void ScriptPane::clear() {
  lines_.clear();
  title_->setText(tr("No script"));
  script_->clear();
  restart();
}

void ScriptPane::restart() {
  next_ = 0;
  output_->clear();
  showPosition();
}

bool ScriptPane::step() {
  while (next_ < lines_.size() && !isCommand(lines_[next_]))
    ++next_;
  if (next_ >= lines_.size())
    return false;
  size_t index = next_++;
  if (execute) {
    std::optional<std::string> answer = execute(static_cast<int>(index) + 1, lines_[index]);
    if (answer)
      output_->appendPlainText(QString::fromStdString(*answer));
  }
  showPosition();
  return true;
}

void ScriptPane::runAll() {
  while (step()) {
  }
}

void ScriptPane::showPosition() {
  // The next line to run is selected in the script view.
  QTextBlock block = script_->document()->findBlockByNumber(static_cast<int>(next_));
  QTextCursor cursor(script_->document());
  if (block.isValid()) {
    // Selected from its end back to its start, so that the view keeps the
    // start of a long line in sight rather than scrolling sideways to its end.
    cursor.setPosition(block.position() + block.length() - 1);
    cursor.setPosition(block.position(), QTextCursor::KeepAnchor);
  } else {
    cursor.movePosition(QTextCursor::End);
  }
  script_->setTextCursor(cursor);
  script_->ensureCursorVisible();
  script_->horizontalScrollBar()->setValue(0);
}

} // namespace zvhost
