// zelvor-demo: runs the demo script through the host and verifies its program
// on a simulated chip there, then prints for each channel the period and duty
// that the panel printed beside those measured on the pins.
// Exits non-zero when a step fails or a column differs.
#include <sys/wait.h>

#include <cstdio>
#include <fstream>
#include <iostream>
#include <sstream>
#include <string>

#include <nlohmann/json.hpp>

namespace {

using nlohmann::json;

struct Options {
  std::string host, script, out;
};

[[noreturn]] void fail(const std::string& why) {
  std::cerr << "zelvor-demo: " << why << "\n";
  std::exit(1);
}

std::string quote(const std::string& s) {
  std::string q = "'";
  for (char c : s)
    q += c == '\'' ? std::string("'\\''") : std::string(1, c);
  return q + "'";
}

// Runs a shell command and answers its standard output; a non-zero exit fails.
std::string run(const std::string& command) {
  FILE* pipe = popen(command.c_str(), "r");
  if (!pipe)
    fail("cannot run " + command);
  std::string out;
  char buf[4096];
  size_t n;
  while ((n = fread(buf, 1, sizeof buf, pipe)) > 0)
    out.append(buf, n);
  int status = pclose(pipe);
  if (status == -1 || !WIFEXITED(status) || WEXITSTATUS(status) != 0)
    fail("failed: " + command);
  return out;
}

Options parse(int argc, char** argv) {
  Options o;
  for (int i = 1; i + 1 < argc; i += 2) {
    std::string a = argv[i], v = argv[i + 1];
    if (a == "--host")
      o.host = v;
    else if (a == "--script")
      o.script = v;
    else if (a == "--out")
      o.out = v;
    else
      fail("unknown option " + a);
  }
  if (o.host.empty() || o.script.empty() || o.out.empty())
    fail("usage: zelvor-demo --host H --script S --out DIR");
  return o;
}

} // namespace

int main(int argc, char** argv) {
  Options o = parse(argc, argv);

  // The script (settings, simulation, pictures, program), then its program on the chip.
  const std::string lines =
      run("{ cat " + quote(o.script) + "; echo " + quote("verify " + o.out + "/verify") + "; } | " +
          quote(o.host) + " run -");
  std::ofstream(o.out + "/demo.jsonl") << lines;
  json verified;
  std::istringstream in(lines);
  for (std::string line; std::getline(in, line);) {
    json j = json::parse(line);
    if (!j.value("ok", false))
      fail("script line " + std::to_string(j.value("line", 0)) + " failed: " + line);
    if (j.value("cmd", "").rfind("verify", 0) == 0)
      verified = j.at("result");
  }
  if (verified.is_null())
    fail("the host answered no verify");

  std::printf("%-8s %-14s %-14s %-12s %-12s\n", "channel", "panel period", "chip period",
              "panel duty", "chip duty");
  for (const json& c : verified.at("channels")) {
    const json &panel = c.at("panel"), &chip = c.at("chip");
    std::printf("%-8d %-14s %-14s %-12s %-12s %s\n", c.at("channel").get<int>(),
                panel.value("period", "-").c_str(), chip.value("period", "-").c_str(),
                panel.value("duty", "").c_str(), chip.value("duty", "").c_str(),
                c.at("same").get<bool>() ? "same" : "DIFFERS");
  }
  std::printf("\npictures, program and measurements in %s/\n", o.out.c_str());
  return verified.at("same").get<bool>() ? 0 : 1;
}
