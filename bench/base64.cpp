// Base64 throughput: the in-memory encoder (target: 2.5 GB/s of input on
// one core) and jpgToXML on a 256 MB page-cached file against coreutils'
// `base64 -w0` on the same file (target: at least as fast).
#include <benchmark/benchmark.h>

#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <random>
#include <string>
#include <vector>

#include "encoding/base64.h"
#include "qnutil/encoding.h"

namespace {

std::vector<unsigned char> random_bytes(std::size_t size) {
  std::vector<unsigned char> bytes(size);
  std::mt19937_64 random(3);
  for (std::size_t i = 0; i + 8 <= size; i += 8) {
    const auto value = random();
    std::memcpy(bytes.data() + i, &value, 8);
  }
  return bytes;
}

void BM_EncodeInMemory(benchmark::State& state) {
  const auto input = random_bytes(static_cast<std::size_t>(state.range(0)));
  std::vector<char> text(qnutil::encoding::base64_length(input.size()));
  for (auto _ : state) {
    qnutil::encoding::encode_base64(input.data(), input.size(), text.data());
    benchmark::DoNotOptimize(text.data());
    benchmark::ClobberMemory();
  }
  state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations()) * state.range(0));
}
BENCHMARK(BM_EncodeInMemory)->Arg(64 << 10)->Arg(1 << 20)->Arg(64 << 20);

// One 256 MB file shared by both file benchmarks, read once so that both
// find it in the page cache.
const std::string& big_file() {
  static const std::string path = [] {
    const auto file = std::filesystem::temp_directory_path() / "qnutil-bench-base64.bin";
    const auto bytes = random_bytes(256u << 20);
    std::ofstream(file, std::ios::binary)
        .write(reinterpret_cast<const char*>(bytes.data()),
               static_cast<std::streamsize>(bytes.size()));
    return file.string();
  }();
  return path;
}

void BM_JpgToXml256MB(benchmark::State& state) {
  const std::string& path = big_file();
  unsigned int length = 0;
  jpgToXML(path.c_str(), nullptr, &length, 1);
  std::vector<unsigned char> buffer(length);
  for (auto _ : state) {
    if (jpgToXML(path.c_str(), buffer.data(), nullptr, 0) != 1)
      state.SkipWithError("jpgToXML failed");
    benchmark::ClobberMemory();
  }
  state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations()) * (256 << 20));
}
BENCHMARK(BM_JpgToXml256MB)->Unit(benchmark::kMillisecond)->UseRealTime();

// The same two calls a caller makes: size, then copy.
void BM_JpgToXml256MBBothCalls(benchmark::State& state) {
  const std::string& path = big_file();
  std::vector<unsigned char> buffer;
  for (auto _ : state) {
    unsigned int length = 0;
    jpgToXML(path.c_str(), nullptr, &length, 1);
    buffer.resize(length);
    jpgToXML(path.c_str(), buffer.data(), nullptr, 0);
    benchmark::ClobberMemory();
  }
  state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations()) * (256 << 20));
}
BENCHMARK(BM_JpgToXml256MBBothCalls)->Unit(benchmark::kMillisecond)->UseRealTime();

void BM_CoreutilsBase64_256MB(benchmark::State& state) {
  const std::string command = "base64 -w0 '" + big_file() + "' > /dev/null";
  for (auto _ : state) {
    if (std::system(command.c_str()) != 0) state.SkipWithError("base64 failed");
  }
  state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations()) * (256 << 20));
}
BENCHMARK(BM_CoreutilsBase64_256MB)->Unit(benchmark::kMillisecond)->UseRealTime();

}  // namespace
