// The system's message box with one OK button: the platform's default service
// on Windows. Texts are the component's Windows-1252 bytes.
#pragma once

#include <string>

#include "../msgbox.h"

namespace zv {

class SystemMessageBoxes : public MessageBoxService {
public:
  // defaultTitle stands where a box is given no title.
  explicit SystemMessageBoxes(std::string defaultTitle) : defaultTitle_(std::move(defaultTitle)) {}
  void show(const std::string& text, const std::string& title) override;

private:
  std::string defaultTitle_;
};

} // namespace zv
