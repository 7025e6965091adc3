#include "msgbox.h"

namespace zv {

namespace {
MessageBoxService* standIn = nullptr;
} // namespace

void HeadlessMessageBoxes::show(const std::string& text, const std::string&) {
  texts.push_back(text);
}

MessageBoxService& defaultMessageBoxes() {
  static HeadlessMessageBoxes headless;
  return standIn ? *standIn : headless;
}

void showMessage(MessageBoxService* service, const std::string& text) {
  (service ? *service : defaultMessageBoxes()).show(text, {});
}

ScopedDefaultMessageBoxes::ScopedDefaultMessageBoxes(MessageBoxService& service)
    : replaced_(standIn) {
  standIn = &service;
}

ScopedDefaultMessageBoxes::~ScopedDefaultMessageBoxes() {
  standIn = replaced_;
}

} // namespace zv
