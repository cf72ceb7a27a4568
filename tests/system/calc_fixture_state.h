// What the calculator test fixture records and answers; shared by the
// fixture DLL and the test, which reads it through fixture_state().
#pragma once

#include <windows.h>

struct CalcFixtureState {
  // Recorded calls.
  int initialise_calls;
  long initialise_argument;
  int evaluate_calls;
  wchar_t expression[256];
  bool expression_was_null;
  long evaluate_arguments[2];
  int error_text_calls;
  long error_text_arguments[3];
  int text_to_number_calls;
  wchar_t number_text[256];
  long number_mode;
  int number_to_text_calls;
  double formatted_value;
  long format_controls[3];
  // Scripted answers.
  HRESULT result;               // of every call
  const wchar_t* error_text;    // returned by the error-text call (null: none)
  double number;                // returned by text to number
  long status;                  // returned by both conversions
  const wchar_t* number_text_result;  // returned by number to text (null: none)
};

using FixtureStateFunction = CalcFixtureState* (*)();
