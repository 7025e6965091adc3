// The block reader on a random code file and block name, against a plain
// model of its rules: lines end at CR or CR LF, markers are whole lines,
// blocks of one name add up, and a missing start or end gives the one error
// comment. Block text holds no CR and each of its lines ends in LF.
#include <fuzzer/FuzzedDataProvider.h>

#include <vector>

#include "support.h"

using namespace zv;

namespace {

std::vector<std::string> fileLines(const std::string& bytes) {
  std::vector<std::string> lines;
  std::string line;
  for (size_t i = 0; i < bytes.size(); ++i) {
    if (bytes[i] != '\r') {
      line += bytes[i];
      continue;
    }
    lines.push_back(line);
    line.clear();
    if (i + 1 < bytes.size() && bytes[i + 1] == '\n')
      ++i;
  }
  if (!line.empty())
    lines.push_back(line);
  return lines;
}

std::string model(const std::string& bytes, const std::string& name,
                  const std::string& description) {
  const std::string start = "/*" + name + "_Start*/", end = "/*" + name + "_End*/";
  bool in = false, startSeen = false, endSeen = false;
  std::string text;
  for (const std::string& line : fileLines(bytes)) {
    if (in && line == end)
      in = false, endSeen = true;
    else if (in)
      text += line + "\n";
    else if (line == start)
      in = true, startSeen = true;
  }
  if (!startSeen || !endSeen)
    return "//Error Reading Code For " + description + "::" + name + "\r\n";
  return text;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  static auto pwm = fuzz::makeComponent("Blocks");
  FuzzedDataProvider in(data, size);
  std::string name = in.ConsumeRandomLengthString(24);
  const std::string bytes = in.ConsumeRemainingBytesAsString();
  fuzz::writeScratch("Blocks.c", bytes);
  fuzz::boxes().texts.clear();

  const std::string asked = name;
  const std::string text = pwm->GetCodeFromFile(name);
  fuzz::check(name == asked, "the block name stays unchanged");
  fuzz::check(fuzz::boxes().texts.empty(), "an existing file brings no message");
  const std::string error = "//Error Reading Code For " + pwm->sDescription + "::" + name + "\r\n";
  if (text != error) {
    fuzz::check(text.find('\r') == std::string::npos, "block text holds no CR");
    fuzz::check(text.empty() || text.back() == '\n', "block text ends in LF");
  }
  fuzz::check(text == model(bytes, name, pwm->sDescription), "answer follows the block rules");
  return 0;
}
