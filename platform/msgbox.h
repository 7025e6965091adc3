// Message boxes: a service that the host installs. Every box has one OK
// button and blocks the running operation until it is answered. The headless
// service records each text and answers OK at once.
#pragma once

#include <string>
#include <vector>

namespace zv {

class MessageBoxService {
public:
  virtual ~MessageBoxService() = default;
  // title empty means the platform's default title.
  virtual void show(const std::string& text, const std::string& title) = 0;
};

// Installs the service (not owned); nullptr restores the headless default.
void setMessageBoxService(MessageBoxService* service);
MessageBoxService& messageBoxService();

// Shows a box with one OK button and returns when it is answered.
void msgBox(const std::string& text, const std::string& title = {});

class HeadlessMessageBoxes : public MessageBoxService {
public:
  void show(const std::string& text, const std::string& title) override;
  std::vector<std::string> texts;
};

} // namespace zv
