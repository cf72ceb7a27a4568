// Test program for the launchers: sleeps, then writes its arguments (one
// per line) to the file named by its first argument, so that a caller that
// returns early finds no file.
#include <chrono>
#include <cstdio>
#include <thread>

int main(int argc, char** argv) {
  if (argc < 2) return 2;
  std::this_thread::sleep_for(std::chrono::milliseconds(400));
  std::FILE* out = std::fopen(argv[1], "wb");
  if (!out) return 3;
  for (int i = 1; i < argc; ++i) std::fprintf(out, "%s\n", argv[i]);
  std::fclose(out);
  return 0;
}
