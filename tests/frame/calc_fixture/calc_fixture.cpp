// In-process COM server standing in for the host's calculator: an object
// with the calculator interface's vtable layout that records its calls and
// gives scripted answers.
#include <objbase.h>
#include <oleauto.h>
#include <windows.h>

#include <cwchar>

#include "../calc_fixture_state.h"

namespace {

constexpr CLSID kCalculatorClass = {
    0x9BA593B7, 0x2640, 0x493B, {0xAA, 0x8A, 0xB3, 0xD9, 0x17, 0x23, 0x37, 0xC1}};
constexpr IID kCalculatorInterface = {
    0x9464C5B0, 0xCAB6, 0x4093, {0xA2, 0x1D, 0x45, 0x72, 0xA1, 0xB7, 0x51, 0x3E}};

CalcFixtureState g_state;

HRESULT record(CalcFixtureMethod method, long a, long b, long c, BSTR text = nullptr) {
  ++g_state.calls[method];
  g_state.arguments[0] = a;
  g_state.arguments[1] = b;
  g_state.arguments[2] = c;
  g_state.text_was_null = text == nullptr;
  std::wcsncpy(g_state.text, text ? text : L"", 255);
  g_state.text[255] = L'\0';
  return g_state.result;
}

BSTR scripted_text() { return g_state.answer_text ? SysAllocString(g_state.answer_text) : nullptr; }

// IUnknown::QueryInterface of an object that offers IUnknown and `offered`.
HRESULT query(IUnknown* object, REFIID iid, REFIID offered, void** out) {
  *out = iid == IID_IUnknown || iid == offered ? object : nullptr;
  if (!*out) return E_NOINTERFACE;
  object->AddRef();
  return S_OK;
}

// Slots 3 to 16 belong to methods the library never calls: Padding<16>
// adds one virtual function per level above IUnknown's three, each with its
// own parameter type so that it takes a slot of its own.
template <int slot>
struct Padding : Padding<slot - 1> {
  virtual HRESULT STDMETHODCALLTYPE unused(Padding<slot>*) { return E_NOTIMPL; }
};
template <>
struct Padding<2> : IUnknown {};

struct Calculator : Padding<16> {
  LONG references = 1;

  STDMETHODIMP QueryInterface(REFIID iid, void** out) override {
    return query(this, iid, kCalculatorInterface, out);
  }
  STDMETHODIMP_(ULONG) AddRef() override { return InterlockedIncrement(&references); }
  STDMETHODIMP_(ULONG) Release() override {
    const LONG left = InterlockedDecrement(&references);
    if (left == 0) delete this;
    return left;
  }

  // Slots 17 to 21.
  virtual HRESULT STDMETHODCALLTYPE initialise(long argument) {
    return record(kInitialise, argument, 0, 0);
  }
  virtual HRESULT STDMETHODCALLTYPE evaluate(BSTR expression, long a, long b) {
    return record(kEvaluate, a, b, 0, expression);
  }
  virtual HRESULT STDMETHODCALLTYPE error_text(long a, long b, long c, BSTR* text) {
    *text = scripted_text();
    return record(kErrorText, a, b, c);
  }
  virtual HRESULT STDMETHODCALLTYPE text_to_number(BSTR text, long mode, double* value,
                                                   long* status) {
    *value = g_state.number;
    *status = g_state.status;
    return record(kTextToNumber, mode, 0, 0, text);
  }
  virtual HRESULT STDMETHODCALLTYPE number_to_text(double value, long a, long b, long c, BSTR* text,
                                                   long* status) {
    g_state.value = value;
    *text = scripted_text();
    *status = g_state.status;
    return record(kNumberToText, a, b, c);
  }

  virtual ~Calculator() = default;
};

struct Factory : IClassFactory {
  STDMETHODIMP QueryInterface(REFIID iid, void** out) override {
    return query(this, iid, IID_IClassFactory, out);
  }
  STDMETHODIMP_(ULONG) AddRef() override { return 2; }
  STDMETHODIMP_(ULONG) Release() override { return 1; }
  STDMETHODIMP CreateInstance(IUnknown* outer, REFIID iid, void** out) override {
    if (outer) return CLASS_E_NOAGGREGATION;
    Calculator* calculator = new Calculator;
    const HRESULT result = calculator->QueryInterface(iid, out);
    calculator->Release();
    return result;
  }
  STDMETHODIMP LockServer(BOOL) override { return S_OK; }
};

Factory g_factory;

}  // namespace

extern "C" __declspec(dllexport) HRESULT STDAPICALLTYPE
    DllGetClassObject(REFCLSID clsid, REFIID iid, void** out) {
  if (clsid != kCalculatorClass) return CLASS_E_CLASSNOTAVAILABLE;
  return g_factory.QueryInterface(iid, out);
}

extern "C" __declspec(dllexport) HRESULT STDAPICALLTYPE DllCanUnloadNow() { return S_FALSE; }

extern "C" __declspec(dllexport) CalcFixtureState* fixture_state() { return &g_state; }
