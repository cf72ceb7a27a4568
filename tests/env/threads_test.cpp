// Distinct root environments used from several threads at once: the
// working registers (path tokens, iterator, positional cursor) are per
// thread. Built as its own program so that the ThreadSanitizer preset can
// run it alone.
#include <string>
#include <thread>
#include <vector>

#include "env_fixture.h"

namespace {

int QNUTIL_CALL count_leaf(EnvHandle*, const char*, const char*, void* user) {
  return ++*static_cast<int*>(user);
}

// One thread's whole workload on its own environment; returns the number
// of mismatches it saw.
int work_on_own_environment(int id) {
  int mismatches = 0;
  EnvHandle* base = env_open(100 + id, nullptr);
  EnvHandle* env = env_open(id, base);
  env_put(base, "S", "from@base", "b");
  for (int round = 0; round < 200; ++round) {
    const std::string path = "t" + std::to_string(id) + "@" + std::to_string(round % 5 + 1) + "@v";
    env_put_long(env, "S", path.c_str(), round);
    long value = -1;
    if (env_get_long(env, "S", path.c_str(), 1, &value) != id || value != round) ++mismatches;
    char text[8];
    if (env_get(env, "S", "from@base", 1, sizeof text, text) != 100 + id) ++mismatches;
    long answered = 0;
    char name[16];
    int kinds = 0;
    for (int kind = env_get_first(env, nullptr, nullptr, 1, &answered, sizeof name, name, 0,
                                  nullptr, nullptr);
         kind == ENV_DATA || kind == ENV_BLOCK || kind == ENV_EXTERNAL;
         kind = env_get_next(sizeof name, name, 0, nullptr, nullptr))
      ++kinds;
    if (kinds != 1) ++mismatches;
  }
  EnvHandle* copy = env_open(id, nullptr);
  if (env_test::read_text(copy, env_test::write_text(env)) != ENV_OK) ++mismatches;
  int leaves = 0;
  env_traverse_leafs(copy, count_leaf, &leaves);
  if (leaves != 5) ++mismatches;
  env_close(copy, 0);
  env_close(env, 1);
  return mismatches;
}

TEST(EnvThreads, DistinctRootsWorkConcurrently) {
  constexpr int kThreads = 4;
  std::vector<int> mismatches(kThreads, -1);
  std::vector<std::thread> threads;
  for (int t = 0; t < kThreads; ++t)
    threads.emplace_back([t, &mismatches] { mismatches[t] = work_on_own_environment(t + 1); });
  for (auto& thread : threads) thread.join();
  for (int t = 0; t < kThreads; ++t) EXPECT_EQ(mismatches[t], 0) << "thread " << t;
}

TEST(EnvThreads, DelimiterChangesAreSeenByOtherThreads) {
  env_set_delimiter("/");
  std::string seen;
  std::thread([&seen] { seen = env_set_delimiter("@"); }).join();
  EXPECT_EQ(seen, "/");
  EXPECT_STREQ(env_set_delimiter(nullptr), "@");
}

}  // namespace
