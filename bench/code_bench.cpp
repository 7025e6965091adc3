// The readers of the code file, which read it afresh on every call: keys and
// blocks of the real code file against a plain open, read and close of it,
// and block scans of generated files from 64 KiB to 16 MiB.
#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <unistd.h>

#include <ctime>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "benches.h"
#include "harness.h"

namespace zvbench {

namespace {

// Baseline: the least any reader of the file must do. Answers the bytes read,
// or -1 when the file won't open.
long openReadClose(const std::string& path, std::vector<char>& buffer) {
  const int fd = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
  if (fd < 0)
    return -1;
  long total = 0;
  for (ssize_t got; (got = ::read(fd, buffer.data(), buffer.size())) > 0;)
    total += got;
  ::close(fd);
  benchmark::DoNotOptimize(buffer.data());
  return total;
}

std::string codeFileOf(zv::ComponentObject& component) {
  std::string path;
  check(component.get_CodeFilename(path), "get_CodeFilename");
  return path;
}

void OpenReadClose(benchmark::State& state) {
  ComponentPtr component = createReady();
  const std::string path = codeFileOf(*component);
  std::vector<char> buffer(1 << 16);
  long total = 0;
  for (auto _ : state)
    if ((total = openReadClose(path, buffer)) < 0) {
      state.SkipWithError("can't open the code file");
      break;
    }
  state.counters["file_bytes"] = static_cast<double>(total);
}

double cpuNanoseconds() {
  timespec t{};
  ::clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &t);
  return static_cast<double>(t.tv_sec) * 1e9 + static_cast<double>(t.tv_nsec);
}

// A reader against OpenReadClose in alternating blocks of calls, each block
// timed as CPU time: the ratio comes from one stretch of the machine's load,
// which two benchmarks run seconds apart do not share.
void againstOpenReadClose(benchmark::State& state, const std::function<void()>& reader) {
  ComponentPtr component = createReady();
  const std::string path = codeFileOf(*component);
  std::vector<char> buffer(1 << 16);
  constexpr int kBlock = 32;
  double baseline = 0, read = 0;
  for (auto _ : state) {
    const double t0 = cpuNanoseconds();
    for (int i = 0; i < kBlock; ++i)
      openReadClose(path, buffer);
    const double t1 = cpuNanoseconds();
    for (int i = 0; i < kBlock; ++i)
      reader();
    read += cpuNanoseconds() - t1;
    baseline += t1 - t0;
  }
  state.counters["ratio"] = baseline > 0 ? read / baseline : 0;
}

// One call of a reader of the real code file, as the host or a user makes it.
std::function<void()> readerCall(const std::string& reader, zv::ComponentObject& component) {
  if (reader == "GetIniKeyValue")
    // A key of the last key section: the lookup passes every section before it.
    return [&component, args = std::vector<zv::Variant>{
                            zv::Variant::str("MacroParamTypes_SetDutyHighLow"),
                            zv::Variant::str(" 3"), zv::Variant::str("char")}]() mutable {
      zv::Variant value = component.publicInterface().callMethod("GetIniKeyValue", args);
      benchmark::DoNotOptimize(value.rawStr().data());
    };
  const bool defines = reader == "DefinesCode";
  return [&component, defines, code = std::string()]() mutable {
    check(defines ? component.get_DefinesCode(code) : component.get_MacroCode(2, code),
          defines ? "get_DefinesCode" : "get_MacroCode");
    benchmark::DoNotOptimize(code.data());
  };
}

void Reader(benchmark::State& state, const std::string& reader) {
  ComponentPtr component = createReady();
  const std::function<void()> read = readerCall(reader, *component);
  for (auto _ : state)
    read();
}

// A code file of at least `size` bytes: the usual keys, then many blocks of C
// lines, with the block asked for in the middle.
std::string largeCodeFile(size_t size) {
  std::string text = "[Settings]\r\nDescription=Large\r\n\r\n[MacroNames]\r\nCount=0\r\n\r\n"
                     "/*InitialisationCode_Start*/\r\n/*InitialisationCode_End*/\r\n"
                     "/*InterruptCode_Start*/\r\n/*InterruptCode_End*/\r\n";
  text.reserve(size + 4096);
  bool targetWritten = false;
  for (int block = 0; text.size() < size; ++block) {
    const bool target = !targetWritten && text.size() >= size / 2;
    const std::string name = target ? "Macro_Target" : "Macro_Filler" + std::to_string(block);
    text += "/*" + name + "_Start*/\r\n";
    for (int line = 0; line < 24; ++line)
      text += "    OCR1A = (uint16_t)(duty * " + std::to_string(line) +
              ") >> 2; /* step of the filler block */\r\n";
    text += "/*" + name + "_End*/\r\n";
    targetWritten = targetWritten || target;
  }
  return text;
}

struct LargeFile {
  std::unique_ptr<ScratchFolder> folder = std::make_unique<ScratchFolder>();
  ComponentPtr component;
  size_t bytes = 0;
};

// One component per size, made once: its start-up scans the whole file too.
LargeFile& largeFile(size_t size) {
  static std::map<size_t, LargeFile> made;
  LargeFile& file = made[size];
  if (!file.component) {
    const std::string text = largeCodeFile(size);
    file.bytes = text.size();
    file.folder->write("Large.c", text);
    file.folder->write("help/Large.chm", "");
    file.component = createReady(file.folder->path(), "Large");
  }
  return file;
}

void GetCodeFromFile(benchmark::State& state, size_t size) {
  LargeFile& file = largeFile(size);
  zv::Dispatch& pwm = file.component->publicInterface();
  std::vector<zv::Variant> args{zv::Variant::str("Macro_Target")};
  for (auto _ : state) {
    zv::Variant block = pwm.callMethod("GetCodeFromFile", args);
    benchmark::DoNotOptimize(block.rawStr().data());
  }
  state.SetBytesProcessed(static_cast<int64_t>(state.iterations()) *
                          static_cast<int64_t>(file.bytes));
}

} // namespace

void registerCodeFile() {
  add("OpenReadClose", OpenReadClose);
  for (const char* reader : {"GetIniKeyValue", "MacroCode", "DefinesCode"}) {
    add(reader, [reader](benchmark::State& s) { Reader(s, reader); });
    add(std::string(reader) + "/OpenReadClose", [reader](benchmark::State& s) {
      ComponentPtr component = createReady();
      againstOpenReadClose(s, readerCall(reader, *component));
    });
  }
  const std::pair<const char*, size_t> sizes[] = {{"GetCodeFromFile/64KiB", size_t{64} << 10},
                                                  {"GetCodeFromFile/1MiB", size_t{1} << 20},
                                                  {"GetCodeFromFile/16MiB", size_t{16} << 20}};
  for (const auto& [name, size] : sizes)
    add(name, [size](benchmark::State& s) {
      GetCodeFromFile(s, size);
    })->Unit(benchmark::kMicrosecond);
}

} // namespace zvbench
