#include "msgbox.h"

namespace zv {

namespace {
HeadlessMessageBoxes& headless() {
  static HeadlessMessageBoxes service;
  return service;
}
MessageBoxService* installed = nullptr;
} // namespace

void setMessageBoxService(MessageBoxService* service) { installed = service; }

MessageBoxService& messageBoxService() { return installed ? *installed : headless(); }

void msgBox(const std::string& text, const std::string& title) {
  messageBoxService().show(text, title);
}

void HeadlessMessageBoxes::show(const std::string& text, const std::string&) {
  texts.push_back(text);
}

} // namespace zv
