// Arbitrary bytes as a "PIPL" resource: the reader must stay inside them.
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <memory>

#include "psfilter/four_char_code.h"
#include "psfilter/pipl_parser.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace qnutil::psfilter;
  // An exactly sized copy, so that any read past the resource is caught.
  auto resource = std::make_unique<unsigned char[]>(size);
  if (size) std::memcpy(resource.get(), data, size);
  PiplTexts texts;
  (void)read_pipl(resource.get(), size, kEntryKeyX86, texts);
  (void)read_pipl(resource.get(), size, kEntryKeyX64, texts);
  // The same bytes one past a 4-byte boundary.
  if (size > 1) (void)read_pipl(resource.get() + 1, size - 1, kEntryKeyX86, texts);
  return 0;
}
