#include <cstdio>
#include <string>

#include <qnutil/qnutil.h>

int main() {
  const std::string version = QnUtil_GetVersionString();
  std::printf("consumer_cxx: QnUtil %s\n", version.c_str());
  return QnUtil_GetVersion() == QNUTIL_VERSION ? 0 : 1;
}
