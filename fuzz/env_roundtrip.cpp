// Read and write three times. The first cycle may normalise what the
// format cannot carry (NUL bytes are dropped, blanks at the start of a name
// or at the end of a 99-character piece of one are trimmed); from then on
// the written text must be a fixed point. Inputs with backslashes or ';'
// can produce texts that never settle (a continuation or comment may form
// at a line break), so for them only the absence of crashes counts.
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
  return text->pos < text->bytes->size() ? static_cast<unsigned char>((*text->bytes)[text->pos++])
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
  const std::string third = read_and_write(second);
  const bool carried = input.find_first_of("\\;") == std::string::npos;
  if (carried && second != third) std::abort();
  return 0;
}
