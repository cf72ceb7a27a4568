// Fuzzes the environment reader through the character callback, then
// exercises the tree it built (walk, lookups by walk path, writer).
#include <cstddef>
#include <cstdint>
#include <string>

#include "qnutil/qnutil.h"

namespace {

struct Bytes {
  const uint8_t* data;
  size_t size, pos;
};

int QNUTIL_CALL next_byte(void* context) {
  auto* bytes = static_cast<Bytes*>(context);
  return bytes->pos < bytes->size ? bytes->data[bytes->pos++] : -1;
}

void QNUTIL_CALL quiet(const char*, const char*, void*) {}
void QNUTIL_CALL discard(int, void*) {}

int QNUTIL_CALL look_up_leaf(EnvHandle* leaf, const char* section, const char* path, void* root) {
  char buf[64];
  env_get(static_cast<EnvHandle*>(root), section, path, 1, sizeof buf, buf);
  env_get(static_cast<EnvHandle*>(root), section, path, 0, sizeof buf, buf);
  long value;
  env_get_long(leaf, nullptr, nullptr, 1, &value);
  double d;
  env_get_double(leaf, nullptr, nullptr, 1, &d);
  return 0;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  QnUtil_SetMessageHandler(quiet, nullptr);
  EnvHandle* env = env_open(1, nullptr);
  Bytes bytes{data, size, 0};
  env_read(next_byte, &bytes, env);
  env_traverse_leafs(env, look_up_leaf, env);
  env_write(discard, nullptr, env);
  EnvHandle* copy = env_open(2, nullptr);
  env_sink(copy, env, static_cast<int>(size % 4));
  env_close(copy, 0);
  env_close(env, 0);
  return 0;
}
