#include "host/ed/Prompts.h"

#include <charconv>

#include "host/ed/Console.h"
#include "host/ed/aced.h"
#include "host/ed/promptState.h"
#include "host/os/os.h"

namespace edhost {

namespace {

PromptSource*& behindQueue() {
  static PromptSource* source = nullptr;
  return source;
}

bool isCapital(wchar_t c) {
  return c != os::lowerCase(c) || (c >= L'0' && c <= L'9');
}

bool startsWithNoCase(std::wstring_view text, std::wstring_view start) {
  return text.size() >= start.size() && os::compareNoCase(text.substr(0, start.size()), start) == 0;
}

/// Where the run of capitals of a keyword begins and ends; the whole word when it has none.
std::pair<std::size_t, std::size_t> capitals(std::wstring_view word) {
  std::size_t start = 0;
  while (start < word.size() && !isCapital(word[start])) ++start;
  std::size_t end = start;
  while (end < word.size() && isCapital(word[end])) ++end;
  return start == word.size() ? std::pair{std::size_t(0), word.size()} : std::pair{start, end};
}

bool abbreviates(std::wstring_view typed, const Keyword& keyword) {
  if (!keyword.shortForm.empty()) return os::compareNoCase(typed, keyword.shortForm) == 0;
  const auto [start, end] = capitals(keyword.text);
  const std::wstring_view word = keyword.text;
  if (typed.size() >= end && startsWithNoCase(word, typed)) return true;
  return typed.size() >= end - start && startsWithNoCase(word.substr(start), typed);
}

std::vector<std::wstring> words(std::wstring_view text) {
  std::vector<std::wstring> all;
  std::size_t start = 0;
  while ((start = text.find_first_not_of(L' ', start)) != std::wstring_view::npos) {
    const std::size_t end = std::min(text.find(L' ', start), text.size());
    all.emplace_back(text.substr(start, end - start));
    start = end;
  }
  return all;
}

Keyword declared(const std::wstring& word) {
  const std::size_t comma = word.find(L',');
  if (comma == std::wstring::npos) return {word, {}, {}};
  return {word.substr(0, comma), word.substr(comma + 1), {}};
}

const std::wstring& given(const Keyword& keyword) {
  return keyword.global.empty() ? keyword.text : keyword.global;
}

}  // namespace

PromptQueue& PromptQueue::text(std::wstring value) {
  PromptAnswer answer;
  answer.kind = value.empty() ? PromptAnswer::Kind::Enter : PromptAnswer::Kind::Text;
  answer.text = std::move(value);
  push(std::move(answer));
  return *this;
}

PromptQueue& PromptQueue::number(double value) {
  char digits[64];
  const auto end = std::to_chars(digits, digits + sizeof digits, value).ptr;
  return text(std::wstring(digits, end));
}

PromptQueue& PromptQueue::point(const AcGePoint3d& value) {
  PromptAnswer answer;
  answer.kind = PromptAnswer::Kind::Point;
  answer.point = value;
  answer.hasPoint = true;
  push(std::move(answer));
  return *this;
}

PromptQueue& PromptQueue::entity(const AcDbObjectId& id, Adesk::GsMarker marker) {
  PromptAnswer answer;
  answer.kind = PromptAnswer::Kind::Entity;
  answer.id = id;
  answer.marker = marker;
  push(std::move(answer));
  return *this;
}

PromptQueue& PromptQueue::entity(const AcDbObjectId& id, const AcGePoint3d& at, Adesk::GsMarker marker) {
  entity(id, marker);
  m_answers.back().point = at;
  m_answers.back().hasPoint = true;
  return *this;
}

PromptQueue& PromptQueue::enter() {
  PromptAnswer answer;
  answer.kind = PromptAnswer::Kind::Enter;
  push(std::move(answer));
  return *this;
}

PromptQueue& PromptQueue::cancel() {
  push(PromptAnswer());
  return *this;
}

std::optional<PromptAnswer> PromptQueue::next(const std::wstring&) {
  if (m_answers.empty()) return std::nullopt;
  PromptAnswer answer = std::move(m_answers.front());
  m_answers.pop_front();
  return answer;
}

PromptQueue& promptQueue() {
  static auto* const queue = new PromptQueue;
  return *queue;
}

PromptSource* setPromptSource(PromptSource* source) {
  return std::exchange(behindQueue(), source);
}

PromptState& promptState() {
  static auto* const state = new PromptState;
  return *state;
}

bool promptWasCancelled() {
  return promptState().cancelled;
}

std::vector<Keyword> parsedKeywords(std::wstring_view declaration) {
  std::vector<Keyword> keywords;
  const std::size_t underscore = declaration.find(L'_');
  for (const std::wstring& word : words(declaration.substr(0, underscore))) keywords.push_back(declared(word));
  if (underscore == std::wstring_view::npos) return keywords;
  const std::vector<std::wstring> globals = words(declaration.substr(underscore + 1));
  for (std::size_t i = 0; i < std::min(globals.size(), keywords.size()); ++i) {
    keywords[i].global = declared(globals[i]).text;
  }
  return keywords;
}

std::wstring matchedKeyword(const std::vector<Keyword>& keywords, std::wstring_view typed) {
  if (typed.empty()) return {};
  if (typed.front() == L'_') {
    typed.remove_prefix(1);
    std::vector<Keyword> globals;
    for (const Keyword& keyword : keywords) globals.push_back({given(keyword), {}, {}});
    return matchedKeyword(globals, typed);
  }
  const Keyword* match = nullptr;
  for (const Keyword& keyword : keywords) {
    if (os::compareNoCase(keyword.text, typed) == 0) return given(keyword);
    if (!abbreviates(typed, keyword)) continue;
    if (match != nullptr) return {};
    match = &keyword;
  }
  return match != nullptr ? given(*match) : std::wstring();
}

PromptAnswer ask(const wchar_t* prompt) {
  const std::wstring shown = prompt != nullptr ? prompt : L"";
  writeConsole(shown);
  std::optional<PromptAnswer> answer = promptQueue().next(shown);
  if (!answer && behindQueue() != nullptr) answer = behindQueue()->next(shown);
  if (!answer) answer.emplace();
  if (answer->kind == PromptAnswer::Kind::Text) writeConsole(answer->text);
  if (answer->kind == PromptAnswer::Kind::Cancel) promptState().cancelled = true;
  return *answer;
}

int commonAnswer(const PromptInit& init, const PromptAnswer& answer) {
  PromptState& state = promptState();
  switch (answer.kind) {
    case PromptAnswer::Kind::Cancel:
      return RTCAN;
    case PromptAnswer::Kind::Enter:
      return (init.bits & RSG_NONULL) != 0 ? 0 : RTNONE;
    case PromptAnswer::Kind::Text: {
      const std::wstring keyword = matchedKeyword(init.keywords, answer.text);
      if (keyword.empty()) return 0;
      state.input = keyword;
      state.hasInput = true;
      return RTKWORD;
    }
    default:
      return 0;
  }
}

}  // namespace edhost
