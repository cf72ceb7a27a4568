#include <stdio.h>

#include <qnutil/qnutil.h>

int main(void) {
  if (QnUtil_GetVersion() != QNUTIL_VERSION) {
    fprintf(stderr, "header %d, library %ld\n", QNUTIL_VERSION, QnUtil_GetVersion());
    return 1;
  }
  printf("consumer_c: QnUtil %s\n", QnUtil_GetVersionString());
  return 0;
}
