// Read, write, read, write: the writer's output must read back to a tree
// that writes the same bytes again. Inputs with backslashes or ';' can
// produce texts the format does not carry (a continuation or comment may
// form at a line break), so for them only the absence of crashes counts.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <string>

#include "qnutil/qnutil.h"

namespace {

struct Text {
  const std::string* bytes;
  size_t pos;
};

int QNUTIL_CALL next_byte(void* context) {
  auto* text = static_cast<Text*>(context);
  return text->pos < text->bytes->size()
             ? static_cast<unsigned char>((*text->bytes)[text->pos++])
             : -1;
}

void QNUTIL_CALL append(int ch, void* out) {
  static_cast<std::string*>(out)->push_back(static_cast<char>(ch));
}

void QNUTIL_CALL quiet(const char*, const char*, void*) {}

std::string read_and_write(const std::string& input) {
  EnvHandle* env = env_open(1, nullptr);
  Text text{&input, 0};
  env_read(next_byte, &text, env);
  std::string out;
  env_write(append, &out, env);
  env_close(env, 0);
  return out;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  QnUtil_SetMessageHandler(quiet, nullptr);
  const std::string input(reinterpret_cast<const char*>(data), size);
  const std::string first = read_and_write(input);
  const std::string second = read_and_write(first);
  const bool carried = input.find_first_of("\\;") == std::string::npos;
  if (carried && first != second) std::abort();
  return 0;
}
