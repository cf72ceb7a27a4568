/* Calls every export that takes or returns float or double with arguments
 * given bit for bit, and prints each result's bits. Built twice, with SSE2
 * arithmetic and with x87 arithmetic (C99's standard excess precision, as
 * an i686 host compiled with -std=c99 has it): both must print the same. */
#include <stdint.h>
#include <stdio.h>
#include <string.h>

#include "qnutil/qnutil.h"

static double d(uint64_t bits) {
  double value;
  memcpy(&value, &bits, sizeof value);
  return value;
}

static float f(uint32_t bits) {
  float value;
  memcpy(&value, &bits, sizeof value);
  return value;
}

static void show_double(const char* what, int i, double value) {
  uint64_t bits;
  memcpy(&bits, &value, sizeof bits);
  printf("%s[%d] %08lx%08lx\n", what, i, (unsigned long)(bits >> 32),
         (unsigned long)(bits & 0xFFFFFFFFu));
}

static void show_float(const char* what, int i, float value) {
  uint32_t bits;
  memcpy(&bits, &value, sizeof bits);
  printf("%s[%d] %08lx\n", what, i, (unsigned long)bits);
}

int main(void) {
  /* 0.1, 2.5, -2.5, 1/3, 45, 0.7, 1234.5678, 1e300, -0.0, 1e-310 */
  static const uint64_t doubles[] = {
      0x3FB999999999999AULL, 0x4004000000000000ULL, 0xC004000000000000ULL, 0x3FD5555555555555ULL,
      0x4046800000000000ULL, 0x3FE6666666666666ULL, 0x40934A456D5CFAADULL, 0x7E37E43C8800759CULL,
      0x8000000000000000ULL, 0x00001D6329F1C35CULL};
  /* 0.1f, 2.5f, -2.5f, 1/3f, 45f, 0.7f, 1e30f, 3f */
  static const uint32_t floats[] = {0x3DCCCCCDu, 0x40200000u, 0xC0200000u, 0x3EAAAAABu,
                                    0x42340000u, 0x3F333333u, 0x7149F2CAu, 0x40400000u};
  static const char* const texts[] = {"0.1", "2.5D3", "-1e-300", "123456789.123456789", "x"};
  const int nd = sizeof doubles / sizeof doubles[0], nf = sizeof floats / sizeof floats[0];
  int i, j;
  EnvHandle* env;
  double stored = 0.0;

  for (i = 0; i < nd; ++i) {
    const double x = d(doubles[i]), y = d(doubles[(i + 3) % nd]);
    show_double("PRound2", i, QnUtil_PRound(x, 2));
    show_double("PRound-1", i, QnUtil_PRound(x, -1));
    printf("LRound[%d] %ld\n", i, QnUtil_LRound(x));
    show_double("sin_deg", i, sin_deg(x));
    show_double("cos_deg", i, cos_deg(x));
    show_double("acos_deg", i, acos_deg(x));
    show_double("atan_deg", i, atan_deg(x));
    show_double("atan2_deg", i, atan2_deg(x, y));
    show_double("ddiv", i, ddiv(x, y));
    show_double("fsgn", i, fsgn(x));
  }
  for (i = 0; i < nf; ++i) {
    const float x = f(floats[i]);
    for (j = 0; j < 3; ++j) show_float("FRound", i * 3 + j, QnUtil_FRound(x, j));
    show_float("fdiv", i, qnutil_fdiv(x, f(floats[(i + 1) % nf])));
  }
  for (i = 0; i < (int)(sizeof texts / sizeof texts[0]); ++i) {
    show_double("StringToDouble", i, QnUtil_StringToDouble(texts[i]));
  }
  env = env_open(1, NULL);
  for (i = 0; i < nd; ++i) {
    env_put_double(env, "s", "value", d(doubles[i]));
    env_get_double(env, "s", "value", 1, &stored);
    show_double("env_double", i, stored);
  }
  env_close(env, 0);
  return 0;
}
