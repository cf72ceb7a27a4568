#include <gtest/gtest.h>

#include <cstdio>
#include <cstring>
#include <string>
#include <vector>

#include "qnutil/qnutil.h"
#include "support/test_support.h"
#include "support/own_path.h"

#ifdef _WIN32
#include "calc_fixture_state.h"
#endif

using qnutil_test::MessageCapture;

namespace {

#ifdef _WIN32
const char kClassKey[] = "Software\\Classes\\CLSID\\{9BA593B7-2640-493B-AA8A-B3D9172337C1}";

void unregister_calculator() { RegDeleteTreeA(HKEY_LOCAL_MACHINE, kClassKey); }

bool register_calculator(const std::string& server) {
  char key[128];
  std::snprintf(key, sizeof key, "%s\\InprocServer32", kClassKey);
  return RegSetKeyValueA(HKEY_LOCAL_MACHINE, key, nullptr, REG_SZ, server.c_str(),
                         static_cast<DWORD>(server.size() + 1)) == ERROR_SUCCESS &&
         RegSetKeyValueA(HKEY_LOCAL_MACHINE, key, "ThreadingModel", REG_SZ, "Both", 5) ==
             ERROR_SUCCESS;
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
  for (const auto& box : capture.boxes())
    EXPECT_EQ(box.text, "Keine Verbindung zum Calculator(COM-Objekt)");
}

#ifdef _WIN32

// The fixture DLL registered as the calculator component for this suite.
class CalculatorConnected : public testing::Test {
 protected:
  static void SetUpTestSuite() {
    const std::string dll = qnutil_test::sibling("qnutil_calc_fixture.dll");
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
  std::vector<long> arguments() const { return {state_->arguments, state_->arguments + 3}; }

 private:
  static inline CalcFixtureState* state_ = nullptr;
  MessageCapture capture_;
};

TEST_F(CalculatorConnected, InitAndExpressionPassTheirArguments) {
  calc_init(42);
  EXPECT_EQ(state().calls[kInitialise], 1);
  EXPECT_EQ(arguments(), (std::vector<long>{42, 0, 0}));
  // The expression arrives as wide text.
  const char expression[] = "Breite*2 + \xE4\xDF";
  wchar_t wide[32];
  MultiByteToWideChar(CP_ACP, 0, expression, -1, wide, 32);
  calc_expression(expression, 7, -3);
  EXPECT_EQ(state().calls[kEvaluate], 1);
  EXPECT_EQ(std::wstring(state().text), wide);
  EXPECT_EQ(arguments(), (std::vector<long>{7, -3, 0}));
  calc_expression(nullptr, 0, 0);
  EXPECT_TRUE(state().text_was_null);
}

// One scripted answer of the component per row, seen through each of the
// calls that return something: texts and values are copied only on success.
// Without a string the error text stays and the number text becomes empty;
// with another status the error text still comes and the conversions keep.
TEST_F(CalculatorConnected, AnswersComeBackAndArgumentsGoOut) {
  const struct {
    HRESULT result;
    long status;
    const wchar_t* text;
    const char* error_text;   // what calc_error leaves in its buffer
    int conversion_result;    // of both conversions
    double number;            // what ConvStringToDouble leaves
    const char* number_text;  // what ConvDoubleToString leaves
  } answers[] = {{S_OK, 4096, L"-0,13 m", "-0,13 m", 4096, 1234.5, "-0,13 m"},
                 {S_OK, 4096, L"Klammer fehlt \x00FC", "Klammer fehlt \xFC", 4096, 1234.5,
                  "Klammer fehlt \xFC"},
                 {S_OK, 4096, nullptr, "untouched", 4096, 1234.5, ""},
                 {S_OK, 4097, L"x", "x", 4097, -1.0, "untouched"},
                 {E_FAIL, 4096, L"x", "untouched", 4102, -1.0, "untouched"}};
  for (const auto& c : answers) {
    SCOPED_TRACE(&c - answers);
    state() = CalcFixtureState{};
    state().result = c.result;
    state().status = c.status;
    state().answer_text = c.text;
    state().number = 1234.5;
    char text[64] = "untouched";
    calc_error(11, 22, 33, text);
    EXPECT_EQ(state().calls[kErrorText], 1);
    EXPECT_EQ(arguments(), (std::vector<long>{11, 22, 33}));
    EXPECT_STREQ(text, c.error_text);

    double value = -1.0;
    EXPECT_EQ(ConvStringToDouble("1.234,5", 3, &value), c.conversion_result);
    EXPECT_EQ(value, c.number);
    EXPECT_EQ(std::wstring(state().text), L"1.234,5");
    EXPECT_EQ(arguments(), (std::vector<long>{3, 0, 0}));

    std::strcpy(text, "untouched");
    EXPECT_EQ(ConvDoubleToString(-0.125, 2, 0, 1, text), c.conversion_result);
    EXPECT_STREQ(text, c.number_text);
    EXPECT_EQ(state().value, -0.125);
    EXPECT_EQ(arguments(), (std::vector<long>{2, 0, 1}));

    // Null outputs are skipped.
    calc_error(0, 0, 0, nullptr);
    EXPECT_EQ(ConvStringToDouble("1", 0, nullptr), c.conversion_result);
    EXPECT_EQ(ConvDoubleToString(1.0, 0, 0, 0, nullptr), c.conversion_result);
  }
}

#endif

}  // namespace
