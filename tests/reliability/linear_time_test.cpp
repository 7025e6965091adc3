// Doubling the input at most about doubles the time of each reader: the
// median of a few runs at size n and at 2n, compared with a wide margin. No
// absolute timing is asserted.
#include <malloc.h>
#include <time.h>

#include <algorithm>
#include <functional>

#include "tests/component/fixture.h"

namespace zvtest {
namespace {

// The thread's CPU time: other processes on a busy machine don't count in it.
double cpuSeconds() {
  timespec t{};
  clock_gettime(CLOCK_THREAD_CPUTIME_ID, &t);
  return static_cast<double>(t.tv_sec) + static_cast<double>(t.tv_nsec) * 1e-9;
}

double medianSeconds(const std::function<void()>& run) {
  std::vector<double> times;
  for (int i = 0; i < 5; ++i) {
    const double start = cpuSeconds();
    run();
    times.push_back(cpuSeconds() - start);
  }
  std::sort(times.begin(), times.end());
  return times[times.size() / 2];
}

class LinearTime : public ComponentTest {
protected:
  // Every large block mapped afresh: glibc's moving threshold would let a 4 MiB run reuse its
  // heap while an 8 MiB run pays page faults, a step that is no growth of work.
  void SetUp() override {
    ComponentTest::SetUp();
    ::mallopt(M_MMAP_THRESHOLD, 256 * 1024);
  }

  // prepare(n) sets up an input of size n and answers the work to time.
  // Best of three tries, so that a busy machine doesn't decide.
  void expectLinear(const char* what, size_t n,
                    const std::function<std::function<void()>(size_t)>& prepare) {
    double small = 0, large = 0;
    for (int attempt = 0; attempt < 3; ++attempt) {
      small = medianSeconds(prepare(n));
      large = medianSeconds(prepare(2 * n));
      // A floor keeps timer noise on tiny runs from deciding.
      if (large <= 3 * std::max(small, 1e-3))
        return;
    }
    ADD_FAILURE() << what << ": " << small << " s at n, " << large << " s at 2n";
  }
};

std::string lines(size_t bytes, const std::string& line) {
  std::string s;
  s.reserve(bytes + line.size());
  while (s.size() < bytes)
    s += line;
  return s;
}

TEST_F(LinearTime, Readers) {
  auto pwm = createWith({"[Settings]", "Description=Linear"});
  std::string name = "DefinesCode";
  std::string section = "Settings", key = "Last", dflt = "d";

  expectLinear("block scan", 4 << 20, [&](size_t n) {
    folder.write("Fixture.c", lines(n, "x = y; // filler\r\n") +
                                  "/*DefinesCode_Start*/\r\n1\r\n/*DefinesCode_End*/\r\n");
    return [&] { EXPECT_EQ(pwm->GetCodeFromFile(name), "1\n"); };
  });
  expectLinear("one long line in a block", 4 << 20, [&](size_t n) {
    folder.write("Fixture.c",
                 "/*DefinesCode_Start*/\r\n" + std::string(n, 'x') + "\r\n/*DefinesCode_End*/\r\n");
    return [&, n] { EXPECT_EQ(pwm->GetCodeFromFile(name).size(), n + 1); };
  });
  expectLinear("key lookup", 4 << 20, [&](size_t n) {
    folder.write("Fixture.c", "[Settings]\r\n" + lines(n, "Key = value\r\n") + "Last=1\r\n");
    return [&] { EXPECT_EQ(pwm->GetIniKeyValue(section, key, dflt), "1"); };
  });
  expectLinear("key lookup, lines ended by LF alone", 4 << 20, [&](size_t n) {
    folder.write("Fixture.c", "[Settings]\n" + lines(n, "Key = value\n") + "Last=1\n");
    return [&] { EXPECT_EQ(pwm->GetIniKeyValue(section, key, dflt), "1"); };
  });
}

TEST_F(LinearTime, PlaceholdersAndBag) {
  auto pwm = createWith({});
  expectLinear("placeholder filling", 2000, [&](size_t n) {
    std::string text;
    for (size_t i = 0; i < n; ++i)
      text += "%a%b%d";
    return [&pwm, text] {
      for (int i = 0; i < 50; ++i) {
        std::string t = text;
        EXPECT_TRUE(pwm->MacroCodeOverride(t).ok());
      }
    };
  });
  // The container fills the bag one key at a time before the load reads it.
  expectLinear("bag fill and load", 10000, [&](size_t n) {
    return [&pwm, n] {
      zv::PropertyBag bag;
      for (size_t i = 0; i < n; ++i)
        bag.WriteProperty("Noise" + std::to_string(i), zv::Variant::i4(1));
      EXPECT_TRUE(pwm->ReadProperties(bag).ok());
    };
  });
}

} // namespace
} // namespace zvtest
