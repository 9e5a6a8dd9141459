#pragma once

#include <string>
#include <vector>

#include "host/ed/Prompts.h"

namespace edhost {

/// A keyword as acedInitGet declares it: its text and how it may be shortened.
struct Keyword {
  std::wstring text;
  std::wstring shortForm;
  std::wstring global;  ///< empty when none was given
};

/// What acedInitGet asked for; holds for one prompt.
struct PromptInit {
  int bits = 0;
  std::vector<Keyword> keywords;
};

/// What prompts share from one to the next.
struct PromptState {
  PromptInit init;
  std::wstring input;  ///< what acedGetInput gives
  bool hasInput = false;
  bool cancelled = false;
};
PromptState& promptState();

/// Reads the declaration of acedInitGet.
std::vector<Keyword> parsedKeywords(std::wstring_view declaration);
/// The keyword that a typed word means, in full; empty when it means none, or more than one.
std::wstring matchedKeyword(const std::vector<Keyword>& keywords, std::wstring_view typed);

/// Writes the prompt and takes the next answer; a missing one is a cancel.
PromptAnswer ask(const wchar_t* prompt);

/// What a prompt for one kind of value makes of an answer that is none of that kind: RTNONE, RTCAN, RTKWORD, or 0 for
/// one to be judged by the prompt itself.
int commonAnswer(const PromptInit& init, const PromptAnswer& answer);

}  // namespace edhost
