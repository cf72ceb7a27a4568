#include "platform/guid_text.h"

#include <windows.h>
#include <objbase.h>

#include <cstring>

namespace qnutil::platform {

static_assert(sizeof(GuidBytes) == sizeof(GUID));

bool guid_to_text(const GuidBytes& guid, char (&text)[kGuidTextSize]) {
  GUID native;
  std::memcpy(&native, &guid, sizeof native);
  wchar_t wide[kGuidTextSize];
  if (StringFromGUID2(native, wide, kGuidTextSize) == 0) return false;
  if (WideCharToMultiByte(CP_ACP, 0, wide, -1, text, kGuidTextSize, nullptr, nullptr) == 0) {
    return false;
  }
  CharUpperA(text);
  return true;
}

// IIDFromString rather than CLSIDFromString: the latter would also look up
// program identifiers in the registry, which no stored GUID text is.
bool guid_from_text(const char* text, GuidBytes& guid) {
  wchar_t wide[kGuidTextSize + 1];
  if (std::strlen(text) > kGuidTextSize - 1 ||
      MultiByteToWideChar(CP_ACP, 0, text, -1, wide, kGuidTextSize + 1) == 0) {
    return false;
  }
  GUID native;
  if (FAILED(IIDFromString(wide, &native))) return false;
  std::memcpy(&guid, &native, sizeof guid);
  return true;
}

}  // namespace qnutil::platform
