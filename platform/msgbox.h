/// @file
/// Message boxes: a service that the host hands each object it creates. Every
/// box has one OK button and blocks the running operation until it is
/// answered. The headless service records each text and answers OK at once.
#pragma once

#include <string>
#include <vector>

namespace zv {

/// Shows message boxes for an object; the host implements it.
class MessageBoxService {
public:
  virtual ~MessageBoxService() = default;
  /// Shows text in a box with one OK button and returns when it is answered.
  /// An empty title means the platform's default title.
  virtual void show(const std::string& text, const std::string& title) = 0;
};

/// Records each text and answers at once: the platform's default where no
/// user is there to answer.
class HeadlessMessageBoxes : public MessageBoxService {
public:
  void show(const std::string& text, const std::string& title) override;
  std::vector<std::string> texts; ///< every text shown, oldest first
};

/// The service of an object that has been given none.
MessageBoxService& defaultMessageBoxes();

/// Shows text under the default title through service, or through the
/// default service when service is null.
void showMessage(MessageBoxService* service, const std::string& text);

/// Stands in for the default service while it lives, and restores what it
/// replaced. Only for boxes shown while there is no object yet to hand a
/// service to: the start-up that runs inside a component's creation.
class ScopedDefaultMessageBoxes {
public:
  /// Makes service (not owned) the default until this guard ends.
  explicit ScopedDefaultMessageBoxes(MessageBoxService& service);
  /// Restores the default that stood before.
  ~ScopedDefaultMessageBoxes();
  ScopedDefaultMessageBoxes(const ScopedDefaultMessageBoxes&) = delete;
  ScopedDefaultMessageBoxes& operator=(const ScopedDefaultMessageBoxes&) = delete;

private:
  MessageBoxService* replaced_;
};

} // namespace zv
