// QnUtil_GetString / QnUtil_PutString: one line or fixed-width field of a
// C stream, the record format of the host's older text files.
#include <cstdio>
#include <cstring>

#include "qnutil/files.h"

extern "C" QNUTIL_API int QNUTIL_CALL QnUtil_GetString(FILE* stream, int max, char* buf) {
  if (stream == nullptr || max < 1 || buf == nullptr) return -1;
  int stored = 0;
  int c = std::fgetc(stream);
  if (c == EOF) {
    buf[0] = '\0';
    return -1;
  }
  while (stored < max) {
    if (c == EOF || c == '\0' || c == '\n') break;
    if (c == '\r') {
      // The look-ahead goes back truncated to 16 bits: at the end of the
      // stream that pushes back 0xFF, which the next call reads as a
      // character. Old files depend on the field reader doing exactly this.
      const int next = std::fgetc(stream);
      std::ungetc(static_cast<unsigned short>(next), stream);
      if (next != '\n' && next != '\0') break;
      c = next;
    }
    buf[stored++] = static_cast<char>(c);
    c = stored < max ? std::fgetc(stream) : EOF;
  }
  buf[stored] = '\0';
  return 0;
}

extern "C" QNUTIL_API int QNUTIL_CALL QnUtil_PutString(FILE* stream, const char* text, int width) {
  if (stream == nullptr) return -1;
  if (text == nullptr) text = "";
  if (width == 0) width = static_cast<int>(std::strlen(text));
  bool ok = true;
  int written = 0;
  for (; written < width && text[written] != '\0' && ok; ++written) {
    ok = std::fputc(static_cast<unsigned char>(text[written]), stream) != EOF;
  }
  for (; written < width && ok; ++written) ok = std::fputc(' ', stream) != EOF;
  return ok ? 0 : -1;
}
