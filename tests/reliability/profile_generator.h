// Random profile files and lookups for comparing our profile functions with
// another implementation. The files mix what real code files hold (sections,
// keys, blanks, quotes, comments, C code after the sections) with what they
// should not (missing '=', duplicates, odd line ends, long values).
// Features on which Wine is known to answer unlike Windows are left out here;
// they are checked on their own against the Windows rules.
#pragma once

#include <cstdint>
#include <random>
#include <string>
#include <vector>

namespace zv::test {

struct ProfileLookup {
  std::string section;
  std::string key;
  std::string defaultValue;
};

struct ProfileCase {
  std::string bytes;
  std::vector<ProfileLookup> lookups;
};

class ProfileGenerator {
public:
  explicit ProfileGenerator(uint32_t seed) : rng_(seed) {}
  ProfileCase next();

private:
  size_t pick(size_t n) { return std::uniform_int_distribution<size_t>(0, n - 1)(rng_); }
  bool chance(int percent) { return static_cast<int>(pick(100)) < percent; }
  std::string blanks();
  std::string lineEnd();
  std::string caseVariant(const std::string& name);
  std::string header(const std::string& name);
  std::string keyLine(const std::string& key);
  std::string value();
  std::string number();
  std::string cLine();
  std::string defaultValue();

  std::mt19937 rng_;
};

} // namespace zv::test
