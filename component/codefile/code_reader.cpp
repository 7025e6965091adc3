// The two readers of the code file: one key through the profile function, and
// one marked block by a line scan. Each catches the platform's errors itself.
#include "../../platform/profile.h"
#include "../../platform/textfile.h"
#include "../core/pwm.h"

namespace zv {

namespace {

constexpr uint32_t kKeyBufferSize = 255;

void reportMissing(PWM& pwm, const std::string& path) {
  pwm.msgBox("Error - cannot find C code file:\r\n\r\n" + path);
}

} // namespace

std::string PWM::codeFilePath() const {
  return joinPath(App.folder, sCodeFilename);
}

std::string PWM::ini(std::string section, std::string key, std::string fallback) {
  return GetIniKeyValue(section, key, fallback);
}

std::string PWM::block(std::string name) {
  return GetCodeFromFile(name);
}

std::string PWM::GetIniKeyValue(std::string& lpApplicationName, std::string& lpKeyName,
                                std::string& lpDefault) {
  try {
    const std::string path = codeFilePath();
    std::string buffer(kKeyBufferSize, ' ');
    bool found = false;
    const uint32_t n = getPrivateProfileString(lpApplicationName, lpKeyName, lpDefault, buffer,
                                               kKeyBufferSize, path, &found);
    buffer.resize(n);
    // A missing file is reported, and the caller still gets its default.
    if (!found)
      reportMissing(*this, path);
    return buffer;
  } catch (const RuntimeError& e) {
    msgBox(e.description());
    return {};
  }
}

std::string PWM::GetCodeFromFile(std::string& lpCodeName) {
  try {
    const std::string path = codeFilePath();
    const std::string startMarker = "/*" + lpCodeName + "_Start*/";
    const std::string endMarker = "/*" + lpCodeName + "_End*/";
    bool startSeen = false;
    bool endSeen = false;
    std::string text;

    // Opening tests the file's existence too; only a failed open asks again.
    LineReader file;
    try {
      file = LineReader(path);
    } catch (const RuntimeError&) {
      if (!fileExists(path))
        reportMissing(*this, path);
      throw;
    }
    // The scan runs to the end of the file: blocks of one name add up.
    while (file.skipToLine(startMarker)) {
      startSeen = true;
      // An unfinished last block leaves an earlier end standing.
      endSeen = file.skipToLine(endMarker, &text) || endSeen;
    }
    file.close();

    if (!startSeen || !endSeen)
      text = "//Error Reading Code For " + sDescription + "::" + lpCodeName + "\r\n";
    return text;
  } catch (const RuntimeError& e) {
    msgBox(e.description());
    return {};
  }
}

} // namespace zv
