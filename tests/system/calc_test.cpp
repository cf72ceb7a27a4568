#include <gtest/gtest.h>

#include <string>

#include "qnutil/qnutil.h"
#include "support/test_support.h"
#include "system_test_support.h"

#ifdef _WIN32
#include "calc_fixture_state.h"
#endif

using qnutil_test::MessageCapture;

namespace {

const char kNoCalculator[] = "Keine Verbindung zum Calculator(COM-Objekt)";

#ifdef _WIN32
const char kClassKey[] = "Software\\Classes\\CLSID\\{9BA593B7-2640-493B-AA8A-B3D9172337C1}";

void unregister_calculator() { RegDeleteTreeA(HKEY_LOCAL_MACHINE, kClassKey); }

bool register_calculator(const std::string& server) {
  HKEY key = nullptr;
  const std::string path = std::string(kClassKey) + "\\InprocServer32";
  if (RegCreateKeyExA(HKEY_LOCAL_MACHINE, path.c_str(), 0, nullptr, 0, KEY_WRITE, nullptr, &key,
                      nullptr) != ERROR_SUCCESS)
    return false;
  RegSetValueExA(key, nullptr, 0, REG_SZ, reinterpret_cast<const BYTE*>(server.c_str()),
                 static_cast<DWORD>(server.size() + 1));
  RegSetValueExA(key, "ThreadingModel", 0, REG_SZ, reinterpret_cast<const BYTE*>("Both"), 5);
  RegCloseKey(key);
  return true;
}
#endif

// Runs first: the library keeps a connection once it has one.
TEST(CalculatorMissing, EveryCallShowsTheNoticeAndDoesNothing) {
#ifdef _WIN32
  unregister_calculator();
#endif
  MessageCapture capture;
  char text[32] = "untouched";
  double value = -1.0;
  calc_init(1);
  calc_expression("1+1", 2, 3);
  calc_error(1, 2, 3, text);
  EXPECT_EQ(ConvStringToDouble("2.5", 0, &value), QNUTIL_CALC_FAILED);
  EXPECT_EQ(ConvDoubleToString(2.5, 1, 2, 3, text), QNUTIL_CALC_FAILED);
  EXPECT_STREQ(text, "untouched");
  EXPECT_EQ(value, -1.0);
  ASSERT_EQ(capture.boxes().size(), 5u);
  for (const auto& box : capture.boxes()) EXPECT_EQ(box.text, kNoCalculator);
}

#ifdef _WIN32

// The fixture DLL registered as the calculator component for this suite.
class CalculatorConnected : public testing::Test {
 protected:
  static void SetUpTestSuite() {
    const std::string dll = (system_test::program_directory() / "qnutil_calc_fixture.dll").string();
    ASSERT_TRUE(register_calculator(dll));
    const HMODULE module = LoadLibraryA(dll.c_str());
    ASSERT_NE(module, nullptr);
    const auto state_function = reinterpret_cast<FixtureStateFunction>(
        reinterpret_cast<void*>(GetProcAddress(module, "fixture_state")));
    ASSERT_NE(state_function, nullptr);
    state_ = state_function();
  }
  static void TearDownTestSuite() { unregister_calculator(); }

  void SetUp() override {
    ASSERT_NE(state_, nullptr);
    *state_ = CalcFixtureState{};
    state_->result = S_OK;
  }
  void TearDown() override { EXPECT_TRUE(capture_.boxes().empty()); }

  CalcFixtureState& state() { return *state_; }

 private:
  static inline CalcFixtureState* state_ = nullptr;
  MessageCapture capture_;
};

std::wstring wide(const char* ansi) {
  wchar_t buffer[256];
  MultiByteToWideChar(CP_ACP, 0, ansi, -1, buffer, 256);
  return buffer;
}

TEST_F(CalculatorConnected, InitPassesItsArgument) {
  calc_init(42);
  EXPECT_EQ(state().initialise_calls, 1);
  EXPECT_EQ(state().initialise_argument, 42);
  state().result = E_FAIL;  // a failed call is ignored
  calc_init(-7);
  EXPECT_EQ(state().initialise_calls, 2);
  EXPECT_EQ(state().initialise_argument, -7);
}

TEST_F(CalculatorConnected, ExpressionArrivesAsWideText) {
  const char expression[] = "Breite*2 + \xE4\xDF";
  calc_expression(expression, 7, -3);
  EXPECT_EQ(state().evaluate_calls, 1);
  EXPECT_EQ(std::wstring(state().expression), wide(expression));
  EXPECT_EQ(state().evaluate_arguments[0], 7);
  EXPECT_EQ(state().evaluate_arguments[1], -3);
  calc_expression(nullptr, 0, 0);
  EXPECT_TRUE(state().expression_was_null);
}

struct ErrorTextCase {
  const char* name;
  HRESULT result;
  const wchar_t* answer;
  const char* expected;
};

class CalculatorErrorText : public CalculatorConnected,
                            public testing::WithParamInterface<ErrorTextCase> {};

TEST_P(CalculatorErrorText, CopiesOnlyReturnedTexts) {
  state().result = GetParam().result;
  state().error_text = GetParam().answer;
  char text[64] = "untouched";
  calc_error(11, 22, 33, text);
  EXPECT_EQ(state().error_text_calls, 1);
  EXPECT_EQ(state().error_text_arguments[0], 11);
  EXPECT_EQ(state().error_text_arguments[1], 22);
  EXPECT_EQ(state().error_text_arguments[2], 33);
  EXPECT_STREQ(text, GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(
    Answers, CalculatorErrorText,
    testing::Values(ErrorTextCase{"Text", S_OK, L"Division durch Null", "Division durch Null"},
                    ErrorTextCase{"Umlaut", S_OK, L"Klammer fehlt \x00FC", "Klammer fehlt \xFC"},
                    ErrorTextCase{"Empty", S_OK, L"", ""},
                    ErrorTextCase{"NoString", S_OK, nullptr, "untouched"},
                    ErrorTextCase{"FailedCall", E_FAIL, L"ignored", "untouched"}),
    [](const auto& info) { return std::string(info.param.name); });

struct TextToNumberCase {
  const char* name;
  HRESULT result;
  long status;
  int expected_result;
  double expected_value;
};

class CalculatorTextToNumber : public CalculatorConnected,
                               public testing::WithParamInterface<TextToNumberCase> {};

TEST_P(CalculatorTextToNumber, StoresTheValueOnlyOnSuccess) {
  state().result = GetParam().result;
  state().status = GetParam().status;
  state().number = 1234.5;
  double value = -1.0;
  EXPECT_EQ(ConvStringToDouble("1.234,5", 3, &value), GetParam().expected_result);
  EXPECT_EQ(value, GetParam().expected_value);
  EXPECT_EQ(std::wstring(state().number_text), L"1.234,5");
  EXPECT_EQ(state().number_mode, 3);
}

INSTANTIATE_TEST_SUITE_P(
    Answers, CalculatorTextToNumber,
    testing::Values(TextToNumberCase{"Success", S_OK, 4096, 4096, 1234.5},
                    TextToNumberCase{"OtherStatus", S_OK, 4097, 4097, -1.0},
                    TextToNumberCase{"FailedCall", E_FAIL, 4096, 4102, -1.0}),
    [](const auto& info) { return std::string(info.param.name); });

struct NumberToTextCase {
  const char* name;
  HRESULT result;
  long status;
  const wchar_t* answer;
  int expected_result;
  const char* expected_text;
};

class CalculatorNumberToText : public CalculatorConnected,
                               public testing::WithParamInterface<NumberToTextCase> {};

TEST_P(CalculatorNumberToText, CopiesTheTextOnlyOnSuccess) {
  state().result = GetParam().result;
  state().status = GetParam().status;
  state().number_text_result = GetParam().answer;
  char text[64] = "untouched";
  EXPECT_EQ(ConvDoubleToString(-0.125, 2, 0, 1, text), GetParam().expected_result);
  EXPECT_STREQ(text, GetParam().expected_text);
  EXPECT_EQ(state().formatted_value, -0.125);
  EXPECT_EQ(state().format_controls[0], 2);
  EXPECT_EQ(state().format_controls[1], 0);
  EXPECT_EQ(state().format_controls[2], 1);
}

INSTANTIATE_TEST_SUITE_P(
    Answers, CalculatorNumberToText,
    testing::Values(NumberToTextCase{"Success", S_OK, 4096, L"-0,13 m", 4096, "-0,13 m"},
                    NumberToTextCase{"NoString", S_OK, 4096, nullptr, 4096, ""},
                    NumberToTextCase{"OtherStatus", S_OK, 4100, L"x", 4100, "untouched"},
                    NumberToTextCase{"FailedCall", E_FAIL, 4096, L"x", 4102, "untouched"}),
    [](const auto& info) { return std::string(info.param.name); });

TEST_F(CalculatorConnected, NullOutputsAreSkipped) {
  state().status = 4096;
  state().error_text = L"text";
  state().number_text_result = L"1";
  calc_error(0, 0, 0, nullptr);
  EXPECT_EQ(ConvStringToDouble("1", 0, nullptr), 4096);
  EXPECT_EQ(ConvDoubleToString(1.0, 0, 0, 0, nullptr), 4096);
}

#endif

}  // namespace
