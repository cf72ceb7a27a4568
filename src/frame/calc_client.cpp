// The calculator client: every export connects on first use and forwards
// to the host's calculator component.
#include <cstring>
#include <mutex>
#include <string>

#include "frame/export_guard.h"
#include "frame/message_box.h"
#include "frame/module.h"
#include "frame/module_strings.h"
#include "platform/calculator.h"
#include "qnutil/calc.h"

namespace {

namespace platform = qnutil::platform;

// The module's connection, made on first use; null, after the message
// shown on every call while no calculator can be reached.
void* calculator_ready() {
  qnutil::frame::Module& module = qnutil::frame::module();
  {
    std::lock_guard guard(module.lock);
    if (!module.calculator) module.calculator = platform::calculator_connect();
    if (module.calculator) return module.calculator;
  }
  qnutil::frame::show_message_box("", qnutil::frame::module_string(IDS_NO_CALCULATOR).c_str());
  return nullptr;
}

void copy_text(const std::string& text, char* out) {
  std::memcpy(out, text.c_str(), text.size() + 1);
}

}  // namespace

extern "C" QNUTIL_API void QNUTIL_CALL calc_init(long arg) {
  qnutil::frame::guard_export_void([&] {
    if (void* calculator = calculator_ready()) platform::calculator_initialise(calculator, arg);
  });
}

extern "C" QNUTIL_API void QNUTIL_CALL calc_expression(const char* expression, long arg1,
                                                       long arg2) {
  qnutil::frame::guard_export_void([&] {
    if (void* calculator = calculator_ready()) {
      platform::calculator_evaluate(calculator, expression, arg1, arg2);
    }
  });
}

extern "C" QNUTIL_API void QNUTIL_CALL calc_error(long arg1, long arg2, long arg3, char* text) {
  qnutil::frame::guard_export_void([&] {
    void* calculator = calculator_ready();
    if (!calculator) return;
    std::string error;
    if (platform::calculator_error_text(calculator, arg1, arg2, arg3, error) && text) {
      copy_text(error, text);
    }
  });
}

extern "C" QNUTIL_API int QNUTIL_CALL ConvStringToDouble(const char* text, int mode, double* out) {
  return qnutil::frame::guard_export(QNUTIL_CALC_FAILED, [&] {
    void* calculator = calculator_ready();
    if (!calculator) return QNUTIL_CALC_FAILED;
    double value = 0.0;
    long status = 0;
    if (!platform::calculator_text_to_number(calculator, text, mode, value, status)) {
      return QNUTIL_CALC_FAILED;
    }
    if (status == QNUTIL_CALC_OK && out) *out = value;
    return static_cast<int>(status);
  });
}

extern "C" QNUTIL_API int QNUTIL_CALL ConvDoubleToString(double value, int a, int b, int c,
                                                         char* out) {
  return qnutil::frame::guard_export(QNUTIL_CALC_FAILED, [&] {
    void* calculator = calculator_ready();
    if (!calculator) return QNUTIL_CALC_FAILED;
    std::string text;
    long status = 0;
    if (!platform::calculator_number_to_text(calculator, value, a, b, c, text, status)) {
      return QNUTIL_CALC_FAILED;
    }
    if (status == QNUTIL_CALC_OK && out) copy_text(text, out);
    return static_cast<int>(status);
  });
}
