// What the calculator test fixture records and answers; shared by the
// fixture DLL and the test, which reads it through fixture_state().
#pragma once

#include <windows.h>

enum CalcFixtureMethod { kInitialise, kEvaluate, kErrorText, kTextToNumber, kNumberToText };

struct CalcFixtureState {
  // Recorded: calls per method, and the last call's arguments (unused ones 0).
  int calls[5];
  long arguments[3];
  wchar_t text[256];
  bool text_was_null;
  double value;
  // Scripted answers of every call.
  HRESULT result;
  const wchar_t* answer_text;  // null: no string
  double number;               // text to number's value
  long status;                 // of both conversions
};

using FixtureStateFunction = CalcFixtureState* (*)();
