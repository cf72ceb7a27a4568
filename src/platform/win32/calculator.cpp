#include "platform/calculator.h"

#include <objbase.h>
#include <oleauto.h>
#include <windows.h>

#include <mutex>
#include <new>

namespace qnutil::platform {
namespace {

// The component's class and its calculator interface.
constexpr CLSID kCalculatorClass = {
    0x9BA593B7, 0x2640, 0x493B, {0xAA, 0x8A, 0xB3, 0xD9, 0x17, 0x23, 0x37, 0xC1}};
constexpr IID kCalculatorInterface = {
    0x9464C5B0, 0xCAB6, 0x4093, {0xA2, 0x1D, 0x45, 0x72, 0xA1, 0xB7, 0x51, 0x3E}};

// In-process, local and remote servers.
constexpr DWORD kServerContexts = CLSCTX_INPROC_SERVER | CLSCTX_LOCAL_SERVER | CLSCTX_REMOTE_SERVER;
static_assert(kServerContexts == 21);

// Vtable slots of the interface's methods (counting IUnknown's three).
// The host's calculator exposes initialise, evaluate and error text at 17
// to 19, and its number conversions at the two slots after them: text to
// number (text, mode → value, status) and number to text (value, three
// format controls → text, status).
constexpr int kInitialiseSlot = 17;
constexpr int kEvaluateSlot = 18;
constexpr int kErrorTextSlot = 19;
constexpr int kTextToNumberSlot = 20;
constexpr int kNumberToTextSlot = 21;

using InitialiseMethod = HRESULT(STDMETHODCALLTYPE*)(void* self, long argument);
using EvaluateMethod = HRESULT(STDMETHODCALLTYPE*)(void* self, BSTR expression, long argument1,
                                                   long argument2);
using ErrorTextMethod = HRESULT(STDMETHODCALLTYPE*)(void* self, long argument1, long argument2,
                                                    long argument3, BSTR* text);
using TextToNumberMethod = HRESULT(STDMETHODCALLTYPE*)(void* self, BSTR text, long mode,
                                                       double* value, long* status);
using NumberToTextMethod = HRESULT(STDMETHODCALLTYPE*)(void* self, double value, long a, long b,
                                                       long c, BSTR* text, long* status);

template <class Method>
Method method(void* calculator, int slot) {
  void** table = *static_cast<void***>(calculator);
  return reinterpret_cast<Method>(table[slot]);
}

// A wide system string owned for one call; a null text stays a null
// string, which COM treats as empty. Running out of memory is raised, as
// the reference-counted string wrappers of COM do.
class WideText {
 public:
  explicit WideText(const char* text) {
    if (!text) return;
    const int length = MultiByteToWideChar(CP_ACP, 0, text, -1, nullptr, 0);
    if (length > 0) text_ = SysAllocStringLen(nullptr, static_cast<UINT>(length - 1));
    if (!text_) throw std::bad_alloc();
    MultiByteToWideChar(CP_ACP, 0, text, -1, text_, length);
  }
  ~WideText() { SysFreeString(text_); }
  WideText(const WideText&) = delete;
  WideText& operator=(const WideText&) = delete;
  BSTR get() const { return text_; }

 private:
  BSTR text_ = nullptr;
};

// Takes a string the component handed out: converted to the thread's ANSI
// code page, then freed.
std::string take_text(BSTR text) {
  std::string result;
  const int wide_length = static_cast<int>(SysStringLen(text));
  if (wide_length > 0) {
    const int length =
        WideCharToMultiByte(CP_THREAD_ACP, 0, text, wide_length, nullptr, 0, nullptr, nullptr);
    if (length > 0) {
      result.resize(static_cast<size_t>(length));
      WideCharToMultiByte(CP_THREAD_ACP, 0, text, wide_length, result.data(), length, nullptr,
                          nullptr);
    }
  }
  SysFreeString(text);
  return result;
}

}  // namespace

void* calculator_connect() {
  IClassFactory* factory = nullptr;
  if (FAILED(CoGetClassObject(kCalculatorClass, kServerContexts, nullptr, IID_IClassFactory,
                              reinterpret_cast<void**>(&factory))))
    return nullptr;
  void* calculator = nullptr;
  IUnknown* object = nullptr;
  if (SUCCEEDED(
          factory->CreateInstance(nullptr, IID_IUnknown, reinterpret_cast<void**>(&object)))) {
    if (FAILED(object->QueryInterface(kCalculatorInterface, &calculator))) calculator = nullptr;
    object->Release();
  }
  factory->Release();
  return calculator;
}

bool calculator_initialise(void* calculator, long argument) {
  return SUCCEEDED(method<InitialiseMethod>(calculator, kInitialiseSlot)(calculator, argument));
}

bool calculator_evaluate(void* calculator, const char* expression, long argument1, long argument2) {
  const WideText wide(expression);
  return SUCCEEDED(method<EvaluateMethod>(calculator, kEvaluateSlot)(calculator, wide.get(),
                                                                     argument1, argument2));
}

bool calculator_error_text(void* calculator, long argument1, long argument2, long argument3,
                           std::string& text) {
  BSTR result = nullptr;
  const HRESULT status = method<ErrorTextMethod>(calculator, kErrorTextSlot)(
      calculator, argument1, argument2, argument3, &result);
  if (FAILED(status) || !result) {
    SysFreeString(result);
    return false;
  }
  text = take_text(result);
  return true;
}

bool calculator_text_to_number(void* calculator, const char* text, long mode, double& value,
                               long& status) {
  const WideText wide(text);
  return SUCCEEDED(method<TextToNumberMethod>(calculator, kTextToNumberSlot)(
      calculator, wide.get(), mode, &value, &status));
}

bool calculator_number_to_text(void* calculator, double value, long a, long b, long c,
                               std::string& text, long& status) {
  BSTR result = nullptr;
  const HRESULT call = method<NumberToTextMethod>(calculator, kNumberToTextSlot)(
      calculator, value, a, b, c, &result, &status);
  text = take_text(result);
  return SUCCEEDED(call);
}

}  // namespace qnutil::platform
