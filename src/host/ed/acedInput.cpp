#include <cmath>
#include <cwchar>
#include <optional>

#include "host/db/db.h"
#include "host/ed/ed.h"
#include "host/ed/promptState.h"

// Each prompt asks until an answer fits. What every kind of prompt shares (cancel, enter, keywords, other text) is
// settled in `prompted`; a prompt brings only what makes a value of an answer.

using edhost::PromptAnswer;
using edhost::PromptInit;
using edhost::promptState;

namespace {

constexpr std::size_t kShortText = 133;

void copyText(const std::wstring& text, wchar_t* result, std::size_t capacity) {
  if (capacity == 0) return;
  const std::size_t length = std::min(text.size(), capacity - 1);
  std::wmemcpy(result, text.c_str(), length);
  result[length] = L'\0';
}

/// What a prompt makes of an answer: RTNORM, a failure, or 0 with a message for one that doesn't fit.
struct Judgement {
  int result = 0;
  const wchar_t* refusal = L"";
};

Judgement refused(const wchar_t* why) {
  return {0, why};
}

constexpr Judgement kTaken{RTNORM, L""};

template <class Judge>
int prompted(const wchar_t* prompt, Judge judge) {
  const PromptInit init = std::exchange(promptState().init, {});
  promptState().hasInput = false;
  while (true) {
    const PromptAnswer answer = edhost::ask(prompt);
    const int common = edhost::commonAnswer(init, answer);
    if (common != 0) return common;
    if (answer.kind == PromptAnswer::Kind::Enter) {
      edhost::writeConsole(L"\nA value is required.");
      continue;
    }
    const Judgement judgement = judge(init, answer);
    if (judgement.result != 0) return judgement.result;
    if (answer.kind == PromptAnswer::Kind::Text && (init.bits & RSG_OTHER) != 0) {
      promptState().input = answer.text;
      promptState().hasInput = true;
      return RTKWORD;
    }
    edhost::writeConsole(judgement.refusal);
  }
}

Judgement withinBits(const PromptInit& init, double value) {
  if ((init.bits & RSG_NOZERO) != 0 && value == 0.0) return refused(L"\nThe value must not be zero.");
  if ((init.bits & RSG_NONEG) != 0 && value < 0.0) return refused(L"\nThe value must not be negative.");
  return kTaken;
}

std::optional<double> parsedNumber(const PromptAnswer& answer) {
  double value = 0.0;
  if (answer.kind != PromptAnswer::Kind::Text) return std::nullopt;
  if (acdbDisToF(answer.text.c_str(), kLinearDecimal, &value) != RTNORM) return std::nullopt;
  return value;
}

std::optional<double> parsedLength(const std::wstring& text) {
  double value = 0.0;
  if (acdbDisToF(text.c_str(), -1, &value) != RTNORM) return std::nullopt;
  return value;
}

AcGePoint3d lastPoint() {
  resbuf value{};
  acedGetVar(L"LASTPOINT", &value);
  return asPnt3d(value.resval.rpoint);
}

void keepLastPoint(const AcGePoint3d& p) {
  resbuf value{};
  value.restype = RT3DPOINT;
  asPnt3d(value.resval.rpoint) = p;
  acedSetVar(L"LASTPOINT", &value);
}

/// "distance<angle" as a step from the origin.
std::optional<AcGePoint3d> parsedPolar(const std::wstring& text, std::size_t sign) {
  const std::optional<double> distance = parsedLength(text.substr(0, sign));
  double angle = 0.0;
  if (!distance || acdbAngToF(text.substr(sign + 1).c_str(), -1, &angle) != RTNORM) return std::nullopt;
  return AcGePoint3d(*distance * std::cos(angle), *distance * std::sin(angle), 0.0);
}

std::optional<AcGePoint3d> parsedPoint(std::wstring text) {
  const bool relative = !text.empty() && text.front() == L'@';
  if (relative) text.erase(0, 1);
  const AcGePoint3d base = relative ? lastPoint() : AcGePoint3d::kOrigin;
  if (relative && text.empty()) return base;
  if (const std::size_t sign = text.find(L'<'); sign != std::wstring::npos) {
    const std::optional<AcGePoint3d> step = parsedPolar(text, sign);
    return step ? std::optional(base + step->asVector()) : std::nullopt;
  }
  AcGePoint3d step;
  unsigned int count = 0;
  for (std::size_t start = 0; start <= text.size(); ++count) {
    const std::size_t end = std::min(text.find(L',', start), text.size());
    const std::optional<double> value = parsedLength(text.substr(start, end - start));
    if (!value || count == 3) return std::nullopt;
    step[count] = *value;
    start = end + 1;
  }
  if (count < 2) return std::nullopt;
  return base + step.asVector();
}

Judgement judgedPoint(const PromptInit& init, const PromptAnswer& answer, AcGePoint3d& p) {
  std::optional<AcGePoint3d> point;
  if (answer.kind == PromptAnswer::Kind::Point) point = answer.point;
  if (answer.kind == PromptAnswer::Kind::Text) point = parsedPoint(answer.text);
  if (!point) return refused(L"\nA point is required.");
  const bool limited = edhost::varInt(L"LIMCHECK") != 0 && (init.bits & RSG_NOLIM) == 0;
  if (const AcDbDatabase* database = acdbHostApplicationServices()->workingDatabase(); limited && database != nullptr) {
    const AcGePoint2d low = database->limmin();
    const AcGePoint2d high = database->limmax();
    const bool inside = point->x >= low.x && point->x <= high.x && point->y >= low.y && point->y <= high.y;
    if (!inside) return refused(L"\nThe point lies outside of the drawing's limits.");
  }
  p = *point;
  return kTaken;
}

int askedPoint(const wchar_t* prompt, const ads_real* base, ads_real* result) {
  AcGePoint3d point;
  if (base != nullptr) keepLastPoint(asPnt3d(base));
  const int status = prompted(
      prompt, [&](const PromptInit& init, const PromptAnswer& answer) { return judgedPoint(init, answer, point); });
  if (status != RTNORM) return status;
  keepLastPoint(point);
  asPnt3d(result) = point;
  return RTNORM;
}

/// The second of two points; the first is `base`, or the point of an answer.
int secondPoint(const ads_real* base, const PromptAnswer& answer, AcGePoint3d& from, AcGePoint3d& to) {
  if (base != nullptr) {
    from = asPnt3d(base);
    to = answer.point;
    return RTNORM;
  }
  from = answer.point;
  return askedPoint(L"\nSecond point: ", asDblArray(from), asDblArray(to));
}

int askedAngle(const ads_real* base, const wchar_t* prompt, ads_real* result) {
  return prompted(prompt, [&](const PromptInit& init, const PromptAnswer& answer) -> Judgement {
    double angle = 0.0;
    if (answer.kind == PromptAnswer::Kind::Point) {
      AcGePoint3d from;
      AcGePoint3d to;
      const int status = secondPoint(base, answer, from, to);
      if (status != RTNORM) return {status, L""};
      angle = acutAngle(asDblArray(from), asDblArray(to));
    } else if (answer.kind != PromptAnswer::Kind::Text || acdbAngToF(answer.text.c_str(), -1, &angle) != RTNORM) {
      return refused(L"\nAn angle or two points are required.");
    }
    if ((init.bits & RSG_NOZERO) != 0 && angle == 0.0) return refused(L"\nThe value must not be zero.");
    *result = angle;
    return kTaken;
  });
}

}  // namespace

int acedInitGet(int bits, const wchar_t* keywords) {
  promptState().init = {bits, edhost::parsedKeywords(keywords != nullptr ? keywords : L"")};
  return RTNORM;
}

int acedGetString(int spaces, const wchar_t* prompt, wchar_t* result, std::size_t capacity) {
  promptState().init = {};
  const PromptAnswer answer = edhost::ask(prompt);
  if (answer.kind == PromptAnswer::Kind::Cancel) return RTCAN;
  std::wstring text = answer.kind == PromptAnswer::Kind::Text ? answer.text : std::wstring();
  if (spaces == 0) text.erase(std::min(text.find(L' '), text.size()));
  copyText(text, result, capacity);
  return RTNORM;
}

int acedGetString(int spaces, const wchar_t* prompt, wchar_t* result) {
  return acedGetString(spaces, prompt, result, kShortText);
}

int acedGetKword(const wchar_t* prompt, wchar_t* result, std::size_t capacity) {
  if (promptState().init.keywords.empty()) return RTERROR;
  const int status =
      prompted(prompt, [](const PromptInit&, const PromptAnswer&) { return refused(L"\nThat is no option here."); });
  if (status != RTKWORD) return status;
  copyText(promptState().input, result, capacity);
  return RTNORM;
}

int acedGetKword(const wchar_t* prompt, wchar_t* result) {
  return acedGetKword(prompt, result, kShortText);
}

int acedGetInput(wchar_t* result, std::size_t capacity) {
  if (!promptState().hasInput) return RTERROR;
  copyText(promptState().input, result, capacity);
  return RTNORM;
}

int acedGetInput(wchar_t* result) {
  return acedGetInput(result, kShortText);
}

int acedGetPoint(const ads_real* base, const wchar_t* prompt, ads_real* result) {
  return askedPoint(prompt, base, result);
}

int acedGetCorner(const ads_real* base, const wchar_t* prompt, ads_real* result) {
  return base != nullptr ? askedPoint(prompt, base, result) : RTERROR;
}

int acedGetReal(const wchar_t* prompt, ads_real* result) {
  return prompted(prompt, [&](const PromptInit& init, const PromptAnswer& answer) {
    const std::optional<double> value = parsedNumber(answer);
    if (!value) return refused(L"\nA number is required.");
    const Judgement judgement = withinBits(init, *value);
    if (judgement.result == RTNORM) *result = *value;
    return judgement;
  });
}

int acedGetInt(const wchar_t* prompt, int* result) {
  return prompted(prompt, [&](const PromptInit& init, const PromptAnswer& answer) {
    constexpr double kLeast = -32768;
    constexpr double kMost = 32767;
    const std::optional<double> value = parsedNumber(answer);
    const bool whole = value && *value == std::floor(*value) && *value >= kLeast && *value <= kMost;
    if (!whole) return refused(L"\nA whole number is required.");
    const Judgement judgement = withinBits(init, *value);
    if (judgement.result == RTNORM) *result = static_cast<int>(*value);
    return judgement;
  });
}

int acedGetDist(const ads_real* base, const wchar_t* prompt, ads_real* result) {
  return prompted(prompt, [&](const PromptInit& init, const PromptAnswer& answer) -> Judgement {
    std::optional<double> value;
    if (answer.kind == PromptAnswer::Kind::Point) {
      AcGePoint3d from;
      AcGePoint3d to;
      const int status = secondPoint(base, answer, from, to);
      if (status != RTNORM) return {status, L""};
      if ((init.bits & RSG_2D) != 0) to.z = from.z;
      value = from.distanceTo(to);
    } else if (answer.kind == PromptAnswer::Kind::Text) {
      value = parsedLength(answer.text);
    }
    if (!value) return refused(L"\nA length or two points are required.");
    const Judgement judgement = withinBits(init, *value);
    if (judgement.result == RTNORM) *result = *value;
    return judgement;
  });
}

int acedGetAngle(const ads_real* base, const wchar_t* prompt, ads_real* result) {
  return askedAngle(base, prompt, result);
}

int acedGetOrient(const ads_real* base, const wchar_t* prompt, ads_real* result) {
  return askedAngle(base, prompt, result);
}

int acedPrompt(const wchar_t* text) {
  edhost::writeConsole(text != nullptr ? text : L"");
  return RTNORM;
}

int acedAlert(const wchar_t* message) {
  edhost::writeAlert(message != nullptr ? message : L"");
  return RTNORM;
}
