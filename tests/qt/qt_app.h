// The one QApplication of a widget test binary, made on first use.
#pragma once

#include <QApplication>

namespace zvqt_test {

inline QApplication& app() {
  static int argc = 1;
  static char name[] = "qt_tests";
  static char* argv[] = {name, nullptr};
  static QApplication* instance = new QApplication(argc, argv);
  return *instance;
}

// A base that makes sure of the application before any widget member.
struct WithApp {
  WithApp() { app(); }
};

} // namespace zvqt_test
